-- How often each procedure was asked for in a period, and by whom; the most frequent first.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_ReportStatistics
    @From datetime,
    @To datetime
AS
SET NOCOUNT ON
SELECT L.ItemID, L.Description, S.Section, SUM(CASE WHEN L.PatientKind = 'I' THEN 1 ELSE 0 END) AS InPatients,
    SUM(CASE WHEN L.PatientKind = 'O' THEN 1 ELSE 0 END) AS OutPatients,
    SUM(CASE WHEN L.PatientKind = 'W' THEN 1 ELSE 0 END) AS CashPatients, COUNT(*) AS Requests, SUM(L.Amount) AS Amount
FROM vwNuclearLine L
LEFT JOIN BUILD_FILE..tbcoNucExam E ON E.NucExamID = L.ItemID
LEFT JOIN BUILD_FILE..tbcoNucSection S ON S.SectionID = E.SectionID
WHERE L.TransDate >= @From AND L.TransDate < DATEADD(day, 1, @To) AND L.LineStatus <> 'R' AND L.RevenueID = 'NU'
GROUP BY L.ItemID, L.Description, S.Section
ORDER BY COUNT(*) DESC, L.Description
GO
