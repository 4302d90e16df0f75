-- A result of the generic screen, new or changed.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_SaveResult
    @HospNum varchar(20),
    @IdNum varchar(20),
    @RequestNum varchar(20),
    @CaseNumber varchar(20),
    @PatientType varchar(1),
    @AttendingDocCode varchar(10),
    @RequestDocCode varchar(10),
    @ItemID varchar(20),
    @Dose varchar(max),
    @Radiopharmaceutical varchar(max),
    @Route varchar(max),
    @Projections varchar(max),
    @Interpretation varchar(max),
    @Conclusion varchar(max),
    @ClinicalHistory varchar(max),
    @Weight varchar(max),
    @Height varchar(max),
    @UserID varchar(10),
    @ResultDate datetime,
    @Remarks varchar(max)
AS
SET NOCOUNT ON
EXEC sp_Nuclear_FileResult @RequestNum, @CaseNumber, @HospNum, @IdNum, @PatientType, @ItemID, @AttendingDocCode, @RequestDocCode,
    @UserID, @ResultDate
UPDATE tbNucResult
SET HospNum = @HospNum, IdNum = @IdNum, CaseNumber = @CaseNumber, PatientType = @PatientType, AttendingDocCode =
    @AttendingDocCode, RequestDocCode = @RequestDocCode, ItemID = @ItemID, Dose = @Dose, Radiopharmaceutical =
    @Radiopharmaceutical, Route = @Route, Projections = @Projections, Interpretation = @Interpretation, Conclusion =
    @Conclusion, ClinicalHistory = @ClinicalHistory, Weight = @Weight, Height = @Height, UserID = @UserID,
    ResultDate = @ResultDate, Remarks = @Remarks
WHERE RequestNum = @RequestNum
IF @@ROWCOUNT = 0
    INSERT INTO tbNucResult (RequestNum,
        HospNum, IdNum, CaseNumber, PatientType, AttendingDocCode, RequestDocCode, ItemID, Dose,
        Radiopharmaceutical, Route, Projections, Interpretation, Conclusion, ClinicalHistory, Weight, Height,
        UserID, ResultDate, Remarks)
    VALUES (@RequestNum,
        @HospNum, @IdNum, @CaseNumber, @PatientType, @AttendingDocCode, @RequestDocCode, @ItemID, @Dose,
        @Radiopharmaceutical, @Route, @Projections, @Interpretation, @Conclusion, @ClinicalHistory, @Weight,
        @Height, @UserID, @ResultDate, @Remarks)
GO
