-- The number row of the assessments.
USE BILLING
GO

-- Where there are some already a new row would give their numbers out again: it is for the DBA to fill.
IF NOT EXISTS (SELECT 1 FROM tbAssessmentNum) AND NOT EXISTS (SELECT 1 FROM tbCashAssessment)
    INSERT INTO tbAssessmentNum (AssessmentNumID, assessmentnum, RequestNum)
    VALUES (1, 1, 1)
GO
