USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spNuclear_SearchProgramAccess
    @SearchText varchar(100)
AS
SET NOCOUNT ON
SELECT ItemID, Description, Status
FROM tbNuclearUserSettings
WHERE Description LIKE '%' + @SearchText + '%'
ORDER BY CAST(ItemID AS int)
GO
