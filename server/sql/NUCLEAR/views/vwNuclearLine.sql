-- What the section was asked for, one row a line: requests, and paid assessments that no request was filed for.
-- PatientKind 'I' admitted, 'O' registered out-patient, 'W' cash. LineStatus as tbNucMaster.RequestStatus. Lines
-- without a code (a receipt filed from an empty grid) and doctors' fees are no lines of the section. A request that
-- the cancellation screen revoked keeps no day of its own: its reversal on the bill or the stock card has it.
USE NUCLEAR
GO

CREATE OR ALTER VIEW vwNuclearLine
AS
SELECT * FROM vwNuclearFiledLine
UNION ALL
SELECT A.RequestNum, A.TransDate, A.ORNumber, A.HospNum, A.IdNum, A.RevenueID, A.ItemID, A.Quantity, A.Amount, A.UserID,
    A.DoctorID, '', A.TransDate,
    CASE WHEN P.IdNum IS NOT NULL THEN 'I' WHEN O.IdNum IS NOT NULL THEN 'O' ELSE 'W' END, A.PatientName,
    ISNULL(E.NucExam, A.ItemID)
FROM BILLING..tbCashAssessment A
LEFT JOIN PATIENT_DATA..tbPatient P ON P.IdNum = A.IdNum
LEFT JOIN PATIENT_DATA..tbOutPatient O ON O.IdNum = A.IdNum
LEFT JOIN BUILD_FILE..tbcoNucExam E ON E.NucExamID = A.ItemID
WHERE A.RevenueID = 'NU' AND A.RecordStatus = '1'
    AND NOT EXISTS (SELECT 1 FROM tbNucMaster N WHERE N.RefNum = A.ORNumber AND N.ItemID = A.ItemID)
GO
