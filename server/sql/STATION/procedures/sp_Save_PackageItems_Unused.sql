USE STATION
GO

CREATE OR ALTER PROCEDURE sp_Save_PackageItems_Unused
    @IdNum varchar(20),
    @PackageID varchar(10),
    @ItemID varchar(20),
    @RevenueID varchar(4),
    @Quantity float,
    @Price money,
    @LocationID varchar(10),
    @UserID varchar(10),
    @ReferenceNum varchar(20)
AS
SET NOCOUNT ON
INSERT INTO tbPackageItemsUnused (IdNum, PackageID, ItemID, RevenueID, Quantity, Price, LocationID, UserID,
    ReferenceNum, TransDate)
VALUES (@IdNum, @PackageID, @ItemID, @RevenueID, @Quantity, @Price, @LocationID, @UserID, @ReferenceNum, GETDATE())
GO
