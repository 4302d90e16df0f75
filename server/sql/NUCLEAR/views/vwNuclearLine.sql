-- What the section was asked for, one row a line: requests, and paid assessments that no request was filed for.
-- PatientKind 'I' admitted, 'O' registered out-patient, 'W' cash. LineStatus as tbNucMaster.RequestStatus.
USE NUCLEAR
GO

CREATE OR ALTER VIEW vwNuclearLine
AS
SELECT N.RequestNum, N.TransDate, N.RefNum, N.HospNum, N.IdNum, N.RevenueID, N.ItemID, N.Quantity, N.Amount, N.UserID,
    N.RequestDocCode AS DoctorID, N.RequestStatus AS LineStatus, ISNULL(N.RevokeDate, N.TransDate) AS RevokeDate,
    CASE WHEN P.IdNum IS NOT NULL THEN 'I' WHEN O.IdNum IS NOT NULL THEN 'O' ELSE 'W' END AS PatientKind,
    ISNULL(M.LastName + ', ' + M.FirstName + ' ' + M.MiddleName,
        ISNULL(W.LastName + ', ' + W.FirstName + ' ' + W.MiddleName, N.HospNum)) AS PatientName,
    ISNULL(E.NucExam, ISNULL(I.ItemName, N.ItemID)) AS Description
FROM tbNucMaster N
LEFT JOIN PATIENT_DATA..tbPatient P ON P.IdNum = N.IdNum
LEFT JOIN PATIENT_DATA..tbOutPatient O ON O.IdNum = N.IdNum
LEFT JOIN PATIENT_DATA..tbMaster M ON M.HospNum = N.HospNum
LEFT JOIN PATIENT_DATA..tbCashPatient W ON W.hospnum = N.HospNum
LEFT JOIN BUILD_FILE..tbcoNucExam E ON E.NucExamID = N.ItemID AND N.RevenueID = 'NU'
LEFT JOIN INVENTORY..tbInvMaster I ON I.ItemID = N.ItemID
UNION ALL
SELECT A.RequestNum, A.TransDate, A.ORNumber, A.HospNum, A.IdNum, A.RevenueID, A.ItemID, A.Quantity, A.Amount, A.UserID,
    A.DoctorID, '', A.TransDate, 'W', A.PatientName, ISNULL(E.NucExam, A.ItemID)
FROM BILLING..tbCashAssessment A
LEFT JOIN BUILD_FILE..tbcoNucExam E ON E.NucExamID = A.ItemID
WHERE A.RevenueID = 'NU' AND A.RecordStatus = '1'
    AND NOT EXISTS (SELECT 1 FROM tbNucMaster N WHERE N.RefNum = A.ORNumber)
GO
