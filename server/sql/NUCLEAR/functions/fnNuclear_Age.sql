-- Full years at a day; Null without a birth date.
USE NUCLEAR
GO

CREATE OR ALTER FUNCTION fnNuclear_Age(@BirthDate datetime, @Day datetime)
RETURNS int
AS
BEGIN
    DECLARE @Age int
    SET @Age = DATEDIFF(year, @BirthDate, @Day)
    IF DATEADD(year, @Age, @BirthDate) > @Day
        SET @Age = @Age - 1
    RETURN @Age
END
GO
