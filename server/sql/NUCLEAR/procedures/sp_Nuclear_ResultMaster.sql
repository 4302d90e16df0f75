-- Patients with results: found as sp_Nuclear_RequestMaster finds them. They are many, so that each way of finding them
-- goes by its own index.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_ResultMaster
    @SearchText varchar(50)
AS
SET NOCOUNT ON
DECLARE @Pattern varchar(51)
SET @Pattern = REPLACE(@SearchText, '`', '_') + '%'
SELECT TOP 200 P.HospNum, P.LastName, P.FirstName, P.MiddleName,
    (SELECT TOP 1 L.RequestNum FROM tbNucMaster L
        WHERE L.HospNum = P.HospNum AND L.RevenueID = 'NU' AND L.RequestStatus = 'W'
        ORDER BY L.TransDate DESC, L.RequestNum DESC) AS RequestNum
FROM (
    SELECT A.HospNum, A.LastName, A.FirstName, A.MiddleName
    FROM (SELECT TOP 200 M.HospNum, M.LastName, M.FirstName, M.MiddleName
        FROM PATIENT_DATA..tbMaster M
        WHERE M.LastName LIKE @Pattern AND EXISTS (SELECT 1 FROM tbNucMaster N
            WHERE N.HospNum = M.HospNum AND N.RevenueID = 'NU' AND N.RequestStatus = 'W')
        ORDER BY M.LastName, M.FirstName, M.MiddleName) A
    UNION
    SELECT B.hospnum, B.LastName, B.FirstName, B.MiddleName
    FROM (SELECT TOP 200 C.hospnum, C.LastName, C.FirstName, C.MiddleName
        FROM PATIENT_DATA..tbCashPatient C
        WHERE (C.LastName LIKE @Pattern OR C.hospnum = @SearchText) AND EXISTS (SELECT 1 FROM tbNucMaster N
            WHERE N.HospNum = C.hospnum AND N.RevenueID = 'NU' AND N.RequestStatus = 'W')
        ORDER BY C.LastName, C.FirstName, C.MiddleName) B
    UNION
    SELECT M.HospNum, M.LastName, M.FirstName, M.MiddleName
    FROM PATIENT_DATA..tbMaster M
    WHERE @SearchText <> ''
        AND M.HospNum IN (SELECT R.HospNum FROM tbNucMaster R WHERE R.HospNum = @SearchText OR R.IdNum = @SearchText)
        AND EXISTS (SELECT 1 FROM tbNucMaster N
            WHERE N.HospNum = M.HospNum AND N.RevenueID = 'NU' AND N.RequestStatus = 'W')) P
ORDER BY P.LastName, P.FirstName, P.MiddleName
GO
