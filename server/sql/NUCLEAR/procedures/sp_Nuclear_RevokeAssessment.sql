USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_RevokeAssessment
    @AssessID int
AS
SET NOCOUNT ON
UPDATE BILLING..tbCashAssessment SET RecordStatus = 'R' WHERE AssessID = @AssessID AND RecordStatus <> '1'
GO
