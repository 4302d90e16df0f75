-- Lines that were revoked in a period, by the day of the revocation. RevokedBy is whose reversal stands on the bill or
-- the stock card; NULL where a receipt's line was revoked, which leaves no reversal.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_ReportCancelled
    @From datetime,
    @To datetime
AS
SET NOCOUNT ON
SELECT L.RevokeDate, L.TransDate, L.RefNum, L.RequestNum, L.IdNum, L.HospNum, L.PatientKind, L.PatientName, L.ItemID,
    L.Description, L.Quantity, L.Amount, L.UserID, L.RevokedBy, ISNULL(U.Name, L.RevokedBy) AS RevokedByName
FROM (SELECT N.RevokeDate, N.TransDate, N.RefNum, N.RequestNum, N.IdNum, N.HospNum, N.PatientKind, N.PatientName,
        N.ItemID, N.Description, N.Quantity, N.Amount, N.UserID,
        ISNULL((SELECT MIN(B.UserID) FROM BILLING..tbDailyBill B
            WHERE B.RefNum = N.RefNum AND B.IdNum = N.IdNum AND B.ItemID = N.ItemID AND B.Marker = 'D'
                AND B.UserID <> ''),
            (SELECT MIN(K.UserID) FROM INVENTORY..tbInvStockCard K
            WHERE K.RefNum = N.RefNum AND K.IdNum = N.IdNum AND K.ItemID = N.ItemID AND K.Direction = 'I'
                AND K.UserID <> '')) AS RevokedBy
    FROM vwNuclearLine N
    WHERE N.RevokeDate >= @From AND N.RevokeDate < DATEADD(day, 1, @To) AND N.LineStatus = 'R') L
LEFT JOIN PASSWORD..tbPasswordMain U ON U.EmployeeID = L.RevokedBy
ORDER BY L.RevokeDate, L.RequestNum
GO
