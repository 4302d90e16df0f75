-- A patient's requests that have a result, latest first.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_GetResult
    @HospNum varchar(20)
AS
SET NOCOUNT ON
SELECT N.RequestNum, CONVERT(varchar(10), N.TransDate, 101) AS ExamDate, N.ItemID, E.NucExam,
    CONVERT(varchar(10), N.ResultDate, 101) AS ResultDate, L.CaseNumber AS FileNumber, N.RefNum
FROM tbNucMaster N
LEFT JOIN BUILD_FILE..tbcoNucExam E ON E.NucExamID = N.ItemID
LEFT JOIN tbNucLogBook L ON L.RequestNum = N.RequestNum AND L.Status <> 'R'
WHERE N.HospNum = @HospNum AND N.RevenueID = 'NU' AND N.RequestStatus = 'W'
ORDER BY N.TransDate DESC, N.RequestNum DESC
GO
