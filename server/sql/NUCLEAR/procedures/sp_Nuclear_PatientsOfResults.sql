-- Patients with requests in one state ('' waits for a result, 'W' has one): by the start of the last name, or by an
-- admission or hospital number in full. A back-quote, which screens type for a quote, is any sign. 200 at most.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_PatientsOfResults
    @SearchText varchar(50),
    @RequestStatus varchar(1)
AS
SET NOCOUNT ON
DECLARE @Pattern varchar(51)
SET @SearchText = LTRIM(RTRIM(@SearchText))
SET @Pattern = REPLACE(@SearchText, '`', '_') + '%'
IF @SearchText = '' AND @RequestStatus = ''
        OR EXISTS (SELECT 1 FROM tbNucMaster N WHERE N.HospNum = @SearchText OR N.IdNum = @SearchText)
    SELECT TOP 200 N.HospNum, ISNULL(M.LastName, W.LastName) AS LastName, ISNULL(M.FirstName, W.FirstName) AS FirstName,
        ISNULL(M.MiddleName, W.MiddleName) AS MiddleName,
        (SELECT TOP 1 L.RequestNum FROM tbNucMaster L
            WHERE L.HospNum = N.HospNum AND L.RevenueID = 'NU' AND L.RequestStatus = @RequestStatus
            ORDER BY L.TransDate DESC, L.RequestNum DESC) AS RequestNum
    FROM (SELECT DISTINCT R.HospNum FROM tbNucMaster R
        WHERE R.RequestStatus = @RequestStatus AND R.RevenueID = 'NU'
            AND (@SearchText = '' OR R.HospNum = @SearchText OR R.IdNum = @SearchText)) N
    LEFT JOIN PATIENT_DATA..tbMaster M ON M.HospNum = N.HospNum
    LEFT JOIN PATIENT_DATA..tbCashPatient W ON W.hospnum = N.HospNum
    ORDER BY LastName, FirstName, MiddleName
ELSE
    SELECT TOP 200 P.HospNum, P.LastName, P.FirstName, P.MiddleName,
        (SELECT TOP 1 L.RequestNum FROM tbNucMaster L
            WHERE L.HospNum = P.HospNum AND L.RevenueID = 'NU' AND L.RequestStatus = @RequestStatus
            ORDER BY L.TransDate DESC, L.RequestNum DESC) AS RequestNum
    FROM (SELECT M.HospNum, M.LastName, M.FirstName, M.MiddleName
        FROM PATIENT_DATA..tbMaster M
        WHERE M.LastName LIKE @Pattern AND EXISTS (SELECT 1 FROM tbNucMaster N
            WHERE N.HospNum = M.HospNum AND N.RevenueID = 'NU' AND N.RequestStatus = @RequestStatus)
        UNION ALL
        SELECT C.hospnum, C.LastName, C.FirstName, C.MiddleName
        FROM PATIENT_DATA..tbCashPatient C
        WHERE C.LastName LIKE @Pattern AND EXISTS (SELECT 1 FROM tbNucMaster N
            WHERE N.HospNum = C.hospnum AND N.RevenueID = 'NU' AND N.RequestStatus = @RequestStatus)) P
    ORDER BY P.LastName, P.FirstName, P.MiddleName
GO
