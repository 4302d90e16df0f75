-- @Mode '0' the list for a text, description and code; '1' the one code; '2' how many the list would show.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_SearchRevenue
    @Mode varchar(1),
    @SearchText varchar(60)
AS
SET NOCOUNT ON
IF @Mode = '1'
    SELECT RevenueID, Revenue, WithItems, SearchInventory, LocationID, InvCode
    FROM BUILD_FILE..tbcoRevenueCode
    WHERE RevenueID = @SearchText
ELSE IF @Mode = '2'
    SELECT COUNT(*) AS recCount
    FROM BUILD_FILE..tbcoRevenueCode
    WHERE Revenue LIKE @SearchText + '%' OR RevenueID LIKE @SearchText + '%'
ELSE
    SELECT Revenue, RevenueID
    FROM BUILD_FILE..tbcoRevenueCode
    WHERE Revenue LIKE @SearchText + '%' OR RevenueID LIKE @SearchText + '%'
    ORDER BY Revenue
GO
