-- A result of the generic, perfusion or GFR screen as it stands on paper. IsRevoked 1: the request has no result any
-- more, and what is left of it must not pass for one.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_ReportResult
    @IdNum varchar(20),
    @RequestNum varchar(20)
AS
SET NOCOUNT ON
SELECT H.LastName + ', ' + H.FirstName + ' ' + H.MiddleName AS PatientName, H.Sex, H.BirthDate, H.Age, H.Address,
    H.RoomID, H.Company, H.TransDate AS ExamDate, H.NucExam, H.IsRevoked,
    R.RequestNum, R.HospNum, R.IdNum, R.CaseNumber, R.ItemID, R.ResultDate, R.Dose, R.Radiopharmaceutical, R.Route,
    R.Projections, R.Protocol, R.Isotope, R.Interpretation, R.Conclusion, R.ClinicalHistory, R.Technique,
    R.StressDetails, R.StressImages, R.RestingImages, R.QuantitativeData,
    dbo.fnNuclear_Part(R.Fraction, 1) AS FractionRest, dbo.fnNuclear_Part(R.Fraction, 2) AS FractionStress,
    dbo.fnNuclear_Part(R.EDV, 1) AS EDVRest, dbo.fnNuclear_Part(R.EDV, 2) AS EDVStress,
    dbo.fnNuclear_Part(R.ESV, 1) AS ESVRest, dbo.fnNuclear_Part(R.ESV, 2) AS ESVStress,
    dbo.fnNuclear_Part(R.SV, 1) AS SVRest, dbo.fnNuclear_Part(R.SV, 2) AS SVStress,
    dbo.fnNuclear_Part(R.WallMotion, 1) AS WallMotionRest, dbo.fnNuclear_Part(R.WallMotion, 2) AS WallMotionStress,
    R.Left1, R.Left2, R.Left3, R.Left4, R.Left5, R.Left6, R.Left7,
    R.Right1, R.Right2, R.Right3, R.Right4, R.Right5, R.Right6, R.Right7, R.Scale, R.Weight, R.Height, R.Remarks,
    D.LastName + ', ' + D.FirstName + ' ' + D.MiddleName AS AttendingDoc,
    K.LastName + ', ' + K.FirstName + ' ' + K.MiddleName AS Cardiologist,
    Q.LastName + ', ' + Q.FirstName + ' ' + Q.MiddleName AS RequestDoc, U.Name AS Encoder
FROM tbNucResult R
INNER JOIN vwNuclearResultRequest H ON H.RequestNum = R.RequestNum
LEFT JOIN BUILD_FILE..tbcoDoctor D ON D.DoctorID = R.AttendingDocCode
LEFT JOIN BUILD_FILE..tbcoDoctor K ON K.DoctorID = R.CardiologistCode
LEFT JOIN BUILD_FILE..tbcoDoctor Q ON Q.DoctorID = R.RequestDocCode
LEFT JOIN PASSWORD..tbPasswordMain U ON U.EmployeeID = R.UserID
WHERE R.RequestNum = @RequestNum AND R.IdNum = @IdNum
GO
