-- One charge on a patient's bill. @Marker 'D': the reversal of a charge, its amount negative; as many reversals are
-- written as there are charges of the item under the slip, and what was never charged is not reversed. What stands on
-- the stock card instead goes back into stock.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_addbill
    @PatientType varchar(1),
    @IdNum varchar(20),
    @TransDate datetime,
    @RefNum varchar(20),
    @ItemID varchar(20),
    @Amount money,
    @RevenueID varchar(4),
    @UserID varchar(10),
    @Quantity float,
    @SectionID varchar(4) = '',
    @Marker varchar(1) = '',
    @HospNum varchar(20) = ''
AS
SET NOCOUNT ON
DECLARE @Charged int
DECLARE @Open int
IF @HospNum = ''
    SELECT @HospNum = HospNum FROM BILLING..tbDailyBill WHERE RefNum = @RefNum AND IdNum = @IdNum
IF @Marker = 'D'
BEGIN
    -- A second desk waits here until the first one has committed.
    SELECT @Charged = ISNULL(SUM(CASE WHEN Marker = 'D' THEN 0 ELSE 1 END), 0),
        @Open = ISNULL(SUM(CASE WHEN Marker = 'D' THEN -1 ELSE 1 END), 0)
    FROM BILLING..tbDailyBill WITH (UPDLOCK, HOLDLOCK)
    WHERE RefNum = @RefNum AND IdNum = @IdNum AND ItemID = @ItemID
    IF @Charged = 0 AND EXISTS (SELECT 1 FROM INVENTORY..tbInvStockCard
            WHERE RefNum = @RefNum AND IdNum = @IdNum AND ItemID = @ItemID)
        EXEC sp_AppendStockCard 'PC', @HospNum, @IdNum, @ItemID, @TransDate, 'PC', @RefNum, @Quantity, @Amount, @UserID,
            'PRN', '179'
    IF @Open <= 0
        RETURN
END
INSERT INTO BILLING..tbDailyBill (PatientType, IdNum, HospNum, TransDate, RefNum, ItemID, RevenueID, SectionID,
    Quantity, Amount, UserID, Marker)
VALUES (@PatientType, @IdNum, @HospNum, @TransDate, @RefNum, @ItemID, @RevenueID, @SectionID,
    @Quantity, @Amount, @UserID, @Marker)
IF @Marker = 'D'
    EXEC sp_Nuclear_MarkCancelled @RefNum, @IdNum, @ItemID
GO
