-- @Mode '1' the one package, '3' all.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE Help_SearchNucPackage
    @Mode varchar(1),
    @Code varchar(10)
AS
SET NOCOUNT ON
SELECT Code, Description, Status
FROM tbNucPackage
WHERE @Mode = '3' OR Code = @Code
ORDER BY Code
GO
