#include "platform/base/TestDoors.h"
#include "tests/server/engine/Hospital.h"

#include "platform/base/DateTime.h"

#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>

namespace {

using tests::Hospital;

QString traceOf(const Hospital& hospital) {
    QFile file(hospital.file() + QStringLiteral(".trace.txt"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    // how long a statement took is no part of what is expected
    return QString::fromUtf8(file.readAll())
        .replace(QRegularExpression(QStringLiteral("[0-9.]+ ms")), QStringLiteral("ms"));
}

constexpr const char* tables = R"(
CREATE TABLE tbPasswordMain (EmployeeID varchar(10) NOT NULL PRIMARY KEY, PasswordHash varchar(200) NULL)
INSERT INTO tbPasswordMain VALUES ('1001', 'first')
GO
CREATE PROCEDURE sp_Change @id varchar(10), @PasswordHash varchar(200) AS
SET NOCOUNT ON
UPDATE tbPasswordMain SET PasswordHash = @PasswordHash WHERE EmployeeID = @id
)";

TEST(Trace, holdsATextALine) {
    const base::FixedClock clock{*base::makeDateTime({2026, 11, 21}, {8, 30, 0, 0})};
    Hospital hospital;
    hospital.install(QString::fromLatin1(tables));
    EXPECT_EQ(traceOf(hospital), "");
    hospital.provider().setTracing(true);
    EXPECT_TRUE(hospital.provider().isTracing());
    hospital.provider().begin();
    hospital.run("select EmployeeID\nfrom tbPasswordMain");
    hospital.run("INSERT INTO tbPasswordMain (EmployeeID) VALUES ('1002')");
    hospital.error("select x from tbPasswordMain");
    hospital.provider().commit();
    hospital.provider().begin();
    hospital.provider().rollback();
    hospital.provider().setTracing(false);
    hospital.run("SELECT 1");
    EXPECT_EQ(traceOf(hospital),
              "2026-11-21 08:30:00.000\tWARD1\tms\t\tBEGIN IMMEDIATE\n"
              "2026-11-21 08:30:00.000\tWARD1\tms\t1 rows\tselect EmployeeID\\nfrom tbPasswordMain\n"
              "2026-11-21 08:30:00.000\tWARD1\tms\t1 written\tINSERT INTO tbPasswordMain (EmployeeID) VALUES "
              "('1002')\n"
              "2026-11-21 08:30:00.000\tWARD1\tms\terror 207: Invalid column name 'x'.\tselect x from "
              "tbPasswordMain\n"
              "2026-11-21 08:30:00.000\tWARD1\tms\t\tCOMMIT\n"
              "2026-11-21 08:30:00.000\tWARD1\tms\t\tBEGIN IMMEDIATE\n"
              "2026-11-21 08:30:00.000\tWARD1\tms\t\tROLLBACK\n");
}

TEST(Trace, masksWhatTouchesAPasswordsHash) {
    Hospital hospital;
    hospital.install(QString::fromLatin1(tables));
    hospital.provider().setTracing(true);
    hospital.run("UPDATE tbPasswordMain SET passwordhash = 'secret1' WHERE EmployeeID = '1001'");
    hospital.run("sp_Change '1001', 'secret2'");
    hospital.run("NUCLEAR..SP_CHANGE @id = '1001', @passwordhash = N'secret3'");
    hospital.run("IF 1 = 1 EXEC sp_Change '1001', 'secret6'");
    hospital.error("sp_Change '1001', 'secret4', 'secret5'");
    hospital.error("SELECT 'secret7");
    hospital.run("SELECT 'open'");
    const QString trace = traceOf(hospital);
    EXPECT_FALSE(trace.contains("secret")) << trace.toStdString();
    EXPECT_TRUE(trace.contains("sp_Change '***', '***'")) << trace.toStdString();
    EXPECT_TRUE(trace.contains("SELECT 'open'"));
}

TEST(Trace, masksAHashWhereverItStands) {
    Hospital hospital;
    hospital.provider().setTracing(true);
    hospital.run("SELECT '$argon2id$v=19$m=65536$salt$secret1', 'secret2'");
    hospital.run("SELECT 1 /* '$argon2id$secret3' */");
    EXPECT_FALSE(traceOf(hospital).contains("secret")) << traceOf(hospital).toStdString();
    EXPECT_TRUE(traceOf(hospital).contains("SELECT '***', '***'"));
}

TEST(Trace, isReadableByItsOwnerOnly) {
    Hospital hospital;
    hospital.provider().setTracing(true);
    hospital.run("SELECT 1");
    const QString file = hospital.file() + QStringLiteral(".trace.txt");
    const auto own = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
    EXPECT_EQ(QFile::permissions(file), own);
    QFile::setPermissions(file, own | QFile::ReadGroup | QFile::ReadOther);
    hospital.run("SELECT 2");
    EXPECT_EQ(QFile::permissions(file), own);
}

TEST(Trace, isSeenByAnOpenProviderWithinASecond) {
    Hospital hospital;
    const auto other = hospital.open(QStringLiteral("WARD2"));
    EXPECT_FALSE(other->isTracing());
    hospital.provider().setTracing(true);
    QElapsedTimer timer;
    timer.start();
    constexpr qint64 longest = 2000;
    while (!other->isTracing() && timer.elapsed() < longest)
        other->execute(QStringLiteral("SELECT 1"));
    EXPECT_TRUE(other->isTracing());
    other->execute(QStringLiteral("SELECT 'seen'"));
    EXPECT_TRUE(traceOf(hospital).contains("\tWARD2\t"));
    EXPECT_TRUE(hospital.open()->isTracing());
}

} // namespace
