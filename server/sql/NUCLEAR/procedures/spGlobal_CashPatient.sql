-- Walk-in patients. @SearchBy '0' the start of the last name, with a comma that of the first name too; '1' the hospital
-- number.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spGlobal_CashPatient
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
    FROM vwNuclearCashPatient
    WHERE HospNum = LTRIM(RTRIM(@SearchText))
ELSE
    SELECT TOP 200 *
    FROM vwNuclearCashPatient
    WHERE LastName LIKE @LastPattern AND (@FirstPattern = '%' OR FirstName LIKE @FirstPattern)
    ORDER BY LastName, FirstName
GO
