-- Lines that were revoked in a period, by the day of the revocation.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_ReportCancelled
    @From datetime,
    @To datetime
AS
SET NOCOUNT ON
SELECT L.RevokeDate, L.TransDate, L.RefNum, L.RequestNum, L.IdNum, L.HospNum, L.PatientKind, L.PatientName, L.ItemID,
    L.Description, L.Quantity, L.Amount, L.UserID
FROM vwNuclearLine L
WHERE L.RevokeDate >= @From AND L.RevokeDate < DATEADD(day, 1, @To) AND L.LineStatus = 'R'
ORDER BY L.RevokeDate, L.RequestNum
GO
