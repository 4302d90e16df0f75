-- A radio-immunoassay result as it stands on paper. Second...: what the analyte's other box held, where it differs.
-- IsRevoked 1: the request has no result any more, and what is left of it must not pass for one.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_ReportResultRadio
    @IdNum varchar(20),
    @RequestNum varchar(20)
AS
SET NOCOUNT ON
SELECT H.LastName + ', ' + H.FirstName + ' ' + H.MiddleName AS PatientName, H.Sex, H.BirthDate, H.Age, H.Address,
    H.RoomID, H.Company, H.TransDate AS ExamDate, H.NucExam, H.IsRevoked,
    R.RequestNum, R.HospNum, R.IdNum, R.CaseNumber, R.ItemID, R.ResultDate, R.Dose, R.Radiopharmaceutical, R.Route,
    R.Projections, R.Weight, R.Height, R.Technologist,
    R.Calcitonin, R.AntiTG, R.TG, R.AntiTPO, R.TSH, R.FreeT4, R.FreeT3, R.T4, R.T3, R.Progesterone,
    R.Cortisol, R.DHEA, R.HGH, R.HLH, R.HFSH, R.AFP, R.BHCG, R.PSA, R.Osteocalcin, R.CPeptide, R.SHBG,
    R.Insulin,
    NULLIF(S.Calcitonin, R.Calcitonin) AS SecondCalcitonin,
    NULLIF(S.AntiTG, R.AntiTG) AS SecondAntiTG,
    NULLIF(S.TG, R.TG) AS SecondTG,
    NULLIF(S.AntiTPO, R.AntiTPO) AS SecondAntiTPO,
    NULLIF(S.TSH, R.TSH) AS SecondTSH,
    NULLIF(S.FreeT4, R.FreeT4) AS SecondFreeT4,
    NULLIF(S.FreeT3, R.FreeT3) AS SecondFreeT3,
    NULLIF(S.T4, R.T4) AS SecondT4,
    NULLIF(S.T3, R.T3) AS SecondT3,
    NULLIF(S.Progesterone, R.Progesterone) AS SecondProgesterone,
    NULLIF(S.Cortisol, R.Cortisol) AS SecondCortisol,
    NULLIF(S.DHEA, R.DHEA) AS SecondDHEA,
    NULLIF(S.HGH, R.HGH) AS SecondHGH,
    NULLIF(S.HLH, R.HLH) AS SecondHLH,
    NULLIF(S.HFSH, R.HFSH) AS SecondHFSH,
    NULLIF(S.AFP, R.AFP) AS SecondAFP,
    NULLIF(S.BHCG, R.BHCG) AS SecondBHCG,
    NULLIF(S.PSA, R.PSA) AS SecondPSA,
    NULLIF(S.Osteocalcin, R.Osteocalcin) AS SecondOsteocalcin,
    NULLIF(S.CPeptide, R.CPeptide) AS SecondCPeptide,
    NULLIF(S.SHBG, R.SHBG) AS SecondSHBG,
    NULLIF(S.Insulin, R.Insulin) AS SecondInsulin,
    D.LastName + ', ' + D.FirstName + ' ' + D.MiddleName AS AttendingDoc,
    Q.LastName + ', ' + Q.FirstName + ' ' + Q.MiddleName AS RequestDoc, U.Name AS Encoder
FROM tbNucRadioResult R
INNER JOIN vwNuclearResultRequest H ON H.RequestNum = R.RequestNum
LEFT JOIN tbNucResultRadio S ON S.RequestNum = R.RequestNum
LEFT JOIN BUILD_FILE..tbcoDoctor D ON D.DoctorID = R.AttendingDocCode
LEFT JOIN BUILD_FILE..tbcoDoctor Q ON Q.DoctorID = R.RequestDocCode
LEFT JOIN PASSWORD..tbPasswordMain U ON U.EmployeeID = R.UserID
WHERE R.RequestNum = @RequestNum AND R.IdNum = @IdNum
GO
