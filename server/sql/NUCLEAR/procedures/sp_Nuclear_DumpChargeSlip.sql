USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_DumpChargeSlip
    @ItemID varchar(20),
    @Description varchar(200),
    @Quantity float,
    @Price money,
    @Amount money,
    @UserID varchar(10),
    @RevenueID varchar(4)
AS
SET NOCOUNT ON
INSERT INTO tbNucChargeSlip (ItemID, Description, Quantity, Price, Amount, UserID, RevenueID)
VALUES (@ItemID, @Description, @Quantity, @Price, @Amount, @UserID, @RevenueID)
GO
