-- The lines of a prepaid reference, without those that have a result.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_RequestFormInfo
    @RefNum varchar(20),
    @IdNum varchar(20)
AS
SET NOCOUNT ON
SELECT R.ItemID AS Code, E.NucExam AS Exam, R.Quantity, R.Amount, R.TransDate, R.UserID, R.RequestNum, R.RefNum
FROM tbNucPrepaid R
LEFT JOIN BUILD_FILE..tbcoNucExam E ON E.NucExamID = R.ItemID
WHERE R.RefNum = @RefNum AND R.IdNum = @IdNum
    AND NOT EXISTS (SELECT 1 FROM tbNucMaster N WHERE N.RefNum = R.RefNum AND N.ItemID = R.ItemID
        AND N.RequestStatus = 'W')
ORDER BY R.RequestNum
GO
