-- Notices of discharge that the section did not answer yet.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spNuclear_LoadDischargeNoticeCount
AS
SET NOCOUNT ON
SELECT COUNT(*) AS recCount
FROM STATION..tbDischargeNotice N
LEFT JOIN tbNucDischargeClearance C ON C.IdNum = N.IdNum
WHERE C.ClearDate IS NULL
GO
