-- The wards' requests that wait for the section, oldest first.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_NurseCommunication
AS
SET NOCOUNT ON
SELECT C.RequestDate, C.IdNum AS [Adm.No.],
    M.LastName + ', ' + M.FirstName + ' ' + M.MiddleName AS [Patient Name],
    ISNULL(P.RoomID, 'OPD') AS RoomID, C.ItemID AS ExamCode, E.NucExam AS [Exam Description],
    C.Remarks, C.UserID, C.PatientType, C.RequestNum, C.HospNum, C.Classification
FROM STATION..tbNurseCommunicationFile C
LEFT JOIN PATIENT_DATA..tbMaster M ON M.HospNum = C.HospNum
LEFT JOIN PATIENT_DATA..tbPatient P ON P.IdNum = C.IdNum
LEFT JOIN BUILD_FILE..tbcoNucExam E ON E.NucExamID = C.ItemID
WHERE C.RecordStatus = 'N' AND C.RevenueID = 'NU'
ORDER BY C.RequestDate, C.CommunicationID
GO
