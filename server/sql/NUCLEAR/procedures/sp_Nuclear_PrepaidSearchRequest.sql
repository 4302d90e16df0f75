-- Prepaid requests whose form was not printed yet; the reference stands in the seventh column.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_PrepaidSearchRequest
    @RevenueID varchar(4)
AS
SET NOCOUNT ON
SELECT M.LastName + ', ' + M.FirstName + ' ' + M.MiddleName AS [Patient Name], E.NucExam AS Exam, R.TransDate,
    R.HospNum, R.IdNum, R.RequestNum, R.RefNum
FROM tbNucPrepaid R
LEFT JOIN PATIENT_DATA..tbMaster M ON M.HospNum = R.HospNum
LEFT JOIN BUILD_FILE..tbcoNucExam E ON E.NucExamID = R.ItemID
WHERE R.PrintStatus = '' AND R.RevenueID = @RevenueID
ORDER BY R.TransDate
GO
