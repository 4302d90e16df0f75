USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spCharge_InquiryList
    @RefNum varchar(20)
AS
SET NOCOUNT ON
SELECT L.ReferenceNum AS [Receipt #], M.LastName + ', ' + M.FirstName + ' ' + M.MiddleName AS [Payment From],
    L.RequestDate AS [transaction Date], L.Amount, L.Description AS [Transaction Type]
FROM STATION..tbNurseLogBook L
LEFT JOIN PATIENT_DATA..tbMaster M ON M.HospNum = L.HospNum
WHERE L.ReferenceNum = @RefNum AND L.ItemID <> ''
ORDER BY L.LogBookID
GO
