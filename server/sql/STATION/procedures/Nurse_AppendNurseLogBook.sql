-- A department asks the pharmacy or central supply for an item; the number comes from the wards' series.
USE STATION
GO

CREATE OR ALTER PROCEDURE Nurse_AppendNurseLogBook
    @HospNum varchar(20),
    @IdNum varchar(20),
    @PatientType varchar(1),
    @ItemID varchar(20),
    @Amount money,
    @Quantity float,
    @Dosage varchar(8),
    @RequestType varchar(2),
    @RequestDate datetime,
    @RevenueID varchar(4),
    @DoctorID varchar(10),
    @ReferenceNum varchar(20),
    @UserID varchar(10),
    @Remarks varchar(200),
    @Description varchar(200),
    @SectionID varchar(4),
    @RecordStatus varchar(1),
    @ReservedText varchar(50),
    @Reserved1 varchar(10),
    @Reserved2 varchar(10),
    @Reserved3 varchar(10),
    @Reserved4 int
AS
SET NOCOUNT ON
DECLARE @RequestNum int
UPDATE tbNurseRequestNum SET RequestNum = RequestNum + 1
SELECT @RequestNum = RequestNum FROM tbNurseRequestNum
INSERT INTO tbNurseLogBook (HospNum, IdNum, RequestNum, PatientType, RevenueID, RequestType, ItemID, Description,
    Quantity, Amount, Dosage, DoctorID, RequestDate, UserID, Remarks, SectionID, ReservedText, RecordStatus,
    ReferenceNum)
VALUES (@HospNum, @IdNum, CAST(@RequestNum AS varchar(20)), @PatientType, @RevenueID, @RequestType, @ItemID,
    @Description, @Quantity, @Amount, @Dosage, @DoctorID, @RequestDate, @UserID, @Remarks, @SectionID, @ReservedText,
    @RecordStatus, NULLIF(@ReferenceNum, ''))
GO
