-- Readers' fees, from which the doctors' commission is reckoned.
USE CARDIO
GO

-- Percentage of the charged amount, by revenue code.
IF OBJECT_ID('tbReaderRate') IS NULL
BEGIN
    CREATE TABLE tbReaderRate (
        DoctorID varchar(10) NOT NULL,
        RevenueID varchar(4) NOT NULL,
        Percentage float NOT NULL DEFAULT 0,
        CONSTRAINT PK_ReaderRate PRIMARY KEY (DoctorID, RevenueID)
    )
END
GO

-- What was paid out to a reader for a charge slip.
IF OBJECT_ID('tbReaderPayment') IS NULL
BEGIN
    CREATE TABLE tbReaderPayment (
        PaymentID int IDENTITY(1,1) NOT NULL,
        DoctorID varchar(10) NOT NULL DEFAULT '',
        RevenueID varchar(4) NOT NULL DEFAULT '',
        RefNum varchar(20) NOT NULL DEFAULT '',
        ItemID varchar(20) NOT NULL DEFAULT '',
        Amount money NOT NULL DEFAULT 0,
        PaidDate datetime NOT NULL,
        UserID varchar(10) NOT NULL DEFAULT '',
        CONSTRAINT PK_ReaderPayment PRIMARY KEY (PaymentID)
    )
    CREATE INDEX IX_ReaderPayment_DoctorID ON tbReaderPayment (DoctorID)
    CREATE INDEX IX_ReaderPayment_PaidDate ON tbReaderPayment (PaidDate)
    CREATE INDEX IX_ReaderPayment_RefNum ON tbReaderPayment (RefNum)
END
GO
