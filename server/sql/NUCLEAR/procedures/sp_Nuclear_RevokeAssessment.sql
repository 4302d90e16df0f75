-- An assessment that nobody paid is not to be paid any more. One that was paid meanwhile stays paid.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_RevokeAssessment
    @AssessID int
AS
SET NOCOUNT ON
UPDATE BILLING..tbCashAssessment SET RecordStatus = 'R' WHERE AssessID = @AssessID AND RecordStatus NOT IN ('1', 'R', 'X')
GO
