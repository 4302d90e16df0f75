-- What all saves of a result share: the case number goes into the log book, the request has a result from now on.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_FileResult
    @RequestNum varchar(20),
    @CaseNumber varchar(20),
    @HospNum varchar(20),
    @IdNum varchar(20),
    @PatientType varchar(1),
    @ItemID varchar(20),
    @DoctorID varchar(10),
    @RequestDocCode varchar(10),
    @UserID varchar(10),
    @ResultDate datetime
AS
SET NOCOUNT ON
IF EXISTS (SELECT 1 FROM tbNucLogBook
        WHERE CaseNumber = @CaseNumber AND Status <> 'R' AND RequestNum <> @RequestNum)
    THROW 50001, 'The Case Number you entered is already used.', 1;
IF EXISTS (SELECT 1 FROM tbNucMaster WHERE RequestNum = @RequestNum AND RequestStatus = 'R')
    THROW 50003, 'The request was cancelled.', 1;
UPDATE tbNucLogBook
SET CaseNumber = @CaseNumber, PatientType = @PatientType, ItemID = @ItemID, DoctorID = @DoctorID,
    RequestDocCode = @RequestDocCode, UserID = @UserID, ResultDate = @ResultDate
WHERE RequestNum = @RequestNum AND Status <> 'R'
IF @@ROWCOUNT = 0
    INSERT INTO tbNucLogBook (CaseNumber, RequestNum, HospNum, IdNum, PatientType, ItemID, DoctorID, RequestDocCode,
        UserID, ResultDate)
    VALUES (@CaseNumber, @RequestNum, @HospNum, @IdNum, @PatientType, @ItemID, @DoctorID, @RequestDocCode,
        @UserID, @ResultDate)
UPDATE tbNucMaster SET RequestStatus = 'W', ResultDate = @ResultDate WHERE RequestNum = @RequestNum
GO
