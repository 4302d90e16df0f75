-- A patient's requests that wait for a result, latest first.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_getRequest
    @HospNum varchar(20)
AS
SET NOCOUNT ON
SELECT N.RequestNum, CONVERT(varchar(10), N.TransDate, 101) AS ExamDate, N.ItemID, E.NucExam,
    CONVERT(varchar(10), N.ResultDate, 101) AS ResultDate, '' AS FileNumber, N.RefNum
FROM tbNucMaster N
LEFT JOIN BUILD_FILE..tbcoNucExam E ON E.NucExamID = N.ItemID
WHERE N.HospNum = @HospNum AND N.RevenueID = 'NU' AND N.RequestStatus = ''
ORDER BY N.TransDate DESC, N.RequestNum DESC
GO
