#include "tests/long/Books.h"

#include "platform/ado/Batch.h"
#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "server/engine/EmbeddedProvider.h"

#include <QFileInfo>
#include <QStringList>

namespace attacks {

Books Books::of(const QString& file) {
    const auto session = engine::EmbeddedProvider::open(file, {});
    const auto value = [&](const char* query) {
        const ado::Rows rows = ado::runBatch(*session, QString::fromLatin1(query)).rows;
        return rows.count() == 0 ? 0 : base::textOf(rows.at(0, 0)).toInt();
    };
    Books books;
    books.requests = value("SELECT COUNT(*) FROM NUCLEAR..tbNucMaster");
    books.logBook = value("SELECT COUNT(*) FROM STATION..tbNurseLogBook");
    books.bills = value("SELECT COUNT(*) FROM BILLING..tbDailyBill");
    books.stockCards = value("SELECT COUNT(*) FROM INVENTORY..tbInvStockCard");
    books.slips = value("SELECT ChargeSlip FROM NUCLEAR..tbNucSlip");
    books.numbers = value("SELECT RequestNum FROM NUCLEAR..tbNucSlip");
    books.stockTaken =
        value("SELECT -OnHand FROM INVENTORY..tbInvStock WHERE ItemID = '40001' AND LocationID = '224'");
    books.walkIns = value("SELECT COUNT(*) FROM PATIENT_DATA..tbCashPatient");
    books.walkInNumber = value("SELECT SUBSTRING(lastopd, 2, 10) FROM PATIENT_DATA..tbLastWalkInNum");
    books.assessments = value("SELECT assessmentnum FROM BILLING..tbAssessmentNum");
    books.assessedNumbers = value("SELECT RequestNum FROM BILLING..tbAssessmentNum");
    books.assessedLines = value("SELECT COUNT(*) FROM BILLING..tbCashAssessment");
    books.shared =
        value("SELECT COUNT(*) FROM (SELECT RequestNum FROM NUCLEAR..tbNucMaster GROUP BY RequestNum "
              "HAVING COUNT(*) > 1) AS Twice") +
        value("SELECT COUNT(*) FROM (SELECT RequestNum FROM BILLING..tbCashAssessment GROUP BY RequestNum "
              "HAVING COUNT(*) > 1) AS Twice");
    return books;
}

QString Books::disagreement(const Books& before) const {
    const int saved = saves(before);
    const int added = registrations(before);
    if (saved >= 0 && requests - before.requests == 2 * saved && logBook - before.logBook == 2 * saved &&
        bills - before.bills == saved && stockCards - before.stockCards == saved &&
        numbers - before.numbers == 2 * saved && stockTaken - before.stockTaken == 2 * saved &&
        walkIns - before.walkIns == added && assessedLines - before.assessedLines == 2 * filed(before) &&
        assessedNumbers - before.assessedNumbers == 2 * filed(before) && shared == before.shared)
        return {};
    return QStringLiteral(
               "requests %1 log book %2 bills %3 stock cards %4 slips %5 numbers %6 stock %7 walk-ins "
               "%8 of %9 shared %10 assessments %11 lines %12 numbers %13")
        .arg(requests - before.requests)
        .arg(logBook - before.logBook)
        .arg(bills - before.bills)
        .arg(stockCards - before.stockCards)
        .arg(saved)
        .arg(numbers - before.numbers)
        .arg(stockTaken - before.stockTaken)
        .arg(walkIns - before.walkIns)
        .arg(added)
        .arg(shared - before.shared)
        .arg(filed(before))
        .arg(assessedLines - before.assessedLines)
        .arg(assessedNumbers - before.assessedNumbers);
}

QString damageOf(const QString& file) {
    if (!QFileInfo::exists(file))
        return QStringLiteral("no file ") + file;
    try {
        return engine::EmbeddedProvider::open(file, {})->check().join(u' ');
    } catch (const base::RunTimeError& error) {
        return QStringLiteral("%1 %2").arg(error.number()).arg(error.description());
    }
}

} // namespace attacks
