-- Bills, receipts, deposits and cash assessments.
USE BILLING
GO

-- One row a charge. Marker 'D': the reversal of a charge, with a negative amount.
IF OBJECT_ID('tbDailyBill') IS NULL
BEGIN
    CREATE TABLE tbDailyBill (
        BillID int IDENTITY(1,1) NOT NULL,
        PatientType varchar(1) NOT NULL DEFAULT '',
        IdNum varchar(20) NOT NULL DEFAULT '',
        HospNum varchar(20) NOT NULL DEFAULT '',
        TransDate datetime NOT NULL,
        RefNum varchar(20) NOT NULL DEFAULT '',
        ItemID varchar(20) NOT NULL DEFAULT '',
        RevenueID varchar(4) NOT NULL DEFAULT '',
        SectionID varchar(4) NOT NULL DEFAULT '',
        Quantity float NOT NULL DEFAULT 0,
        Amount money NOT NULL DEFAULT 0,
        UserID varchar(10) NOT NULL DEFAULT '',
        Marker varchar(1) NOT NULL DEFAULT '',
        CONSTRAINT PK_DailyBill PRIMARY KEY (BillID)
    )
    CREATE INDEX IX_DailyBill_IdNum ON tbDailyBill (IdNum)
    CREATE INDEX IX_DailyBill_RefNum ON tbDailyBill (RefNum)
    CREATE INDEX IX_DailyBill_TransDate ON tbDailyBill (TransDate)
END
GO

-- Lines that a cash patient is to pay. RecordStatus: '' to be paid, '1' paid, 'R' or 'X' revoked.
IF OBJECT_ID('tbCashAssessment') IS NULL
BEGIN
    CREATE TABLE tbCashAssessment (
        AssessID int IDENTITY(1,1) NOT NULL,
        HospNum varchar(20) NOT NULL DEFAULT '',
        IdNum varchar(20) NOT NULL DEFAULT '',
        PatientName varchar(160) NOT NULL DEFAULT '',
        TransDate datetime NOT NULL,
        RequestNum varchar(20) NOT NULL DEFAULT '',
        ItemID varchar(20) NOT NULL DEFAULT '',
        Amount money NOT NULL DEFAULT 0,
        UserID varchar(10) NOT NULL DEFAULT '',
        RefNum varchar(20) NOT NULL DEFAULT '',
        RevenueID varchar(4) NOT NULL DEFAULT '',
        SectionID varchar(4) NOT NULL DEFAULT '',
        DoctorID varchar(10) NOT NULL DEFAULT '',
        Quantity float NOT NULL DEFAULT 1,
        ORNumber varchar(20) NULL,
        RecordStatus varchar(1) NOT NULL DEFAULT '',
        CONSTRAINT PK_CashAssessment PRIMARY KEY (AssessID)
    )
    CREATE INDEX IX_CashAssessment_RefNum ON tbCashAssessment (RefNum)
    CREATE INDEX IX_CashAssessment_IdNum ON tbCashAssessment (IdNum)
    CREATE INDEX IX_CashAssessment_ORNumber ON tbCashAssessment (ORNumber)
    CREATE INDEX IX_CashAssessment_PatientName ON tbCashAssessment (PatientName)
END
GO

-- The last numbers of an assessment and of its lines. One row. The programs know it as tbAssessmentNum, a view
-- that locks it for the rest of the transaction; once the table itself was called so.
IF OBJECT_ID('tbAssessmentNumRow') IS NULL
BEGIN
    CREATE TABLE tbAssessmentNumRow (
        AssessmentNumID int NOT NULL,
        assessmentnum int NOT NULL,
        RequestNum int NOT NULL,
        CONSTRAINT PK_AssessmentNumRow PRIMARY KEY (AssessmentNumID)
    )
    IF OBJECT_ID('tbAssessmentNum', 'U') IS NOT NULL
    BEGIN
        INSERT INTO tbAssessmentNumRow (AssessmentNumID, assessmentnum, RequestNum)
        SELECT AssessmentNumID, assessmentnum, RequestNum
        FROM tbAssessmentNum
        DROP TABLE tbAssessmentNum
    END
END
GO

IF OBJECT_ID('tbCashReceipt') IS NULL
BEGIN
    CREATE TABLE tbCashReceipt (
        ORNumber varchar(20) NOT NULL,
        PaymentFrom varchar(160) NOT NULL DEFAULT '',
        TransDate datetime NOT NULL,
        Amount money NOT NULL DEFAULT 0,
        TransactionType varchar(40) NOT NULL DEFAULT '',
        UserID varchar(10) NOT NULL DEFAULT '',
        CONSTRAINT PK_CashReceipt PRIMARY KEY (ORNumber)
    )
END
GO

IF OBJECT_ID('tbDeposit') IS NULL
BEGIN
    CREATE TABLE tbDeposit (
        DepositID int IDENTITY(1,1) NOT NULL,
        IdNum varchar(20) NOT NULL DEFAULT '',
        HospNum varchar(20) NOT NULL DEFAULT '',
        PatientName varchar(160) NOT NULL DEFAULT '',
        TransDate datetime NOT NULL,
        ORNumber varchar(20) NOT NULL DEFAULT '',
        Amount money NOT NULL DEFAULT 0,
        Balance money NOT NULL DEFAULT 0,
        UserID varchar(10) NOT NULL DEFAULT '',
        CONSTRAINT PK_Deposit PRIMARY KEY (DepositID)
    )
    CREATE INDEX IX_Deposit_IdNum ON tbDeposit (IdNum)
END
GO
