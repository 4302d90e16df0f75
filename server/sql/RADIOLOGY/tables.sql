-- Requests that the radiology section keeps; the other departments ask it what still waits.
USE RADIOLOGY
GO

IF OBJECT_ID('tbRadioMaster') IS NULL
BEGIN
    CREATE TABLE tbRadioMaster (
        RequestNum varchar(20) NOT NULL,
        HospNum varchar(20) NOT NULL DEFAULT '',
        IdNum varchar(20) NOT NULL DEFAULT '',
        ItemID varchar(20) NOT NULL DEFAULT '',
        RevenueID varchar(4) NOT NULL DEFAULT '',
        Quantity float NOT NULL DEFAULT 1,
        Amount money NOT NULL DEFAULT 0,
        RefNum varchar(20) NOT NULL DEFAULT '',
        TransDate datetime NOT NULL,
        RequestStatus varchar(1) NOT NULL DEFAULT '',
        CONSTRAINT PK_RadioMaster PRIMARY KEY (RequestNum)
    )
    CREATE INDEX IX_RadioMaster_IdNum ON tbRadioMaster (IdNum)
END
GO
