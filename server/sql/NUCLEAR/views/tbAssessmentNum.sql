USE NUCLEAR
GO

CREATE OR ALTER VIEW tbAssessmentNum
AS
SELECT AssessmentNumID, assessmentnum, RequestNum
FROM BILLING..tbAssessmentNumRow WITH (UPDLOCK, HOLDLOCK)
GO
