-- What the section charged a stay, latest first. The wards' log book holds every line: exams, fees and stock.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_ChargesbyPatient
    @IdNum varchar(20)
AS
SET NOCOUNT ON
SELECT L.ReferenceNum AS RefNum, L.RequestDate AS TransDate, L.ItemID, L.Description, L.Quantity, L.Amount,
    L.ProcessBy AS UserID, D.LastName + ', ' + D.FirstName + ' ' + D.MiddleName AS requestdoctorname
FROM STATION..tbNurseLogBook L
LEFT JOIN tbNucMaster N ON N.RequestNum = L.RequestNum
LEFT JOIN BUILD_FILE..tbcoDoctor D ON D.DoctorID = N.RequestDocCode
WHERE L.IdNum = @IdNum AND L.ReferenceNum LIKE 'C%J' AND L.RecordStatus <> 'R' AND L.ItemID <> ''
ORDER BY L.RequestDate DESC, L.LogBookID
GO
