USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_GetPrepaidPatientInfo
    @RefNum varchar(20)
AS
SET NOCOUNT ON
SELECT TOP 1 R.IdNum, R.RefNum, R.HospNum, M.LastName, M.FirstName, M.MiddleName, ISNULL(P.Age, O.Age) AS Age, M.Sex,
    ISNULL(P.RoomID, 'OPD') AS RoomID, ISNULL(B.RoomClassID, 'A') AS RoomClassID, M.HouseStreet, M.Barangay, M.ZipCode,
    A.Town, A.Province, D.LastName + ', ' + D.FirstName + ' ' + D.MiddleName AS DoctorName
FROM tbNucPrepaid R
INNER JOIN PATIENT_DATA..tbMaster M ON M.HospNum = R.HospNum
LEFT JOIN PATIENT_DATA..tbPatient P ON P.IdNum = R.IdNum
LEFT JOIN PATIENT_DATA..tbOutPatient O ON O.IdNum = R.IdNum
LEFT JOIN BUILD_FILE..tbcoRoom B ON B.RoomID = P.RoomID
LEFT JOIN BUILD_FILE..tbCoAddress A ON A.ZipCode = M.ZipCode
LEFT JOIN BUILD_FILE..tbcoDoctor D ON D.DoctorID = R.DoctorID
WHERE R.RefNum = @RefNum
GO
