-- A result of the perfusion screen, new or changed. The five parameters hold rest and stress, with a bar between.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_SaveResultMPI
    @HospNum varchar(20),
    @IdNum varchar(20),
    @RequestNum varchar(20),
    @CaseNumber varchar(20),
    @PatientType varchar(1),
    @CardiologistCode varchar(10),
    @RequestDocCode varchar(10),
    @ItemID varchar(20),
    @Radiopharmaceutical varchar(max),
    @Protocol varchar(max),
    @ClinicalHistory varchar(max),
    @Technique varchar(max),
    @StressDetails varchar(max),
    @StressImages varchar(max),
    @RestingImages varchar(max),
    @QuantitativeData varchar(max),
    @Fraction varchar(max),
    @EDV varchar(max),
    @ESV varchar(max),
    @SV varchar(max),
    @WallMotion varchar(max),
    @Conclusion varchar(max),
    @Weight varchar(max),
    @Height varchar(max),
    @UserID varchar(10),
    @ResultDate datetime,
    @Remarks varchar(max)
AS
SET NOCOUNT ON
EXEC sp_Nuclear_FileResult @RequestNum, @CaseNumber, @HospNum, @IdNum, @PatientType, @ItemID, @CardiologistCode, @RequestDocCode,
    @UserID, @ResultDate
UPDATE tbNucResult
SET HospNum = @HospNum, IdNum = @IdNum, CaseNumber = @CaseNumber, PatientType = @PatientType, CardiologistCode =
    @CardiologistCode, RequestDocCode = @RequestDocCode, ItemID = @ItemID, Radiopharmaceutical =
    @Radiopharmaceutical, Protocol = @Protocol, ClinicalHistory = @ClinicalHistory, Technique = @Technique,
    StressDetails = @StressDetails, StressImages = @StressImages, RestingImages = @RestingImages, QuantitativeData =
    @QuantitativeData, Fraction = @Fraction, EDV = @EDV, ESV = @ESV, SV = @SV, WallMotion = @WallMotion, Conclusion
    = @Conclusion, Weight = @Weight, Height = @Height, UserID = @UserID, ResultDate = @ResultDate, Remarks =
    @Remarks
WHERE RequestNum = @RequestNum
IF @@ROWCOUNT = 0
    INSERT INTO tbNucResult (RequestNum,
        HospNum, IdNum, CaseNumber, PatientType, CardiologistCode, RequestDocCode, ItemID, Radiopharmaceutical,
        Protocol, ClinicalHistory, Technique, StressDetails, StressImages, RestingImages, QuantitativeData,
        Fraction, EDV, ESV, SV, WallMotion, Conclusion, Weight, Height, UserID, ResultDate, Remarks)
    VALUES (@RequestNum,
        @HospNum, @IdNum, @CaseNumber, @PatientType, @CardiologistCode, @RequestDocCode, @ItemID,
        @Radiopharmaceutical, @Protocol, @ClinicalHistory, @Technique, @StressDetails, @StressImages,
        @RestingImages, @QuantitativeData, @Fraction, @EDV, @ESV, @SV, @WallMotion, @Conclusion, @Weight, @Height,
        @UserID, @ResultDate, @Remarks)
GO
