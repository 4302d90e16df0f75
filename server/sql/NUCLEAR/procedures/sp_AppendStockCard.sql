-- Takes a charged item back into the stock that it came from; @LocationID where no movement of the slip is found.
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
DECLARE @RoomID varchar(10)
SET @RoomID = ''
SELECT @LocationID = LocationID, @RoomID = RoomID
FROM INVENTORY..tbInvStockCard
WHERE RefNum = @RefNum AND ItemID = @ItemID AND IdNum = @IdNum
EXEC INVENTORY..sp_AppendStockCard @HospNum, @IdNum, @ItemID, @TransDate, @RefNum, @Quantity, 0, @Amount, @UserID, @Dosage,
    @RoomID, @LocationID, '', '', 0, @SummaryCode, @StockClass, '', NULL, NULL, NULL, 'I'
GO
