-- The first column is not shown, the second takes the mark.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Get_nucPackage_Items
    @Code varchar(10)
AS
SET NOCOUNT ON
SELECT '' AS Hidden, '' AS Mark, ItemID AS Code, RevenueID AS Revenue, Description, Quantity AS Qty, Amount AS Amt,
    LocationID AS Location, ItemStatus
FROM tbNucPackageItem
WHERE Code = @Code
ORDER BY LineNum
GO
