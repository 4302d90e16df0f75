-- House-keeping at the start of a session: what was revoked and is of no use to any report.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_DeleteRevokedData
AS
SET NOCOUNT ON
DECLARE @Now datetime
SET @Now = GETDATE()
DELETE FROM STATION..tbNurseCommunicationFile
WHERE RecordStatus = 'R' AND RevenueID = 'NU' AND RequestDate < DATEADD(year, -1, @Now)
DELETE FROM BILLING..tbCashAssessment
WHERE RecordStatus = 'R' AND TransDate < DATEADD(year, -1, @Now) AND (RevenueID = 'NU' OR SectionID = 'NU')
DELETE FROM tbNuclearSessionRights WHERE DumpDate < DATEADD(day, -1, @Now)
GO
