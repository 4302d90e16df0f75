-- The part of a text before the first vertical bar (@Place 1), or between the first and the second (@Place 2).
USE NUCLEAR
GO

CREATE OR ALTER FUNCTION fnNuclear_Part(@Text varchar(max), @Place int)
RETURNS varchar(max)
AS
BEGIN
    DECLARE @Bar int
    SET @Bar = CHARINDEX('|', @Text + '|')
    IF @Place = 2
    BEGIN
        SET @Text = SUBSTRING(@Text, @Bar + 1, LEN(@Text + '.'))
        SET @Bar = CHARINDEX('|', @Text + '|')
    END
    RETURN LEFT(@Text, @Bar - 1)
END
GO
