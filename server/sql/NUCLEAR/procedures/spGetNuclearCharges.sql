-- What the section charged a stay, as the receivable screen lists it.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spGetNuclearCharges
    @IdNum varchar(20)
AS
SET NOCOUNT ON
SELECT L.RevenueID AS Department, L.ItemID AS Code, L.ReferenceNum AS [ChargeSlip #], L.Description AS Particular,
    CASE WHEN L.Quantity = 0 THEN L.Amount ELSE L.Amount / L.Quantity END AS Price, L.Quantity, L.Amount,
    L.RequestDate AS Transdate, U.Name AS UserName
FROM STATION..tbNurseLogBook L
LEFT JOIN PASSWORD..tbPasswordMain U ON U.EmployeeID = L.ProcessBy
WHERE L.IdNum = @IdNum AND L.ReferenceNum LIKE 'C%J' AND L.RecordStatus <> 'R' AND L.ItemID <> ''
ORDER BY L.RequestDate, L.LogBookID
GO
