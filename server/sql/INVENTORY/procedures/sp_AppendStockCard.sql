-- One movement: a row of the stock card, and the stock on hand follows it. @Direction 'O' out, 'I' in. Without a
-- location the section's own is meant: 179 for drugs, 224 for supplies.
USE INVENTORY
GO

CREATE OR ALTER PROCEDURE sp_AppendStockCard
    @HospNum varchar(20),
    @IdNum varchar(20),
    @ItemID varchar(20),
    @TransDate datetime,
    @RefNum varchar(20),
    @Quantity float,
    @QuantityIn float,
    @Amount money,
    @UserID varchar(10),
    @Dosage varchar(8),
    @RoomID varchar(10),
    @LocationID varchar(10),
    @ToLocationID varchar(10),
    @Remarks varchar(100),
    @Discount money,
    @SummaryCode varchar(4),
    @StockClass varchar(4),
    @BatchNum varchar(20),
    @ExpiryDate datetime = NULL,
    @UnitCost money = NULL,
    @Supplier varchar(60) = NULL,
    @Direction varchar(1) = 'O'
AS
SET NOCOUNT ON
DECLARE @Moved float
IF @LocationID = ''
    SELECT @LocationID = CASE WHEN ItemClass = 'PH' THEN '179' ELSE '224' END FROM tbInvMaster WHERE ItemID = @ItemID
INSERT INTO tbInvStockCard (HospNum, IdNum, ItemID, TransDate, RefNum, Quantity, QuantityIn, Amount, UserID, Dosage,
    RoomID, LocationID, ToLocationID, Remarks, Discount, SummaryCode, StockClass, BatchNum, ExpiryDate, UnitCost,
    Supplier, Direction)
VALUES (@HospNum, @IdNum, @ItemID, @TransDate, @RefNum, @Quantity, @QuantityIn, @Amount, @UserID, @Dosage,
    @RoomID, @LocationID, @ToLocationID, @Remarks, @Discount, @SummaryCode, @StockClass, @BatchNum, @ExpiryDate,
    @UnitCost, @Supplier, @Direction)
SET @Moved = @QuantityIn - @Quantity
IF @Direction = 'I'
    SET @Moved = @QuantityIn + @Quantity
UPDATE tbInvStock SET OnHand = OnHand + @Moved WHERE ItemID = @ItemID AND LocationID = @LocationID
IF @@ROWCOUNT = 0 AND @LocationID <> ''
    INSERT INTO tbInvStock (ItemID, LocationID, OnHand) VALUES (@ItemID, @LocationID, @Moved)
GO
