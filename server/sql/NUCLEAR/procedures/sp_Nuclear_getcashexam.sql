-- The lines that a receipt paid for.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_getcashexam
    @ORNumber varchar(20)
AS
SET NOCOUNT ON
SELECT A.ItemID, CASE WHEN A.RevenueID = 'NU' THEN E.NucExam
    ELSE '(PF) DR. ' + D.LastName + ', ' + D.FirstName END AS Exam, A.Quantity, A.Amount
FROM BILLING..tbCashAssessment A
LEFT JOIN BUILD_FILE..tbcoNucExam E ON E.NucExamID = A.ItemID
LEFT JOIN BUILD_FILE..tbcoDoctor D ON D.DoctorID = A.ItemID
WHERE A.ORNumber = @ORNumber AND A.RecordStatus = '1'
ORDER BY A.AssessID
GO
