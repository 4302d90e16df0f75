-- Names begin with the letter that spNuclear_ShowPackage asks for.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spNuclear_PackageList
AS
SET NOCOUNT ON
SELECT PackageLetter + ' - ' + Description AS PackageName
FROM tbNucPackage
WHERE Status = 1
ORDER BY PackageLetter
GO
