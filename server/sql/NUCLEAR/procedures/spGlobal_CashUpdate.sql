-- A paid line that was cancelled: it cannot be posted any more.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spGlobal_CashUpdate
    @ORNumber varchar(20),
    @SectionID varchar(4),
    @ItemID varchar(20),
    @Remarks varchar(100)
AS
SET NOCOUNT ON
UPDATE BILLING..tbCashAssessment
SET RecordStatus = 'X'
WHERE ORNumber = @ORNumber AND ItemID = @ItemID AND (RevenueID = @SectionID OR SectionID = @SectionID)
GO
