-- Age in full years; no row for a text that is no date.
USE LABORATORY
GO

CREATE OR ALTER PROCEDURE Lab_GetAge
    @BirthDate varchar(30)
AS
SET NOCOUNT ON
IF ISDATE(@BirthDate) = 1
    SELECT NUCLEAR.dbo.fnNuclear_Age(CONVERT(datetime, @BirthDate), GETDATE()) AS Age
GO
