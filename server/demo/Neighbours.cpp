#include "server/demo/Neighbours.h"

#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "server/demo/Names.h"

#include <QStringList>

namespace demo {

using ado::sql;

namespace {

constexpr int anothersHospital = 58;
constexpr const char* madeUp = "Kerova General Hospital";
constexpr const char* ward = "2101";
constexpr const char* cashier = "3001";

constexpr NamedDeed deedList[] = {{"ward", Deed::Ward},
                                  {"payment", Deed::Payment},
                                  {"prepaid", Deed::Prepaid},
                                  {"discharge", Deed::Discharge}};

/// Wards ask more often than patients go home.
constexpr Deed turns[] = {Deed::Ward,    Deed::Payment, Deed::Ward,     Deed::Prepaid,
                          Deed::Payment, Deed::Ward,    Deed::Discharge};

QString text(const ado::Rows& rows, qsizetype row, qsizetype column) {
    return base::Trim(base::textOf(rows.at(row, column)));
}

void refuseAnothersHospital(ado::Provider& server) {
    const ado::Rows heading = server.execute(sql("SELECT Company FROM PATIENT_DATA..tbHospitalInfo")).rows;
    const QString name = heading.count() == 1 ? text(heading, 0, 0) : QString();
    if (name != QLatin1String(madeUp))
        throw base::RunTimeError(
            anothersHospital,
            QStringLiteral("\"%1\" is not the made-up hospital: nothing was done.").arg(name));
    const ado::Rows names =
        server.execute(sql("SELECT DISTINCT LastName, FirstName FROM PATIENT_DATA..tbMaster")).rows;
    for (qsizetype row = 0; row < names.count(); ++row) {
        if (!isMadeUp(text(names, row, 0), text(names, row, 1)))
            throw base::RunTimeError(
                anothersHospital,
                QStringLiteral("The hospital has a patient who is not made up: nothing was done."));
    }
}

} // namespace

std::span<const NamedDeed> deeds() {
    return deedList;
}

Neighbours::Neighbours(ado::Provider& server, std::uint64_t seed) : m_server(server), m_chance(seed) {
    refuseAnothersHospital(server);
}

QString Neighbours::actInTurn() {
    return act(turns[m_turn++ % std::size(turns)]);
}

QString Neighbours::act(Deed deed) {
    m_server.begin();
    try {
        QString told;
        switch (deed) {
        case Deed::Ward:
            told = askFromWard();
            break;
        case Deed::Payment:
            told = takePayment();
            break;
        case Deed::Prepaid:
            told = sellPrepaid();
            break;
        case Deed::Discharge:
            told = giveNotice();
            break;
        }
        m_server.commit();
        return told;
    } catch (...) {
        if (m_server.inTransaction())
            m_server.rollback();
        throw;
    }
}

std::optional<qsizetype> Neighbours::draw(const ado::Rows& rows) {
    if (rows.count() == 0)
        return std::nullopt;
    return m_chance.between(0, int(rows.count()) - 1);
}

int Neighbours::nextWardNumber() {
    m_server.execute(sql("UPDATE STATION..tbNurseRequestNum SET RequestNum = RequestNum + 1"));
    const ado::Rows number = m_server.execute(sql("SELECT RequestNum FROM STATION..tbNurseRequestNum")).rows;
    return base::CLng(number.at(0, 0));
}

/// Behind the number that the statement tells; from 1 on where it tells none.
QString Neighbours::nextNumber(const ado::Statement& last, const char* prefix) {
    const ado::Rows rows = m_server.execute(last).rows;
    const QString begin = QString::fromLatin1(prefix);
    const int number = rows.count() > 0 ? text(rows, 0, 0).mid(begin.size()).toInt() : 0;
    return begin + QString::number(number + 1);
}

QString Neighbours::askFromWard() {
    const bool outPatient = m_chance.inHundred(25);
    const ado::Rows stays =
        m_server
            .execute(
                outPatient
                    ? sql("SELECT TOP 200 O.IdNum, O.HospNum, M.LastName, 'A' AS RoomClassID, 'OPD' AS "
                          "StationID FROM PATIENT_DATA..tbOutPatient O INNER JOIN PATIENT_DATA..tbMaster M "
                          "ON M.HospNum = O.HospNum WHERE O.DcrDate IS NULL AND O.BillingDate IS NULL "
                          "ORDER BY O.AdmDate DESC")
                    : sql("SELECT TOP 200 P.IdNum, P.HospNum, M.LastName, R.RoomClassID, R.StationID FROM "
                          "PATIENT_DATA..tbPatient P INNER JOIN PATIENT_DATA..tbMaster M ON M.HospNum = "
                          "P.HospNum INNER JOIN BUILD_FILE..tbcoRoom R ON R.RoomID = P.RoomID INNER JOIN "
                          "PATIENT_DATA..tbPatient2 S ON S.IdNum = P.IdNum WHERE P.DcrDate IS NULL AND "
                          "P.BillingDate IS NULL AND S.OkeyNU = 0 ORDER BY P.AdmDate DESC"))
            .rows;
    const std::optional<qsizetype> stay = draw(stays);
    if (!stay)
        return QStringLiteral("No patient is there to ask an exam for.");
    const ado::Rows exams =
        m_server
            .execute(
                sql("SELECT NucExamID, NucExam, Classification, CASE '{}' WHEN 'B' THEN RateB WHEN 'C' THEN "
                    "RateC WHEN 'D' THEN RateD WHEN 'E' THEN RateE ELSE RateA END FROM "
                    "BUILD_FILE..tbcoNucExam WHERE Status = 'A' ORDER BY NucExamID",
                    text(stays, *stay, 3)))
            .rows;
    QString told = QStringLiteral("%1 asks for %2:").arg(text(stays, *stay, 4), text(stays, *stay, 2));
    const std::optional<qsizetype> first = draw(exams);
    const int lines = first ? m_chance.between(1, 2) : 0;
    for (int line = 0; line < lines; ++line) {
        const qsizetype exam = (*first + line) % exams.count();
        const QString number = QString::number(nextWardNumber());
        const char* type = outPatient ? "O" : "I";
        m_server.execute(sql("INSERT INTO STATION..tbNurseCommunicationFile (HospNum, IdNum, RequestNum, "
                             "PatientType, RevenueID, ItemID, Quantity, Amount, Classification, RequestDate, "
                             "StationID, UserID, Remarks) VALUES ('{}','{}','{}','{}','NU','{}',1,{},'{}',"
                             "GETDATE(),'{}','{}','')",
                             text(stays, *stay, 1), text(stays, *stay, 0), number, type, text(exams, exam, 0),
                             base::CDbl(exams.at(exam, 3)), text(exams, exam, 2), text(stays, *stay, 4),
                             ward));
        m_server.execute(sql("INSERT INTO STATION..tbNurseLogBook (HospNum, IdNum, RequestNum, PatientType, "
                             "RevenueID, ItemID, Description, Quantity, Amount, RequestDate, UserID) VALUES "
                             "('{}','{}','{}','{}','NU','{}','{}',1,{},GETDATE(),'{}')",
                             text(stays, *stay, 1), text(stays, *stay, 0), number, type, text(exams, exam, 0),
                             base::BackQuoted(text(exams, exam, 1)), base::CDbl(exams.at(exam, 3)), ward));
        told += QStringLiteral(" %1 (%2)").arg(text(exams, exam, 1), number);
    }
    return told;
}

QString Neighbours::takePayment() {
    const ado::Rows waiting =
        m_server
            .execute(sql("SELECT TOP 1 RefNum, PatientName FROM BILLING..tbCashAssessment "
                         "WHERE RecordStatus = '' AND ORNumber IS NULL ORDER BY TransDate "
                         "DESC, AssessID DESC"))
            .rows;
    if (waiting.count() == 0)
        return QStringLiteral("No assessment waits to be paid.");
    const QString reference = text(waiting, 0, 0);
    const QString receipt =
        nextNumber(sql("SELECT TOP 1 ORNumber FROM BILLING..tbCashReceipt WHERE ORNumber LIKE 'OR%' ORDER BY "
                       "LEN(ORNumber) DESC, ORNumber DESC"),
                   "OR");
    m_server.execute(sql("INSERT INTO BILLING..tbCashReceipt (ORNumber, PaymentFrom, TransDate, Amount, "
                         "TransactionType, UserID) SELECT '{}', MIN(PatientName), GETDATE(), SUM(Amount), "
                         "'NUCLEAR MEDICINE', '{}' FROM BILLING..tbCashAssessment WHERE RefNum = '{}' AND "
                         "RecordStatus = ''",
                         receipt, cashier, reference));
    m_server.execute(
        sql("UPDATE BILLING..tbCashAssessment SET ORNumber = '{}', RecordStatus = '1' WHERE RefNum "
            "= '{}' AND RecordStatus = ''",
            receipt, reference));
    return QStringLiteral("%1 pays assessment %2: receipt %3").arg(text(waiting, 0, 1), reference, receipt);
}

QString Neighbours::sellPrepaid() {
    const ado::Rows stays =
        m_server
            .execute(
                sql("SELECT TOP 200 O.IdNum, O.HospNum, M.LastName, O.DoctorID1 FROM "
                    "PATIENT_DATA..tbOutPatient O INNER JOIN PATIENT_DATA..tbMaster M ON M.HospNum = "
                    "O.HospNum WHERE O.DcrDate IS NULL AND O.BillingDate IS NULL ORDER BY O.AdmDate DESC"))
            .rows;
    const ado::Rows exams = m_server
                                .execute(sql("SELECT NucExamID, NucExam, RateA FROM BUILD_FILE..tbcoNucExam "
                                             "WHERE Status = 'A' ORDER BY NucExamID"))
                                .rows;
    const std::optional<qsizetype> stay = draw(stays);
    const std::optional<qsizetype> exam = draw(exams);
    if (!stay || !exam)
        return QStringLiteral("No out-patient is there to sell an exam to.");
    const QString request =
        nextNumber(sql("SELECT TOP 1 RequestNum FROM NUCLEAR..tbNucPrepaid WHERE RequestNum "
                       "LIKE 'PP%' ORDER BY LEN(RequestNum) DESC, RequestNum DESC"),
                   "PP");
    const QString slip =
        nextNumber(sql("SELECT TOP 1 RefNum FROM NUCLEAR..tbNucPrepaid WHERE RefNum LIKE 'PS%' "
                       "ORDER BY LEN(RefNum) DESC, RefNum DESC"),
                   "PS");
    m_server.execute(
        sql("INSERT INTO NUCLEAR..tbNucPrepaid (RequestNum, RefNum, HospNum, IdNum, RevenueID, "
            "ItemID, Quantity, Amount, DoctorID, TransDate, UserID) VALUES ('{}','{}','{}','{}','NU',"
            "'{}',1,{},'{}',GETDATE(),'{}')",
            request, slip, text(stays, *stay, 1), text(stays, *stay, 0), text(exams, *exam, 0),
            base::CDbl(exams.at(*exam, 2)), text(stays, *stay, 3), cashier));
    return QStringLiteral("%1 buys %2 in advance: slip %3")
        .arg(text(stays, *stay, 2), text(exams, *exam, 1), slip);
}

QString Neighbours::giveNotice() {
    const ado::Rows stays =
        m_server
            .execute(
                sql("SELECT TOP 200 P.IdNum, M.LastName FROM PATIENT_DATA..tbPatient P INNER JOIN "
                    "PATIENT_DATA..tbMaster M ON M.HospNum = P.HospNum WHERE P.DcrDate IS NULL AND "
                    "P.BillingDate IS NULL AND NOT EXISTS (SELECT 1 FROM STATION..tbDischargeNotice N WHERE "
                    "N.IdNum = P.IdNum) ORDER BY P.AdmDate"))
            .rows;
    const std::optional<qsizetype> stay = draw(stays);
    if (!stay)
        return QStringLiteral("Everybody has a notice of discharge.");
    m_server.execute(
        sql("INSERT INTO STATION..tbDischargeNotice (IdNum, OrderDate, NoticeDate, DischargeNurse, "
            "Remarks) VALUES ('{}',GETDATE(),GETDATE(),'MERCADO, GRACE A.','MAY GO HOME')",
            text(stays, *stay, 0)));
    return QStringLiteral("%1 (%2) may go home").arg(text(stays, *stay, 1), text(stays, *stay, 0));
}

} // namespace demo
