-- The form of a prepaid reference as it stands on paper: what sp_Nuclear_RequestFormInfo lists, with the patient.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_ReportRequestForm
    @RefNum varchar(20)
AS
SET NOCOUNT ON
SELECT R.RefNum, R.RequestNum, R.IdNum, R.HospNum, M.LastName + ', ' + M.FirstName + ' ' + M.MiddleName AS PatientName,
    ISNULL(P.Age, O.Age) AS Age, M.Sex, M.BirthDate, ISNULL(P.RoomID, 'OPD') AS RoomID, M.HouseStreet, M.Barangay,
    A.Town, A.Province, D.LastName + ', ' + D.FirstName + ' ' + D.MiddleName AS DoctorName, R.TransDate, R.ItemID,
    E.NucExam AS Exam, R.Quantity
FROM tbNucPrepaid R
LEFT JOIN PATIENT_DATA..tbMaster M ON M.HospNum = R.HospNum
LEFT JOIN PATIENT_DATA..tbPatient P ON P.IdNum = R.IdNum
LEFT JOIN PATIENT_DATA..tbOutPatient O ON O.IdNum = R.IdNum
LEFT JOIN BUILD_FILE..tbCoAddress A ON A.ZipCode = M.ZipCode
LEFT JOIN BUILD_FILE..tbcoDoctor D ON D.DoctorID = R.DoctorID
LEFT JOIN BUILD_FILE..tbcoNucExam E ON E.NucExamID = R.ItemID
WHERE R.RefNum = @RefNum
    AND NOT EXISTS (SELECT 1 FROM tbNucMaster N WHERE N.RefNum = R.RefNum AND N.ItemID = R.ItemID
        AND N.RequestStatus = 'W')
ORDER BY R.RequestNum
GO
