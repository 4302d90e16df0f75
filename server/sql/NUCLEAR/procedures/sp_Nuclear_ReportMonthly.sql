-- The procedures of a period by date. Both days included, revoked ones left out.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_ReportMonthly
    @From datetime,
    @To datetime
AS
SET NOCOUNT ON
SELECT L.TransDate, L.RefNum, L.IdNum, L.HospNum, L.PatientKind, L.PatientName, L.ItemID, L.Description, L.Quantity,
    L.Amount, D.LastName + ', ' + D.FirstName AS DoctorName
FROM vwNuclearLine L
LEFT JOIN BUILD_FILE..tbcoDoctor D ON D.DoctorID = L.DoctorID
WHERE L.TransDate >= @From AND L.TransDate < DATEADD(day, 1, @To) AND L.LineStatus <> 'R' AND L.RevenueID = 'NU'
ORDER BY L.TransDate, L.RequestNum
GO
