-- Stays of registered out-patients. @Current '1': only the open ones. @SearchBy '0' the start of the last name, with a
-- comma that of the first name too; '1' the admission number.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spGlobal_RegisteredOPD
    @Current varchar(1),
    @SearchBy varchar(1),
    @SearchText varchar(101)
AS
SET NOCOUNT ON
DECLARE @LastPattern varchar(102)
DECLARE @FirstPattern varchar(102)
SET @LastPattern = dbo.fnNuclear_NameStart(@SearchText, 0)
SET @FirstPattern = dbo.fnNuclear_NameStart(@SearchText, 1)
IF @SearchBy = '1'
    SELECT *
    FROM vwNuclearRegisteredOPD
    WHERE IdNum = LTRIM(RTRIM(@SearchText)) AND (@Current <> '1' OR DcrDate IS NULL)
ELSE IF @Current = '1'
    SELECT TOP 200 *
    FROM vwNuclearRegisteredOPD
    WHERE DcrDate IS NULL AND LastName LIKE @LastPattern AND (@FirstPattern = '%' OR FirstName LIKE @FirstPattern)
    ORDER BY LastName, FirstName, MiddleName, AdmDate DESC
ELSE
    SELECT TOP 200 *
    FROM vwNuclearRegisteredOPD
    WHERE LastName LIKE @LastPattern AND (@FirstPattern = '%' OR FirstName LIKE @FirstPattern)
    ORDER BY LastName, FirstName, MiddleName, AdmDate DESC
GO
