-- An account's ledger, day by day; in a day what was charged by revenue, then what was paid. @PatientType 'O' an
-- out-patient's stay, any other one an admitted patient's. The balance is the sum of Amount.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_PatientLedger
    @IdNum varchar(20),
    @PatientType varchar(1)
AS
SET NOCOUNT ON
SELECT L.TransDate, L.RevenueID,
    CASE WHEN L.Kind = 'P' THEN 'PAYMENTS' ELSE ISNULL(R.Revenue, 'OTHERS') END AS Revenue, L.Kind, L.RefNum, L.ItemID,
    L.Description, L.Quantity, L.Charge, L.Credit, L.Amount
FROM vwNuclearLedger L
LEFT JOIN BUILD_FILE..tbcoRevenueCode R ON R.RevenueID = L.RevenueID
WHERE L.IdNum = @IdNum
    AND ((@PatientType = 'O' AND EXISTS (SELECT 1 FROM PATIENT_DATA..tbOutPatient O WHERE O.IdNum = @IdNum))
    OR (@PatientType <> 'O' AND EXISTS (SELECT 1 FROM PATIENT_DATA..tbPatient P WHERE P.IdNum = @IdNum)))
ORDER BY CONVERT(varchar(10), L.TransDate, 120), CASE WHEN L.Kind = 'P' THEN 1 ELSE 0 END, L.RevenueID, L.TransDate,
    L.Source, L.LineID
GO
