-- What a reversed line leaves behind: as many requests of the slip's item are revoked as there are reversals, and so is
-- what the wards' log book says of a revoked request. @IdNum '' where nothing stands under an admission.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_MarkCancelled
    @RefNum varchar(20),
    @IdNum varchar(20),
    @ItemID varchar(20)
AS
SET NOCOUNT ON
DECLARE @Reversed int
SELECT @Reversed = (SELECT COUNT(*) FROM BILLING..tbDailyBill
        WHERE RefNum = @RefNum AND IdNum = @IdNum AND ItemID = @ItemID AND Marker = 'D')
    + (SELECT COUNT(*) FROM INVENTORY..tbInvStockCard
        WHERE RefNum = @RefNum AND IdNum = @IdNum AND ItemID = @ItemID AND Direction = 'I')
IF (SELECT COUNT(*) FROM tbNucMaster
        WHERE RefNum = @RefNum AND IdNum = @IdNum AND ItemID = @ItemID AND RequestStatus = 'R') < @Reversed
    UPDATE tbNucMaster SET RequestStatus = 'R'
    WHERE RequestNum = (SELECT MIN(N.RequestNum) FROM tbNucMaster N
        WHERE N.RefNum = @RefNum AND N.IdNum = @IdNum AND N.ItemID = @ItemID AND N.RequestStatus <> 'R')
UPDATE STATION..tbNurseLogBook SET RecordStatus = 'R'
WHERE ItemID = @ItemID AND RecordStatus <> 'R' AND RequestNum <> ''
    AND RequestNum IN (SELECT N.RequestNum FROM tbNucMaster N
        WHERE N.RefNum = @RefNum AND N.ItemID = @ItemID AND N.RequestStatus = 'R'
        UNION ALL
        SELECT N.NurseRequestNum FROM tbNucMaster N
        WHERE N.RefNum = @RefNum AND N.ItemID = @ItemID AND N.RequestStatus = 'R')
GO
