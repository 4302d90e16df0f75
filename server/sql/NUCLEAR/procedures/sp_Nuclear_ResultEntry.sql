-- One request with everything that a result screen shows of it. The doctors of a saved result go before the stay's.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_ResultEntry
    @RequestNum varchar(20)
AS
SET NOCOUNT ON
SELECT N.RequestNum, ISNULL(M.LastName, W.LastName) AS LastName, ISNULL(M.FirstName, W.FirstName) AS FirstName,
    ISNULL(M.MiddleName, W.MiddleName) AS MiddleName, C.Company,
    ISNULL(M.HouseStreet, W.HouseStreet) + ' ' + ISNULL(M.Barangay, W.Barangay) + ' ' + ISNULL(A.Town, '') AS Address,
    COALESCE(P.Age, O.Age, W.Age) AS Age, ISNULL(M.BirthDate, W.BirthDate) AS BirthDate, N.TransDate, N.HospNum, N.IdNum,
    CASE WHEN P.IdNum IS NULL THEN 'OPD' ELSE P.RoomID END AS RoomID, ISNULL(M.Sex, W.Sex) AS Sex,
    D.DoctorID AS AttendingDocCode, D.LastName + ', ' + D.FirstName + ' ' + D.MiddleName AS AttendingDocName,
    K.DoctorID AS CardiologistCode, K.LastName + ', ' + K.FirstName + ' ' + K.MiddleName AS Cardiologist,
    Q.DoctorID AS requestdoccode, Q.LastName + ', ' + Q.FirstName + ' ' + Q.MiddleName AS RequestDocName,
    N.ItemID, E.NucExam,
    CASE WHEN P.IdNum IS NOT NULL THEN 'I' WHEN O.IdNum IS NOT NULL THEN 'O' ELSE 'W' END AS PatientType,
    N.RefNum, N.NurseRequestNum, N.RequestStatus AS requeststatus
FROM tbNucMaster N
LEFT JOIN PATIENT_DATA..tbMaster M ON M.HospNum = N.HospNum
LEFT JOIN PATIENT_DATA..tbCashPatient W ON W.hospnum = N.HospNum
LEFT JOIN PATIENT_DATA..tbPatient P ON P.IdNum = N.IdNum
LEFT JOIN PATIENT_DATA..tbOutPatient O ON O.IdNum = N.IdNum
LEFT JOIN BUILD_FILE..tbcoCompany C ON C.AccountNum = ISNULL(P.AccountNum, O.AccountNum)
LEFT JOIN BUILD_FILE..tbCoAddress A ON A.ZipCode = ISNULL(M.ZipCode, W.ZipCode)
LEFT JOIN BUILD_FILE..tbcoNucExam E ON E.NucExamID = N.ItemID
LEFT JOIN tbNucResult R ON R.RequestNum = N.RequestNum
LEFT JOIN tbNucRadioResult S ON S.RequestNum = N.RequestNum
LEFT JOIN BUILD_FILE..tbcoDoctor D
    ON D.DoctorID = COALESCE(NULLIF(R.AttendingDocCode, ''), S.AttendingDocCode, P.DoctorID1, O.DoctorID1)
LEFT JOIN BUILD_FILE..tbcoDoctor K ON K.DoctorID = COALESCE(NULLIF(R.CardiologistCode, ''), P.DoctorID2)
LEFT JOIN BUILD_FILE..tbcoDoctor Q
    ON Q.DoctorID = COALESCE(R.RequestDocCode, S.RequestDocCode, N.RequestDocCode)
WHERE N.RequestNum = @RequestNum
GO
