-- What the section posted by itself stands in the wards' log book as processed.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_addnurselogbook
    @HospNum varchar(20),
    @IdNum varchar(20),
    @ItemID varchar(20),
    @Description varchar(200),
    @Amount money,
    @UserID varchar(10),
    @ProcessBy varchar(10),
    @ReferenceNum varchar(20),
    @RevenueID varchar(4),
    @PatientType varchar(1),
    @RequestNum varchar(20),
    @Quantity float
AS
SET NOCOUNT ON
INSERT INTO STATION..tbNurseLogBook (HospNum, IdNum, RequestNum, PatientType, RevenueID, ItemID, Description, Quantity,
    Amount, RequestDate, UserID, RecordStatus, ReferenceNum, ProcessBy, ProcessDate)
VALUES (@HospNum, @IdNum, @RequestNum, @PatientType, @RevenueID, @ItemID, @Description, @Quantity,
    @Amount, GETDATE(), @UserID, 'X', @ReferenceNum, @ProcessBy, GETDATE())
GO
