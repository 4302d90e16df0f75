-- Each session sees the rights that it asked for itself, so workstations do not mix.
USE NUCLEAR
GO

CREATE OR ALTER VIEW tbNuclearDumpUserRights
AS
SELECT RightsID
FROM tbNuclearSessionRights
WHERE Workstation = CAST(HOST_NAME() AS varchar(128)) AND SessionID = @@SPID
GO
