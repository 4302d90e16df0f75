-- Every line of the section in a period that was not revoked; both days included.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_ReportTransactions
    @From datetime,
    @To datetime
AS
SET NOCOUNT ON
SELECT L.TransDate, L.RefNum, L.RequestNum, L.IdNum, L.HospNum, L.PatientKind, L.PatientName, L.RevenueID, L.ItemID,
    L.Description, L.Quantity, L.Amount, L.UserID
FROM vwNuclearLine L
WHERE L.TransDate >= @From AND L.TransDate < DATEADD(day, 1, @To) AND L.LineStatus <> 'R'
ORDER BY L.TransDate, L.RefNum, L.RequestNum
GO
