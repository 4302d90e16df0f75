-- @Mode '0' the list for a text, description and code; '1' the one code; '2' how many the list would show.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spNuclear_SearchRevenue
    @Mode varchar(1),
    @SearchText varchar(60)
AS
SET NOCOUNT ON
EXEC sp_Nuclear_SearchRevenue @Mode, @SearchText
GO
