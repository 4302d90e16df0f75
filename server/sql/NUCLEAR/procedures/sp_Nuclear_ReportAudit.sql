-- Every line of a period with its state and who keyed it. @Option '0' admitted, '1' out-patients, '2' cash, '3' all.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_ReportAudit
    @From datetime,
    @To datetime,
    @Option varchar(1)
AS
SET NOCOUNT ON
SELECT L.PatientKind, L.TransDate, L.RefNum, L.RequestNum, L.IdNum, L.HospNum, L.PatientName, L.ItemID, L.Description,
    L.Quantity, L.Amount, L.UserID, U.Name AS UserName, L.LineStatus
FROM vwNuclearLine L
LEFT JOIN PASSWORD..tbPasswordMain U ON U.EmployeeID = L.UserID
WHERE L.TransDate >= @From AND L.TransDate < DATEADD(day, 1, @To)
    AND (@Option = '3' OR L.PatientKind = CASE @Option WHEN '0' THEN 'I' WHEN '1' THEN 'O' ELSE 'W' END)
ORDER BY L.PatientKind, L.TransDate, L.RequestNum
GO
