USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spNuclear_SaveUserRights
    @EmployeeID varchar(10),
    @EmployeeRights varchar(500),
    @UserID varchar(10)
AS
SET NOCOUNT ON
UPDATE tbNuclearUserRights
SET EmployeeRights = @EmployeeRights, UserID = @UserID, UpdateDate = GETDATE()
WHERE EmployeeID = @EmployeeID
IF @@ROWCOUNT = 0
    INSERT INTO tbNuclearUserRights (EmployeeID, EmployeeRights, UserID, UpdateDate)
    VALUES (@EmployeeID, @EmployeeRights, @UserID, GETDATE())
GO
