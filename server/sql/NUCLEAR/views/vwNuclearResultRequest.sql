-- A request as its result shows it: the patient, the stay, the exam. PatientType 'I' admitted, 'O' out-patient, 'W'
-- walk-in; IsRevoked 1: there is no result that holds.
USE NUCLEAR
GO

CREATE OR ALTER VIEW vwNuclearResultRequest
AS
SELECT N.RequestNum, ISNULL(M.LastName, W.LastName) AS LastName, ISNULL(M.FirstName, W.FirstName) AS FirstName,
    ISNULL(M.MiddleName, W.MiddleName) AS MiddleName, C.Company,
    ISNULL(M.HouseStreet, W.HouseStreet) + ' ' + ISNULL(M.Barangay, W.Barangay) + ' ' + ISNULL(A.Town, '') AS Address,
    COALESCE(P.Age, O.Age, W.Age) AS Age, ISNULL(M.BirthDate, W.BirthDate) AS BirthDate, N.TransDate, N.HospNum, N.IdNum,
    CASE WHEN P.IdNum IS NULL THEN 'OPD' ELSE P.RoomID END AS RoomID, ISNULL(M.Sex, W.Sex) AS Sex,
    ISNULL(P.DoctorID1, O.DoctorID1) AS AttendingDocCode, P.DoctorID2 AS CardiologistCode, N.RequestDocCode,
    N.ItemID, E.NucExam,
    CASE WHEN P.IdNum IS NOT NULL THEN 'I' WHEN O.IdNum IS NOT NULL THEN 'O' ELSE 'W' END AS PatientType,
    N.RefNum, N.NurseRequestNum, N.RequestStatus, CASE WHEN N.RequestStatus = 'W' THEN 0 ELSE 1 END AS IsRevoked
FROM tbNucMaster N
LEFT JOIN PATIENT_DATA..tbMaster M ON M.HospNum = N.HospNum
LEFT JOIN PATIENT_DATA..tbCashPatient W ON W.hospnum = N.HospNum
LEFT JOIN PATIENT_DATA..tbPatient P ON P.IdNum = N.IdNum
LEFT JOIN PATIENT_DATA..tbOutPatient O ON O.IdNum = N.IdNum
LEFT JOIN BUILD_FILE..tbcoCompany C ON C.AccountNum = ISNULL(P.AccountNum, O.AccountNum)
LEFT JOIN BUILD_FILE..tbCoAddress A ON A.ZipCode = ISNULL(M.ZipCode, W.ZipCode)
LEFT JOIN BUILD_FILE..tbcoNucExam E ON E.NucExamID = N.ItemID
GO
