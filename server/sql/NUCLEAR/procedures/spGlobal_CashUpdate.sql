-- A paid line that was cancelled: it cannot be posted any more. One line for each request that was revoked, so that a
-- second try marks nothing else; a line of another section's code counts when a request of this one was filed for it.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spGlobal_CashUpdate
    @ORNumber varchar(20),
    @SectionID varchar(4),
    @ItemID varchar(20),
    @Remarks varchar(100)
AS
SET NOCOUNT ON
DECLARE @Revoked int
SELECT @Revoked = COUNT(*) FROM tbNucMaster
WHERE RefNum = @ORNumber AND ItemID = @ItemID AND RequestStatus = 'R'
IF @Revoked = 0
    SET @Revoked = 1
-- A second desk waits here until the first one has committed.
IF (SELECT COUNT(*) FROM BILLING..tbCashAssessment WITH (UPDLOCK, HOLDLOCK)
        WHERE ORNumber = @ORNumber AND ItemID = @ItemID AND RecordStatus = 'X') < @Revoked
    UPDATE BILLING..tbCashAssessment
    SET RecordStatus = 'X'
    WHERE AssessID = (SELECT MIN(A.AssessID) FROM BILLING..tbCashAssessment A
        WHERE A.ORNumber = @ORNumber AND A.ItemID = @ItemID AND A.RecordStatus NOT IN ('X', 'R')
            AND (A.RevenueID = @SectionID OR A.SectionID = @SectionID OR EXISTS (SELECT 1 FROM tbNucMaster N
                WHERE N.RefNum = @ORNumber AND N.ItemID = @ItemID AND N.RevenueID = A.RevenueID)))
EXEC sp_Nuclear_MarkCancelled @ORNumber, '', @ItemID
GO
