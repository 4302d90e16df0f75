-- A row when the code stands in that assessment already. @RevenueID 'MD' stands for every fee.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spNuclear_CheckCashAsses
    @RevenueID varchar(4),
    @ItemID varchar(20),
    @RefNum varchar(20)
AS
SET NOCOUNT ON
SELECT AssessID, RefNum, ItemID
FROM BILLING..tbCashAssessment
WHERE RefNum = @RefNum AND ItemID = @ItemID AND RecordStatus NOT IN ('R', 'X')
    AND ((@RevenueID = 'NU' AND RevenueID = 'NU') OR (@RevenueID <> 'NU' AND RevenueID <> 'NU'))
GO
