USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spNuclear_ClearPatientForDischarge
    @IdNum varchar(20),
    @ClearRemarks varchar(500),
    @UserID varchar(10)
AS
SET NOCOUNT ON
UPDATE tbNucDischargeClearance
SET ClearDate = GETDATE(), ClearRemarks = @ClearRemarks, UserID = @UserID
WHERE IdNum = @IdNum
IF @@ROWCOUNT = 0
    INSERT INTO tbNucDischargeClearance (IdNum, ClearDate, ClearRemarks, UserID)
    VALUES (@IdNum, GETDATE(), @ClearRemarks, @UserID)
GO
