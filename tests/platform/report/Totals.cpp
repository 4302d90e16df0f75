#include "tests/platform/report/Totals.h"

#include "platform/base/Conversion.h"
#include "tests/support/hospital/Days.h"
#include "tests/support/hospital/DemoFile.h"

#include <QFile>
#include <QTemporaryDir>

namespace tests {

namespace {

const QString& busyFile() {
    static const QTemporaryDir folder;
    static const QString file = folder.filePath("busy.scintra");
    return file;
}

} // namespace

void PrintTo(const Period& period, std::ostream* stream) {
    *stream << period.name;
}

const BusyPeriod& Totals::busyPeriod() {
    static const BusyPeriod made = [] {
        QFile::copy(originalHospital(), busyFile());
        return BusyPeriod(busyFile());
    }();
    return made;
}

const QString& Totals::hospitalFile() const {
    busyPeriod();
    return busyFile();
}

std::vector<QStringList> Totals::table(const QString& query) const {
    const ado::Rows found = rows(query);
    std::vector<QStringList> all;
    for (qsizetype i = 0; i < found.count(); ++i) {
        QStringList cells;
        for (qsizetype c = 0; c < qsizetype(found.columns.size()); ++c)
            cells << (found.at(i, c).isNull() ? QString() : toTestDays(base::textOf(found.at(i, c))));
        all.push_back(cells);
    }
    return all;
}

QSet<QString> Totals::column(const QString& query) const {
    QSet<QString> all;
    for (const QStringList& cells : table(query))
        all.insert(cells[0]);
    return all;
}

Sum Totals::amounts(const QString& query) const {
    Sum sum;
    for (const QStringList& cells : table(query))
        sum.add(centsOf(cells[0]));
    return sum;
}

std::vector<Line> Totals::lines() const {
    const QSet<QString> admitted = column("SELECT IdNum FROM PATIENT_DATA..tbPatient");
    const QSet<QString> outPatients = column("SELECT IdNum FROM PATIENT_DATA..tbOutPatient");
    std::vector<Line> all;
    const auto add = [&](const QStringList& c) {
        const char kind = admitted.contains(c[1]) ? 'I' : outPatients.contains(c[1]) ? 'O' : 'W';
        all.push_back({c[0], c[2], c[3], c[4], c[6], c[7], centsOf(c[5]), kind});
    };
    QSet<QString> filed;
    for (const QStringList& c :
         table("SELECT CONVERT(varchar(23), TransDate, 121), IdNum, RevenueID, ItemID, "
               "RequestStatus, Amount, RequestNum, RefNum FROM tbNucMaster")) {
        filed.insert(c[7] + '/' + c[3]);
        if (!c[3].isEmpty())
            add(c);
    }
    for (const QStringList& c : table(
             "SELECT CONVERT(varchar(23), TransDate, 121), IdNum, RevenueID, ItemID, '', Amount, RequestNum, "
             "ORNumber FROM BILLING..tbCashAssessment WHERE RecordStatus = '1' AND RevenueID = 'NU'")) {
        if (!filed.contains(c[7] + '/' + c[3]))
            add(c);
    }
    return all;
}

std::map<QString, double> Totals::shares() const {
    std::map<QString, double> all;
    for (const QStringList& cells : table("SELECT DoctorID, RevenueID, Percentage FROM CARDIO..tbReaderRate"))
        all[cells[0] + '/' + cells[1]] = cells[2].toDouble();
    return all;
}

} // namespace tests
