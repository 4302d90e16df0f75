-- The section's packages with their gross amount. The group is the admission packages' and chooses nothing here.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Get_nucPackages
    @PackageGroup int
AS
SET NOCOUNT ON
SELECT '' AS Mark, P.Code, P.Description,
    ISNULL((SELECT SUM(I.Amount) FROM tbNucPackageItem I WHERE I.Code = P.Code), 0) AS GrossAmount
FROM tbNucPackage P
WHERE P.Status = 1
ORDER BY P.Code
GO
