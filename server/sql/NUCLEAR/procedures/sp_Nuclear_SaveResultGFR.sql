-- A result of the GFR screen, new or changed.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_SaveResultGFR
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
    @Weight varchar(max),
    @Height varchar(max),
    @UserID varchar(10),
    @ResultDate datetime,
    @Isotope varchar(max),
    @Left1 varchar(max),
    @Left2 varchar(max),
    @Left3 varchar(max),
    @Left4 varchar(max),
    @Left5 varchar(max),
    @Left6 varchar(max),
    @Left7 varchar(max),
    @Right1 varchar(max),
    @Right2 varchar(max),
    @Right3 varchar(max),
    @Right4 varchar(max),
    @Right5 varchar(max),
    @Right6 varchar(max),
    @Right7 varchar(max),
    @Scale varchar(max)
AS
SET NOCOUNT ON
EXEC sp_Nuclear_FileResult @RequestNum, @CaseNumber, @HospNum, @IdNum, @PatientType, @ItemID, @AttendingDocCode, @RequestDocCode,
    @UserID, @ResultDate
UPDATE tbNucResult
SET HospNum = @HospNum, IdNum = @IdNum, CaseNumber = @CaseNumber, PatientType = @PatientType, AttendingDocCode =
    @AttendingDocCode, RequestDocCode = @RequestDocCode, ItemID = @ItemID, Dose = @Dose, Radiopharmaceutical =
    @Radiopharmaceutical, Route = @Route, Projections = @Projections, Weight = @Weight, Height = @Height, UserID =
    @UserID, ResultDate = @ResultDate, Isotope = @Isotope, Left1 = @Left1, Left2 = @Left2, Left3 = @Left3, Left4 =
    @Left4, Left5 = @Left5, Left6 = @Left6, Left7 = @Left7, Right1 = @Right1, Right2 = @Right2, Right3 = @Right3,
    Right4 = @Right4, Right5 = @Right5, Right6 = @Right6, Right7 = @Right7, Scale = @Scale
WHERE RequestNum = @RequestNum
IF @@ROWCOUNT = 0
    INSERT INTO tbNucResult (RequestNum,
        HospNum, IdNum, CaseNumber, PatientType, AttendingDocCode, RequestDocCode, ItemID, Dose,
        Radiopharmaceutical, Route, Projections, Weight, Height, UserID, ResultDate, Isotope, Left1, Left2, Left3,
        Left4, Left5, Left6, Left7, Right1, Right2, Right3, Right4, Right5, Right6, Right7, Scale)
    VALUES (@RequestNum,
        @HospNum, @IdNum, @CaseNumber, @PatientType, @AttendingDocCode, @RequestDocCode, @ItemID, @Dose,
        @Radiopharmaceutical, @Route, @Projections, @Weight, @Height, @UserID, @ResultDate, @Isotope, @Left1,
        @Left2, @Left3, @Left4, @Left5, @Left6, @Left7, @Right1, @Right2, @Right3, @Right4, @Right5, @Right6,
        @Right7, @Scale)
GO
