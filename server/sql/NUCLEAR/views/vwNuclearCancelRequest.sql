-- Requests that wait for a result and can be cancelled, as the search for them lists them: the request number a second
-- time in column 15, where the screen looks for it. Without a number of the ward a request goes by its own. The few
-- that wait are not looked for by their state: a search has a better index.
USE NUCLEAR
GO

CREATE OR ALTER VIEW vwNuclearCancelRequest
AS
SELECT ISNULL(M.LastName, W.LastName) AS [Last Name], ISNULL(M.FirstName, W.FirstName) AS [First Name],
    ISNULL(M.MiddleName, W.MiddleName) AS [Middle Name],
    CASE WHEN P.IdNum IS NULL THEN 'OPD' ELSE P.RoomID END AS RoomID,
    ISNULL(E.NucExam, ISNULL(I.ItemName, D.LastName + ', ' + D.FirstName)) AS Exam, N.TransDate AS [Trans. Date],
    N.RequestNum, N.UserID, N.HospNum AS [Hosp. No.], N.IdNum AS [Adm. No.], N.RefNum, N.RevenueID,
    CASE WHEN N.NurseRequestNum = '' THEN N.RequestNum ELSE N.NurseRequestNum END AS NurseRequestNum,
    N.ItemID, N.RequestNum AS [Request No.]
FROM tbNucMaster N
LEFT JOIN PATIENT_DATA..tbMaster M ON M.HospNum = N.HospNum
LEFT JOIN PATIENT_DATA..tbCashPatient W ON W.hospnum = N.HospNum
LEFT JOIN PATIENT_DATA..tbPatient P ON P.IdNum = N.IdNum
LEFT JOIN BUILD_FILE..tbcoNucExam E ON E.NucExamID = N.ItemID AND N.RevenueID = 'NU'
LEFT JOIN INVENTORY..tbInvMaster I ON I.ItemID = N.ItemID AND N.RevenueID IN ('MN', 'UR')
LEFT JOIN BUILD_FILE..tbcoDoctor D ON D.DoctorID = N.ItemID AND N.RevenueID IN ('MD', 'FN')
WHERE LTRIM(N.RequestStatus) = '' AND N.ItemID <> ''
GO
