-- @Cash 'Y': for a cash assessment, without the lines that only an account can be charged with.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spNuclear_ShowPackage
    @Cash varchar(1),
    @PackageLetter varchar(1)
AS
SET NOCOUNT ON
SELECT I.RevenueID, I.ItemID, I.Description AS Exam, I.Quantity,
    CASE WHEN I.Quantity = 0 THEN I.Amount ELSE I.Amount / I.Quantity END AS Price, I.Amount
FROM tbNucPackage P
INNER JOIN tbNucPackageItem I ON I.Code = P.Code
WHERE P.PackageLetter = @PackageLetter AND P.Status = 1
    AND (@Cash <> 'Y' OR I.RevenueID IN ('NU', 'MD', 'FN'))
ORDER BY I.LineNum
GO
