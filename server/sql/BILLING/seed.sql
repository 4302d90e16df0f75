-- The number row of the assessments.
USE BILLING
GO

IF NOT EXISTS (SELECT 1 FROM tbAssessmentNum)
    INSERT INTO tbAssessmentNum (AssessmentNumID, assessmentnum, RequestNum)
    VALUES (1, 1, 1)
GO
