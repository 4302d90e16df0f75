USE BUILD_FILE
GO

CREATE OR ALTER PROCEDURE spBuild_LogUserUpdate
    @EmployeeID varchar(10),
    @Module varchar(60),
    @Details varchar(500)
AS
SET NOCOUNT ON
INSERT INTO tbBuildLog (LogDate, EmployeeID, Module, Details, Workstation)
VALUES (GETDATE(), @EmployeeID, @Module, @Details, HOST_NAME())
GO
