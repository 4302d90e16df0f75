USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spNuclear_LoadExamEntry
    @ExamID varchar(10)
AS
SET NOCOUNT ON
SELECT 'NU' AS RevenueID, E.NucExamID AS ExamID, E.NucExam AS Exam, E.SectionID, S.Section,
    E.RateA, E.RateB, E.RateC, E.RateD, E.RateE, E.Status, E.Classification
FROM BUILD_FILE..tbcoNucExam E
LEFT JOIN BUILD_FILE..tbcoNucSection S ON S.SectionID = E.SectionID
WHERE E.NucExamID = @ExamID
GO
