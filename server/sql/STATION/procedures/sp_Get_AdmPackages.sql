-- The hospital's packages of a group; the first column is not shown.
USE STATION
GO

CREATE OR ALTER PROCEDURE sp_Get_AdmPackages
    @PackageGroup int
AS
SET NOCOUNT ON
SELECT '' AS Mark, PackageID AS Code, Description, GrossAmount
FROM tbAdmPackage
WHERE PackageGroup = @PackageGroup AND Status = 1
ORDER BY PackageID
GO
