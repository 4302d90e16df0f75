-- Patients with requests that wait for a result: by the start of the last name, or by an admission or hospital number in
-- full; a back-quote, which screens type for a quote, is any sign. They are few, so all of them are looked through.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_RequestMaster
    @SearchText varchar(50)
AS
SET NOCOUNT ON
DECLARE @Pattern varchar(51)
SET @Pattern = REPLACE(@SearchText, '`', '_') + '%'
SELECT TOP 200 P.HospNum, ISNULL(M.LastName, C.LastName) AS LastName, ISNULL(M.FirstName, C.FirstName) AS FirstName,
    ISNULL(M.MiddleName, C.MiddleName) AS MiddleName,
    (SELECT TOP 1 L.RequestNum FROM tbNucMaster L
        WHERE L.HospNum = P.HospNum AND L.RevenueID = 'NU' AND L.RequestStatus = ''
        ORDER BY L.TransDate DESC, L.RequestNum DESC) AS RequestNum
FROM (SELECT DISTINCT N.HospNum FROM tbNucMaster N WHERE N.RequestStatus = '' AND N.RevenueID = 'NU') P
LEFT JOIN PATIENT_DATA..tbMaster M ON M.HospNum = P.HospNum
LEFT JOIN PATIENT_DATA..tbCashPatient C ON C.hospnum = P.HospNum
WHERE M.LastName LIKE @Pattern OR C.LastName LIKE @Pattern OR P.HospNum = @SearchText
    OR EXISTS (SELECT 1 FROM tbNucMaster N
        WHERE N.HospNum = P.HospNum AND N.IdNum = @SearchText AND N.RequestStatus = '' AND N.RevenueID = 'NU')
ORDER BY LastName, FirstName, MiddleName
GO
