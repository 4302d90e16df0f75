-- @Mode 'A' adds a right under the next number, 'B' changes the right @ItemID.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spNuclear_SaveProgramSettings
    @Mode varchar(1),
    @ItemID varchar(2),
    @Description varchar(100),
    @Status varchar(1)
AS
SET NOCOUNT ON
IF @Mode = 'A'
BEGIN
    DECLARE @Next int
    SELECT @Next = ISNULL(MAX(CAST(ItemID AS int)), 0) + 1 FROM tbNuclearUserSettings
    IF @Next > 99
        THROW 50002, 'There is no number of two digits left for another right.', 1;
    INSERT INTO tbNuclearUserSettings (ItemID, Description, Status)
    VALUES (CAST(@Next AS varchar(2)), @Description, @Status)
END
ELSE
    UPDATE tbNuclearUserSettings SET Description = @Description, Status = @Status WHERE ItemID = @ItemID
GO
