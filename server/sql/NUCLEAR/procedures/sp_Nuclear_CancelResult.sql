-- The request waits for a result again and the case number is free. What was revoked is kept for the audit; the row
-- itself stays until a new result replaces it. A request without a result stays as it is.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_CancelResult
    @RequestNum varchar(20)
AS
SET NOCOUNT ON
DECLARE @Now datetime
IF NOT EXISTS (SELECT 1 FROM tbNucMaster WHERE RequestNum = @RequestNum AND RequestStatus = 'W')
    RETURN
SET @Now = GETDATE()
INSERT INTO tbNucRevokedResult (
    RevokeDate, Workstation, RequestNum, HospNum, IdNum, CaseNumber, PatientType, AttendingDocCode, CardiologistCode,
    RequestDocCode, ItemID, Dose, Radiopharmaceutical, Route, Projections, Protocol, Isotope, Interpretation,
    Conclusion, ClinicalHistory, Technique, StressDetails, StressImages, RestingImages, QuantitativeData, Fraction,
    EDV, ESV, SV, WallMotion, Left1, Left2, Left3, Left4, Left5, Left6, Left7, Right1, Right2, Right3, Right4, Right5,
    Right6, Right7, Scale, Weight, Height, UserID, ResultDate, Remarks)
SELECT
    @Now, HOST_NAME(), RequestNum, HospNum, IdNum, CaseNumber, PatientType, AttendingDocCode, CardiologistCode,
    RequestDocCode, ItemID, Dose, Radiopharmaceutical, Route, Projections, Protocol, Isotope, Interpretation,
    Conclusion, ClinicalHistory, Technique, StressDetails, StressImages, RestingImages, QuantitativeData, Fraction,
    EDV, ESV, SV, WallMotion, Left1, Left2, Left3, Left4, Left5, Left6, Left7, Right1, Right2, Right3, Right4, Right5,
    Right6, Right7, Scale, Weight, Height, UserID, ResultDate, Remarks
FROM tbNucResult
WHERE RequestNum = @RequestNum
INSERT INTO tbNucRevokedRadioResult (
    RevokeDate, Workstation, Series, RequestNum, HospNum, IdNum, CaseNumber, PatientType, AttendingDocCode,
    RequestDocCode, ItemID, Dose, Radiopharmaceutical, Route, Projections, Weight, Height, UserID, ResultDate,
    Calcitonin, AntiTG, TG, AntiTPO, TSH, FreeT4, FreeT3, T4, T3, Progesterone, Cortisol, DHEA, HGH, HLH, HFSH, AFP,
    BHCG, PSA, Osteocalcin, CPeptide, SHBG, Insulin, Technologist)
SELECT
    @Now, HOST_NAME(), '1', RequestNum, HospNum, IdNum, CaseNumber, PatientType, AttendingDocCode, RequestDocCode,
    ItemID, Dose, Radiopharmaceutical, Route, Projections, Weight, Height, UserID, ResultDate, Calcitonin, AntiTG, TG,
    AntiTPO, TSH, FreeT4, FreeT3, T4, T3, Progesterone, Cortisol, DHEA, HGH, HLH, HFSH, AFP, BHCG, PSA, Osteocalcin,
    CPeptide, SHBG, Insulin, Technologist
FROM tbNucRadioResult
WHERE RequestNum = @RequestNum
INSERT INTO tbNucRevokedRadioResult (
    RevokeDate, Workstation, Series, RequestNum, HospNum, IdNum, CaseNumber, PatientType, AttendingDocCode,
    RequestDocCode, ItemID, Dose, Radiopharmaceutical, Route, Projections, Weight, Height, UserID, ResultDate,
    Calcitonin, AntiTG, TG, AntiTPO, TSH, FreeT4, FreeT3, T4, T3, Progesterone, Cortisol, DHEA, HGH, HLH, HFSH, AFP,
    BHCG, PSA, Osteocalcin, CPeptide, SHBG, Insulin, Technologist)
SELECT
    @Now, HOST_NAME(), '2', RequestNum, HospNum, IdNum, CaseNumber, PatientType, AttendingDocCode, RequestDocCode,
    ItemID, Dose, Radiopharmaceutical, Route, Projections, Weight, Height, UserID, ResultDate, Calcitonin, AntiTG, TG,
    AntiTPO, TSH, FreeT4, FreeT3, T4, T3, Progesterone, Cortisol, DHEA, HGH, HLH, HFSH, AFP, BHCG, PSA, Osteocalcin,
    CPeptide, SHBG, Insulin, Technologist
FROM tbNucResultRadio
WHERE RequestNum = @RequestNum
UPDATE tbNucLogBook SET Status = 'R', RevokeDate = @Now WHERE RequestNum = @RequestNum AND Status <> 'R'
UPDATE tbNucMaster SET RequestStatus = '', ResultDate = NULL WHERE RequestNum = @RequestNum
GO
