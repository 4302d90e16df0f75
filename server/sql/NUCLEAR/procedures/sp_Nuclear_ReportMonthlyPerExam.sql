-- The procedures of a period, exam by exam. Both days included, revoked ones left out.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_ReportMonthlyPerExam
    @From datetime,
    @To datetime
AS
SET NOCOUNT ON
SELECT L.TransDate, L.RefNum, L.IdNum, L.HospNum, L.PatientKind, L.PatientName, L.ItemID, L.Description, L.Quantity,
    L.Amount, D.LastName + ', ' + D.FirstName AS DoctorName
FROM vwNuclearLine L
LEFT JOIN BUILD_FILE..tbcoDoctor D ON D.DoctorID = L.DoctorID
WHERE L.TransDate >= @From AND L.TransDate < DATEADD(day, 1, @To) AND L.LineStatus <> 'R' AND L.RevenueID = 'NU'
ORDER BY L.Description, L.ItemID, L.TransDate, L.RequestNum
GO
