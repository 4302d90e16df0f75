-- The procedures of a period, requesting doctor by requesting doctor.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_ReportRequestingDoctor
    @From datetime,
    @To datetime
AS
SET NOCOUNT ON
SELECT L.DoctorID, D.LastName + ', ' + D.FirstName AS DoctorName, L.TransDate, L.RefNum, L.PatientKind, L.PatientName,
    L.ItemID, L.Description, L.Quantity, L.Amount
FROM vwNuclearLine L
LEFT JOIN BUILD_FILE..tbcoDoctor D ON D.DoctorID = L.DoctorID
WHERE L.TransDate >= @From AND L.TransDate < DATEADD(day, 1, @To) AND L.LineStatus <> 'R' AND L.RevenueID = 'NU'
ORDER BY D.LastName, D.FirstName, L.DoctorID, L.TransDate, L.RequestNum
GO
