#include "tests/server/engine/Hospital.h"

namespace {

using tests::Hospital;

constexpr const char* kit = R"(
USE NUCLEAR
GO
IF OBJECT_ID('tbNucSlip') IS NULL
BEGIN
    CREATE TABLE tbNucSlip (
        SlipID int NOT NULL,
        ChargeSlip int NOT NULL,
        RequestNum int NOT NULL,
        CONSTRAINT PK_NucSlip PRIMARY KEY (SlipID)
    )
    INSERT INTO tbNucSlip VALUES (1, 100, 200)
END
GO
CREATE TABLE tbNucMaster (
    RequestNum varchar(20) NOT NULL,
    IdNum varchar(20) NOT NULL DEFAULT '',
    Quantity float NOT NULL DEFAULT 0,
    Amount money NOT NULL DEFAULT 0,
    TransDate datetime NOT NULL,
    Checked bit NOT NULL DEFAULT 0,
    Remarks varchar(10) NULL,
    CONSTRAINT PK_NucMaster PRIMARY KEY (RequestNum)
)
CREATE INDEX IX_NucMaster_IdNum ON tbNucMaster (IdNum)
GO
-- raises the number of the slip
CREATE OR ALTER PROCEDURE sp_Nuclear_IncRefNum
AS
SET NOCOUNT ON
UPDATE tbNucSlip SET ChargeSlip = ChargeSlip + 1
GO
CREATE OR ALTER PROCEDURE sp_Nuclear_AddRequest
    @RequestNum varchar(20),
    @IdNum varchar(20),
    @Quantity float,
    @Amount money = 0,
    @TransDate datetime = NULL,
    @Remarks varchar(10) = ''
AS
BEGIN
    SET NOCOUNT ON
    IF @TransDate IS NULL
        SET @TransDate = GETDATE()
    INSERT INTO tbNucMaster (RequestNum, IdNum, Quantity, Amount, TransDate, Remarks)
    VALUES (@RequestNum, @IdNum, @Quantity, @Amount, @TransDate, @Remarks)
END
GO
CREATE OR ALTER PROCEDURE sp_Nuclear_GetRequest @IdNum varchar(20)
AS
SET NOCOUNT ON
SELECT m.RequestNum, LTRIM(RTRIM(m.IdNum)) AS IdNum, m.Amount, m.TransDate, m.Checked, m.Amount * m.Quantity AS Total
FROM NUCLEAR..tbNucMaster m
WHERE m.IdNum = @IdNum
ORDER BY m.RequestNum
GO
)";

TEST(Execute, aBareProcedureCallWrites) {
    Hospital hospital;
    hospital.install(QString::fromLatin1(kit));
    hospital.run("sp_Nuclear_AddRequest 'R1','00-1','2','12.50','11/21/2026 08:30:00 PM'");
    const ado::Result result = hospital.run("sp_Nuclear_GetRequest '00-1'");
    ASSERT_EQ(result.rows.count(), 1);
    EXPECT_EQ(hospital.rows("sp_Nuclear_GetRequest '00-1'"), "R1|00-1|12.5|2026-11-21 20:30:00.000|false|25");
    EXPECT_EQ(result.rows.columns[0].baseTable, "NUCLEAR..tbNucMaster");
    EXPECT_EQ(result.rows.columns[0].baseColumn, "RequestNum");
    EXPECT_EQ(result.rows.columns[2].type, ado::DataType::Money);
    EXPECT_EQ(result.rows.columns[5].baseColumn, "");
    EXPECT_EQ(hospital.provider().primaryKey("NUCLEAR..tbNucMaster"), QStringList{"RequestNum"});
    EXPECT_TRUE(hospital.provider().check().isEmpty())
        << hospital.provider().check().join('\n').toStdString();
}

TEST(Execute, numbersAreDrawnOneByOne) {
    Hospital hospital;
    hospital.install(QString::fromLatin1(kit));
    EXPECT_EQ(hospital.rows("SELECT chargeslip FROM tbNucSlip"), "100");
    EXPECT_EQ(hospital.run("sp_Nuclear_IncRefNum").affected, -1);
    EXPECT_EQ(hospital.rows("SELECT chargeslip FROM tbNucSlip"), "101");
    EXPECT_EQ(hospital.run("UPDATE NUCLEAR..tbNucSlip SET ChargeSlip = 5 WHERE SlipID = '1'").affected, 1);
    EXPECT_EQ(hospital.rows("select chargeslip, getdate() - getdate() from tbNucSlip"),
              "5|1900-01-01 00:00:00.000");
}

} // namespace
