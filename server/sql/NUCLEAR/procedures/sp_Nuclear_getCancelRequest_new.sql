-- Requests that can be cancelled. @Mode 1 the start of the last name, 2 hospital number, 3 admission number, 4
-- reference or request number.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_getCancelRequest_new
    @SearchText varchar(50),
    @Mode int
AS
SET NOCOUNT ON
DECLARE @Pattern varchar(51)
SET @Pattern = @SearchText + '%'
SELECT ISNULL(M.LastName, W.LastName) AS [Last Name], ISNULL(M.FirstName, W.FirstName) AS [First Name],
    ISNULL(M.MiddleName, W.MiddleName) AS [Middle Name],
    CASE WHEN P.IdNum IS NULL THEN 'OPD' ELSE P.RoomID END AS RoomID, E.NucExam AS Exam, N.TransDate AS [Trans. Date],
    N.RequestNum, N.UserID, N.HospNum AS [Hosp. No.], N.IdNum AS [Adm. No.], N.RefNum, N.RevenueID, N.NurseRequestNum,
    N.ItemID, N.RequestNum AS [Request No.]
FROM tbNucMaster N
LEFT JOIN PATIENT_DATA..tbMaster M ON M.HospNum = N.HospNum
LEFT JOIN PATIENT_DATA..tbCashPatient W ON W.hospnum = N.HospNum
LEFT JOIN PATIENT_DATA..tbPatient P ON P.IdNum = N.IdNum
LEFT JOIN BUILD_FILE..tbcoNucExam E ON E.NucExamID = N.ItemID
WHERE N.RequestStatus = '' AND N.ItemID <> ''
    AND ((@Mode = 1 AND (M.LastName LIKE @Pattern OR W.LastName LIKE @Pattern))
        OR (@Mode = 2 AND N.HospNum = @SearchText)
        OR (@Mode = 3 AND N.IdNum = @SearchText)
        OR (@Mode = 4 AND (N.RefNum = @SearchText OR N.RequestNum = @SearchText)))
ORDER BY N.TransDate DESC, N.RequestNum DESC
GO
