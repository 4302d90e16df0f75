USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spNuclear_GetForDischargePatientChages
    @IdNum varchar(20)
AS
SET NOCOUNT ON
SELECT L.ReferenceNum AS [ChargeSlip#], L.ItemID AS Code, L.Description AS Particular, L.Quantity AS Qty, L.Amount,
    L.RequestDate AS IssueDate
FROM STATION..tbNurseLogBook L
WHERE L.IdNum = @IdNum AND L.ReferenceNum LIKE 'C%J' AND L.RecordStatus <> 'R' AND L.ItemID <> ''
ORDER BY L.RequestDate, L.LogBookID
GO
