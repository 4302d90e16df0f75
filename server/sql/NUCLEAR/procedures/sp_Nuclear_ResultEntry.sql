-- One request with everything that a result screen shows of it. The doctors of a saved result go before the stay's,
-- also where the result names none; a perfusion result has no attending doctor of its own, the others no cardiologist.
-- Those of a revoked result are over.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_ResultEntry
    @RequestNum varchar(20)
AS
SET NOCOUNT ON
SELECT N.RequestNum, N.LastName, N.FirstName, N.MiddleName, N.Company, N.Address, N.Age, N.BirthDate, N.TransDate,
    N.HospNum, N.IdNum, N.RoomID, N.Sex,
    D.DoctorID AS AttendingDocCode, D.LastName + ', ' + D.FirstName + ' ' + D.MiddleName AS AttendingDocName,
    K.DoctorID AS CardiologistCode, K.LastName + ', ' + K.FirstName + ' ' + K.MiddleName AS Cardiologist,
    Q.DoctorID AS requestdoccode, Q.LastName + ', ' + Q.FirstName + ' ' + Q.MiddleName AS RequestDocName,
    N.ItemID, N.NucExam, N.PatientType, N.RefNum, N.NurseRequestNum, N.RequestStatus AS requeststatus
FROM vwNuclearResultRequest N
LEFT JOIN tbNucResult R ON R.RequestNum = N.RequestNum AND N.RequestStatus = 'W'
LEFT JOIN tbNucRadioResult S ON S.RequestNum = N.RequestNum AND N.RequestStatus = 'W'
LEFT JOIN BUILD_FILE..tbcoDoctor D
    ON D.DoctorID = CASE WHEN R.AttendingDocCode = '' AND R.CardiologistCode <> '' THEN N.AttendingDocCode
        ELSE COALESCE(R.AttendingDocCode, S.AttendingDocCode, N.AttendingDocCode) END
LEFT JOIN BUILD_FILE..tbcoDoctor K
    ON K.DoctorID = CASE WHEN R.CardiologistCode = '' AND R.AttendingDocCode <> '' THEN N.CardiologistCode
        ELSE COALESCE(R.CardiologistCode, N.CardiologistCode) END
LEFT JOIN BUILD_FILE..tbcoDoctor Q
    ON Q.DoctorID = COALESCE(R.RequestDocCode, S.RequestDocCode, N.RequestDocCode)
WHERE N.RequestNum = @RequestNum
GO
