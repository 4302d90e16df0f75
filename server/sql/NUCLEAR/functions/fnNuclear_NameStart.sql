-- The start of a name, for LIKE: @Part 0 what stands before the first comma of @Text, 1 what stands behind it. A back-quote,
-- which screens type for a quote, is any sign; so is a sign that means something to LIKE.
USE NUCLEAR
GO

CREATE OR ALTER FUNCTION fnNuclear_NameStart (@Text varchar(101), @Part int)
RETURNS varchar(102)
AS
BEGIN
    DECLARE @Comma int
    SET @Comma = CHARINDEX(',', @Text)
    IF @Part = 0 AND @Comma > 0
        SET @Text = LEFT(@Text, @Comma - 1)
    IF @Part = 1
    BEGIN
        IF @Comma > 0
            SET @Text = SUBSTRING(@Text, @Comma + 1, 101)
        ELSE
            SET @Text = ''
    END
    RETURN REPLACE(REPLACE(REPLACE(LTRIM(RTRIM(@Text)), '`', '_'), '%', '_'), '[', '_') + '%'
END
GO
