-- Full years at a day; Null without a birth date. One statement: lists call it for each of their rows.
USE NUCLEAR
GO

CREATE OR ALTER FUNCTION fnNuclear_Age(@BirthDate datetime, @Day datetime)
RETURNS int
AS
BEGIN
    RETURN DATEDIFF(year, @BirthDate, @Day)
        - CASE WHEN DATEADD(year, DATEDIFF(year, @BirthDate, @Day), @BirthDate) > @Day THEN 1 ELSE 0 END
END
GO
