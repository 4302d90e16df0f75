-- Takes a charged item back into the stock that it came from, as often as it was taken out for the slip and not more
-- often. What stands on the bill instead, a fee or an exam, is reversed there. @LocationID is not asked: where the item
-- came from is known.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_AppendStockCard
    @SummaryCode varchar(4),
    @HospNum varchar(20),
    @IdNum varchar(20),
    @ItemID varchar(20),
    @TransDate datetime,
    @StockClass varchar(4),
    @RefNum varchar(20),
    @Quantity float,
    @Amount money,
    @UserID varchar(10),
    @Dosage varchar(8),
    @LocationID varchar(10)
AS
SET NOCOUNT ON
DECLARE @Open int
DECLARE @RoomID varchar(10)
DECLARE @PatientType varchar(1)
DECLARE @RevenueID varchar(4)
-- A second desk waits here until the first one has committed.
SELECT @Open = ISNULL(SUM(CASE WHEN Direction = 'I' THEN -1 ELSE 1 END), 0)
FROM INVENTORY..tbInvStockCard WITH (UPDLOCK, HOLDLOCK)
WHERE RefNum = @RefNum AND ItemID = @ItemID AND IdNum = @IdNum
IF @Open > 0
BEGIN
    SELECT @LocationID = LocationID, @RoomID = RoomID
    FROM INVENTORY..tbInvStockCard
    WHERE RefNum = @RefNum AND ItemID = @ItemID AND IdNum = @IdNum AND Direction <> 'I'
    EXEC INVENTORY..sp_AppendStockCard @HospNum, @IdNum, @ItemID, @TransDate, @RefNum, @Quantity, 0, @Amount, @UserID,
        @Dosage, @RoomID, @LocationID, '', '', 0, @SummaryCode, @StockClass, '', NULL, NULL, NULL, 'I'
    EXEC sp_Nuclear_MarkCancelled @RefNum, @IdNum, @ItemID
    RETURN
END
SELECT @PatientType = PatientType, @RevenueID = RevenueID
FROM BILLING..tbDailyBill
WHERE RefNum = @RefNum AND IdNum = @IdNum AND ItemID = @ItemID AND Marker <> 'D'
IF @RevenueID IS NOT NULL
    EXEC sp_addbill @PatientType, @IdNum, @TransDate, @RefNum, @ItemID, @Amount, @RevenueID, @UserID, @Quantity, '', 'D',
        @HospNum
GO
