USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spNuclear_LoadDischargeNoticePatient
    @IdNum varchar(20)
AS
SET NOCOUNT ON
SELECT M.LastName, M.FirstName, M.MiddleName, P.HospNum, N.IdNum, P.AdmDate, P.RoomID,
    D.LastName + ', ' + D.FirstName + ' ' + D.MiddleName AS Doctor, N.OrderDate, N.NoticeDate, N.DischargeNurse,
    N.Remarks, C.ClearDate, C.ClearRemarks, C.UserID
FROM STATION..tbDischargeNotice N
LEFT JOIN tbNucDischargeClearance C ON C.IdNum = N.IdNum
LEFT JOIN PATIENT_DATA..tbPatient P ON P.IdNum = N.IdNum
LEFT JOIN PATIENT_DATA..tbMaster M ON M.HospNum = P.HospNum
LEFT JOIN BUILD_FILE..tbcoDoctor D ON D.DoctorID = P.DoctorID1
WHERE N.IdNum = @IdNum
GO
