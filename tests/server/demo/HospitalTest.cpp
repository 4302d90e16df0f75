#include "server/demo/Hospital.h"
#include "platform/base/TestDoors.h"

#include "platform/base/DateTime.h"
#include "platform/base/Error.h"
#include "server/engine/EmbeddedProvider.h"
#include "server/hospital/Create.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sodium.h>
#include <sqlite3.h>

#include <iostream>

namespace {

base::DateTime fixedMoment() {
    return *base::makeDateTime({2026, 11, 21}, {8, 30, 0, 0});
}

/// Every row of every table, but for what is drawn afresh each time (passwords' salts).
std::string contentOf(const QString& file) {
    sqlite3* handle = nullptr;
    sqlite3_open_v2(file.toUtf8().constData(), &handle, SQLITE_OPEN_READONLY, nullptr);
    std::vector<std::string> tables;
    sqlite3_exec(
        handle,
        "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%' ORDER BY name",
        [](void* into, int, char** values, char**) {
            static_cast<std::vector<std::string>*>(into)->push_back(values[0]);
            return 0;
        },
        &tables, nullptr);
    std::string content;
    for (const std::string& table : tables) {
        content += "== " + table + "\n";
        sqlite3_exec(
            handle, ("SELECT * FROM \"" + table + "\"").c_str(),
            [](void* into, int count, char** values, char** names) {
                auto& text = *static_cast<std::string*>(into);
                for (int i = 0; i < count; ++i) {
                    if (qstrcmp(names[i], "PasswordHash") != 0)
                        text += std::string(values[i] ? values[i] : "<null>") + "|";
                }
                text += "\n";
                return 0;
            },
            &content, nullptr);
    }
    sqlite3_close(handle);
    return content;
}

class DemoHospital : public testing::Test {
  protected:
    DemoHospital()
        : m_clock(fixedMoment()), m_file(m_folder.filePath(QStringLiteral("sub/hospital.scintra"))) {}

    std::unique_ptr<engine::EmbeddedProvider> open() { return engine::EmbeddedProvider::open(m_file, {}); }
    static qint64 number(engine::EmbeddedProvider& provider, const char* text) {
        return *provider.execute(QString::fromLatin1(text)).rows.at(0, 0).asInteger();
    }

