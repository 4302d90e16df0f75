-- The first column is not shown, the second takes the mark.
USE STATION
GO

CREATE OR ALTER PROCEDURE sp_Get_ADMPackage_Items
    @PackageID varchar(10)
AS
SET NOCOUNT ON
SELECT '' AS Hidden, '' AS Mark, ItemID AS Code, RevenueID AS Revenue, Description, Quantity AS Qty, Amount AS Amt,
    LocationID AS Location, ItemStatus
FROM tbAdmPackageItem
WHERE PackageID = @PackageID
ORDER BY LineNum
GO
