-- A new package takes the next free letter.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_Insert_Update_Package
    @Code varchar(10),
    @Description varchar(100),
    @Status bit
AS
SET NOCOUNT ON
DECLARE @Letter varchar(1)
UPDATE tbNucPackage SET Description = @Description, Status = @Status WHERE Code = @Code
IF @@ROWCOUNT = 0
BEGIN
    SELECT @Letter = SUBSTRING('ABCDEFGHIJKLMNOPQRSTUVWXYZ',
        CHARINDEX(ISNULL(MAX(PackageLetter), ' '), 'ABCDEFGHIJKLMNOPQRSTUVWXYZ') + 1, 1)
    FROM tbNucPackage
    INSERT INTO tbNucPackage (Code, PackageLetter, Description, Status) VALUES (@Code, @Letter, @Description, @Status)
END
GO