    base::FixedClock m_clock;
    QTemporaryDir m_folder;
    QString m_file;
};

TEST_F(DemoHospital, IsMadeAndIsTheSameEachTime) {
    QElapsedTimer timer;
    timer.start();
    int last = -1;
    demo::createHospital(m_file, [&](int percent, const QString& stage) {
        EXPECT_GE(percent, last) << stage.toStdString();
        EXPECT_FALSE(stage.isEmpty());
        last = percent;
    });
    std::cout << "demo hospital made in " << timer.elapsed() << " ms, " << QFileInfo(m_file).size() / 1024
              << " kB\n";
    EXPECT_EQ(last, 100);
    for (const char* tail : {"-wal", ".new", ".new-wal", ".new-shm"})
        EXPECT_FALSE(QFileInfo::exists(m_file + QLatin1String(tail))) << tail;
    const QString again = m_folder.filePath(QStringLiteral("again.scintra"));
    demo::createHospital(again);
    const std::string content = contentOf(m_file);
    EXPECT_GT(content.size(), 100000u);
    EXPECT_TRUE(content == contentOf(again));
}

TEST_F(DemoHospital, HoldsWhatTheScreensAreTriedWith) {
    demo::createHospital(m_file);
    const auto provider = open();
    const std::pair<const char*, qint64> exact[] = {
        {"SELECT COUNT(*) FROM PATIENT_DATA..tbMaster", 270},
        {"SELECT COUNT(*) FROM PATIENT_DATA..tbCashPatient", 30},
        {"SELECT COUNT(*) FROM BUILD_FILE..tbcoNucExam", 45},
        {"SELECT COUNT(*) FROM BUILD_FILE..tbcoDoctor", 30},
        {"SELECT COUNT(*) FROM NUCLEAR..tbNuclearUserSettings", 18},
        {"SELECT COUNT(*) FROM PATIENT_DATA..tbPatient WHERE RoomID NOT IN (SELECT RoomID FROM "
         "BUILD_FILE..tbcoRoom)",
         1},
        {"SELECT COUNT(*) FROM PASSWORD..tbPasswordMain WHERE MONTH(BirthDate) = 11 AND DAY(BirthDate) = 21",
         1},
        {"SELECT COUNT(*) FROM PASSWORD..tbPasswordRights WHERE DeptCode = '00' AND RightsID = 'A'", 1},
        {"SELECT COUNT(*) FROM NUCLEAR..tbNucRadioResult WHERE TSH <> '' AND ItemID NOT IN ('1201', '1212')",
         0},
        {"SELECT COUNT(*) FROM NUCLEAR..tbNucRadioResult WHERE TSH + FreeT4 + FreeT3 + T3 + T4 + TG + AntiTG "
         "+ AntiTPO + PSA + Cortisol + BHCG = ''",
         0}};
    for (const auto& [text, expected] : exact)
        EXPECT_EQ(number(*provider, text), expected) << text;
    const char* some[] = {
        "SELECT COUNT(*) FROM NUCLEAR..tbNucRadioResult WHERE ItemID = '1212' AND TSH LIKE '% uIU/mL' AND "
        "FreeT4 LIKE '% pmol/L' AND FreeT3 LIKE '% pmol/L'",
        "SELECT COUNT(*) FROM NUCLEAR..tbNucRadioResult WHERE ItemID = '1207' AND AntiTG LIKE '% IU/mL'",
        "SELECT COUNT(*) FROM PATIENT_DATA..tbPatient WHERE DcrDate IS NULL AND BillingDate IS NULL",
        "SELECT COUNT(*) FROM PATIENT_DATA..tbPatient WHERE BillingDate IS NOT NULL AND DcrDate IS NULL",
        "SELECT COUNT(*) FROM PATIENT_DATA..tbPatient WHERE BillingDate IS NOT NULL AND LateCharges = 1",
        "SELECT COUNT(*) FROM PATIENT_DATA..tbPatient2 WHERE OkeyNU = 1",
        "SELECT COUNT(*) FROM PATIENT_DATA..tbPatient P INNER JOIN PATIENT_DATA..tbPatient2 D ON D.IdNum = "
        "P.IdNum WHERE P.DcrDate IS NULL AND P.BillingDate IS NULL AND D.OkeyNU = 1",
        "SELECT COUNT(*) FROM PATIENT_DATA..tbPatient P INNER JOIN PATIENT_DATA..tbPatient2 D ON D.IdNum = "
        "P.IdNum WHERE P.DcrDate IS NULL AND P.BillingDate IS NULL AND D.OkeyNU = 0",
        "SELECT COUNT(*) FROM PATIENT_DATA..tbOutPatient O INNER JOIN BUILD_FILE..tbcoCompany C ON "
        "C.AccountNum = O.AccountNum WHERE C.IsHMO = 1 AND O.DcrDate IS NULL",
        "SELECT COUNT(*) FROM PATIENT_DATA..tbOutPatient O INNER JOIN BUILD_FILE..tbcoCompany C ON "
        "C.AccountNum = O.AccountNum WHERE C.IsHMO = 0 AND O.DcrDate IS NULL",
        "SELECT COUNT(*) FROM STATION..tbNurseCommunicationFile WHERE PatientType = 'O' AND RecordStatus = "
        "'N'",
        "SELECT COUNT(*) FROM PATIENT_DATA..tbOutPatient WHERE DcrDate IS NULL",
        "SELECT COUNT(*) FROM PATIENT_DATA..tbOutPatient WHERE AccountNum = HospNum",
        "SELECT COUNT(*) FROM PATIENT_DATA..tbOutPatient WHERE BillingDate IS NOT NULL AND InvoiceNumber = "
        "'' AND LateCharges = 1",
        "SELECT COUNT(*) FROM PATIENT_DATA..tbOutPatient WHERE BillingDate IS NOT NULL AND InvoiceNumber = "
        "'' AND LateCharges = 0",
        "SELECT COUNT(*) FROM PATIENT_DATA..tbMaster WHERE BirthDate IS NULL",
        "SELECT COUNT(*) FROM PATIENT_DATA..tbMaster WHERE LastName LIKE '%''%'",
        "SELECT COUNT(*) FROM BUILD_FILE..tbcoNucExam WHERE FormType = 'G'",
        "SELECT COUNT(*) FROM BUILD_FILE..tbcoNucExam WHERE FormType = 'R'",
        "SELECT COUNT(*) FROM BUILD_FILE..tbcoNucExam WHERE FormType = 'T'",
        "SELECT COUNT(*) FROM BUILD_FILE..tbcoNucExam WHERE FormType IS NULL",
        "SELECT COUNT(*) FROM BUILD_FILE..tbcoNucExam WHERE Fixrate = 'N'",
        "SELECT COUNT(*) FROM BUILD_FILE..tbcoNucExam WHERE RateA < RateB AND RateB < RateC AND RateC < "
        "RateD AND RateD < RateE",
        "SELECT COUNT(*) FROM INVENTORY..tbInvStock WHERE LocationID = '179' AND OnHand > 0",
        "SELECT COUNT(*) FROM INVENTORY..tbInvStock WHERE LocationID = '224' AND OnHand > 0",
        "SELECT COUNT(*) FROM STATION..tbNurseCommunicationFile WHERE RecordStatus = 'N' AND PatientType = "
        "'O'",
        "SELECT COUNT(*) FROM STATION..tbNurseCommunicationFile WHERE RecordStatus = 'N' AND PatientType = "
        "'I'",
        "SELECT COUNT(*) FROM BILLING..tbCashAssessment WHERE RecordStatus = '1'",
        "SELECT COUNT(*) FROM BILLING..tbCashAssessment WHERE RecordStatus = ''",
        "SELECT COUNT(*) FROM BILLING..tbCashAssessment WHERE RecordStatus = 'R'",
        "SELECT COUNT(*) FROM NUCLEAR..tbNucMaster WHERE RequestStatus = 'R'",
        "SELECT COUNT(*) FROM NUCLEAR..tbNucResult",
        "SELECT COUNT(*) FROM NUCLEAR..tbNucRadioResult",
        "SELECT COUNT(*) FROM NUCLEAR..tbNucResultRadio",
        "SELECT COUNT(*) FROM NUCLEAR..tbNucLogBook WHERE Status = ''",
        "SELECT COUNT(*) FROM NUCLEAR..tbNucRevokedResult WHERE RevokeDate < GETDATE()",
        "SELECT COUNT(*) FROM NUCLEAR..tbNucRevokedRadioResult WHERE Series = '2'"};
    for (const char* text : some)
        EXPECT_GT(number(*provider, text), 0) << text;
    // A request with a result has one to show, and nobody is waited for who has one.
    EXPECT_EQ(
        number(
            *provider,
            "SELECT COUNT(*) FROM NUCLEAR..tbNucMaster N LEFT JOIN NUCLEAR..tbNucLogBook L ON L.RequestNum = "
            "N.RequestNum AND L.Status <> 'R' WHERE N.RevenueID = 'NU' AND ((N.RequestStatus = 'W' AND "
            "L.CaseNumber IS NULL) OR (N.RequestStatus <> 'W' AND L.CaseNumber IS NOT NULL))"),
        0);
    for (const char* roomClass : {"A", "B", "C", "D", "E"})
        EXPECT_GT(number(*provider,
                         ("SELECT COUNT(*) FROM PATIENT_DATA..tbPatient P INNER JOIN BUILD_FILE..tbcoRoom R "
                          "ON R.RoomID = P.RoomID WHERE P.DcrDate IS NULL AND R.RoomClassID = '" +
                          std::string(roomClass) + "'")
                             .c_str()),
                  0)
            << roomClass;
    EXPECT_EQ(number(*provider, "SELECT COUNT(*) FROM NUCLEAR..tbNucMaster WHERE TransDate > GETDATE()"), 0);
}

TEST_F(DemoHospital, KeepsPasswordsAsArgon2id) {
    demo::createHospital(m_file);
    const ado::Rows users =
        open()
            ->execute(
                QStringLiteral("SELECT PasswordHash FROM PASSWORD..tbPasswordMain WHERE EmployeeID = '1001'"))
            .rows;
    const QByteArray hash = users.at(0, 0).asText()->toLatin1();
    EXPECT_TRUE(hash.startsWith("$argon2id$"));
    EXPECT_EQ(crypto_pwhash_str_verify(hash.constData(), "kerova", 6), 0);
    EXPECT_NE(crypto_pwhash_str_verify(hash.constData(), "Kerova", 6), 0);
}

TEST_F(DemoHospital, IsNotWrittenOverAFile) {
    hospital::createEmptyHospital(m_file);
    try {
        demo::createHospital(m_file);
        FAIL() << "the file was written over";
    } catch (const base::RunTimeError& error) {
        EXPECT_EQ(error.number(), 58);
    }
}

TEST_F(DemoHospital, PatientsAreGeneratedWithStaysAndFound) {
    demo::createHospital(m_file);
    QElapsedTimer timer;
    timer.start();
    demo::generatePatients(m_file, 3000);
    std::cout << "3000 patients in " << timer.elapsed() << " ms\n";
    demo::generatePatients(m_file, 500);
    const auto provider = open();
    EXPECT_EQ(number(*provider, "SELECT COUNT(*) FROM PATIENT_DATA..tbMaster"), 3770);
    EXPECT_EQ(number(*provider, "SELECT COUNT(*) FROM PATIENT_DATA..tbPatient") +
                  number(*provider, "SELECT COUNT(*) FROM PATIENT_DATA..tbOutPatient"),
              3750);
    EXPECT_EQ(number(*provider, "SELECT COUNT(*) FROM PATIENT_DATA..tbPatient WHERE AdmDate > GETDATE()"), 0);
    EXPECT_EQ(
        provider->execute(QStringLiteral("NUCLEAR..sp_Nuclear_getpatientbylastname 'I',''")).rows.count(),
        200);
}

} // namespace
