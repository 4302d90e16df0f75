-- Lays out the rights of an employee, one a row, for the session that asks.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spNuclear_GetSavedUserRights
    @EmployeeID varchar(10)
AS
SET NOCOUNT ON
DELETE FROM tbNuclearSessionRights WHERE Workstation = HOST_NAME() AND SessionID = @@SPID
INSERT INTO tbNuclearSessionRights (Workstation, SessionID, RightsID, DumpDate)
SELECT HOST_NAME(), @@SPID, S.ItemID, GETDATE()
FROM tbNuclearUserRights R
INNER JOIN tbNuclearUserSettings S ON CHARINDEX('|' + S.ItemID + '|', R.EmployeeRights + '|') > 0
WHERE R.EmployeeID = @EmployeeID
GO
