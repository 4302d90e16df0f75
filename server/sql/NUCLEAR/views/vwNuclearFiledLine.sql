-- Requests as lines of the section; what the columns mean is told at vwNuclearLine.
USE NUCLEAR
GO

CREATE OR ALTER VIEW vwNuclearFiledLine
AS
SELECT N.RequestNum, N.TransDate, N.RefNum, N.HospNum, N.IdNum, N.RevenueID, N.ItemID, N.Quantity, N.Amount, N.UserID,
    N.RequestDocCode AS DoctorID, N.RequestStatus AS LineStatus,
    CASE WHEN N.RequestStatus = 'R' THEN ISNULL(N.RevokeDate, ISNULL(
        (SELECT MIN(B.TransDate) FROM BILLING..tbDailyBill B
         WHERE B.RefNum = N.RefNum AND B.IdNum = N.IdNum AND B.ItemID = N.ItemID AND B.Marker = 'D'), ISNULL(
        (SELECT MIN(K.TransDate) FROM INVENTORY..tbInvStockCard K
         WHERE K.RefNum = N.RefNum AND K.IdNum = N.IdNum AND K.ItemID = N.ItemID AND K.Direction = 'I'),
        N.TransDate))) ELSE N.TransDate END AS RevokeDate,
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
WHERE N.ItemID <> '' AND N.RevenueID NOT IN ('MD', 'FN')
GO
