-- Notices that wait, and those cleared today.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spNuclear_LoadDischargeNotice
AS
SET NOCOUNT ON
DECLARE @Today datetime
SET @Today = CONVERT(datetime, CONVERT(varchar(10), GETDATE(), 120), 120)
SELECT M.LastName + ', ' + M.FirstName + ' ' + M.MiddleName AS PatientName, P.RoomID, N.IdNum, N.DischargeNurse,
    N.NoticeDate, C.ClearDate
FROM STATION..tbDischargeNotice N
LEFT JOIN tbNucDischargeClearance C ON C.IdNum = N.IdNum
LEFT JOIN PATIENT_DATA..tbPatient P ON P.IdNum = N.IdNum
LEFT JOIN PATIENT_DATA..tbMaster M ON M.HospNum = P.HospNum
WHERE C.ClearDate IS NULL OR C.ClearDate >= @Today
ORDER BY N.NoticeDate
GO
