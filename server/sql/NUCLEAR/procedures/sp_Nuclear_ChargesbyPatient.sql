-- What the section charged a stay: the latest slip first, its lines in the order they were taken. The wards' log book
-- holds every line: exams, fees and stock. A fee goes by the doctor who asked for the rest of its slip.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_ChargesbyPatient
    @IdNum varchar(20)
AS
SET NOCOUNT ON
SELECT L.ReferenceNum AS RefNum, L.RequestDate AS TransDate, L.ItemID, L.Description, L.Quantity, L.Amount,
    L.ProcessBy AS UserID,
    (SELECT TOP 1 D.LastName + ', ' + D.FirstName + ' ' + D.MiddleName
        FROM tbNucMaster N
        INNER JOIN BUILD_FILE..tbcoDoctor D ON D.DoctorID = N.RequestDocCode
        WHERE N.RefNum = L.ReferenceNum
        ORDER BY N.RequestNum) AS requestdoctorname
FROM STATION..tbNurseLogBook L
WHERE L.IdNum = @IdNum AND L.ReferenceNum LIKE 'C%J' AND L.RecordStatus <> 'R' AND L.ItemID <> ''
ORDER BY
    (SELECT MAX(S.RequestDate) FROM STATION..tbNurseLogBook S WHERE S.ReferenceNum = L.ReferenceNum) DESC,
    L.ReferenceNum DESC, L.LogBookID
GO
