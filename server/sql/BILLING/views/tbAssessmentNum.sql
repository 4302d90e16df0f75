-- The numbers of assessments and of their lines. Whoever reads them in a transaction holds them to its end: a number is read and advanced in two
-- statements, and nobody else may read in between.
USE BILLING
GO

CREATE OR ALTER VIEW tbAssessmentNum
AS
SELECT AssessmentNumID, assessmentnum, RequestNum
FROM tbAssessmentNumRow WITH (UPDLOCK, HOLDLOCK)
GO
