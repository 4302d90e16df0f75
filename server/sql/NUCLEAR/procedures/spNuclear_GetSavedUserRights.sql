-- Lays out the rights of an employee, one a row, for the session that asks.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spNuclear_GetSavedUserRights
    @EmployeeID varchar(10)
AS
SET NOCOUNT ON
DELETE FROM tbNuclearSessionRights WHERE Workstation = CAST(HOST_NAME() AS varchar(128)) AND SessionID = @@SPID
INSERT INTO tbNuclearSessionRights (Workstation, SessionID, RightsID, DumpDate)
SELECT CAST(HOST_NAME() AS varchar(128)), @@SPID, S.ItemID, GETDATE()
FROM tbNuclearUserRights R
INNER JOIN tbNuclearUserSettings S ON CHARINDEX('|' + S.ItemID + '|', R.EmployeeRights + '|') > 0
WHERE R.EmployeeID = @EmployeeID
GO
