-- Requests that can be cancelled. @Mode 1 the start of the last name, 2 hospital number, 3 admission number, 4
-- reference or request number; the numbers in full, and none without one. By name and latest first.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_getCancelRequest_new
    @SearchText varchar(50),
    @Mode int
AS
SET NOCOUNT ON
DECLARE @Pattern varchar(102)
SET @Pattern = dbo.fnNuclear_NameStart(@SearchText, 0)
IF @Mode = 1
    SELECT TOP 200 L.*
    FROM (SELECT A.* FROM (SELECT TOP 200 V.* FROM PATIENT_DATA..tbMaster M
            INNER JOIN vwNuclearCancelRequest V ON V.[Hosp. No.] = M.HospNum
            WHERE M.LastName LIKE @Pattern
            ORDER BY M.LastName, M.FirstName, M.MiddleName, V.[Trans. Date] DESC, V.RequestNum DESC) A
        UNION ALL
        SELECT B.* FROM (SELECT TOP 200 V.* FROM PATIENT_DATA..tbCashPatient C
            INNER JOIN vwNuclearCancelRequest V ON V.[Hosp. No.] = C.hospnum
            WHERE C.LastName LIKE @Pattern
            ORDER BY C.LastName, C.FirstName, C.MiddleName, V.[Trans. Date] DESC, V.RequestNum DESC) B) L
    ORDER BY L.[Last Name], L.[First Name], L.[Middle Name], L.[Trans. Date] DESC, L.RequestNum DESC
ELSE IF @Mode = 2
    SELECT TOP 200 * FROM vwNuclearCancelRequest
    WHERE [Hosp. No.] = @SearchText AND @SearchText <> ''
    ORDER BY [Trans. Date] DESC, RequestNum DESC
ELSE IF @Mode = 3
    SELECT TOP 200 * FROM vwNuclearCancelRequest
    WHERE [Adm. No.] = @SearchText AND @SearchText <> ''
    ORDER BY [Trans. Date] DESC, RequestNum DESC
ELSE
    SELECT TOP 200 * FROM vwNuclearCancelRequest
    WHERE (RefNum = @SearchText OR RequestNum = @SearchText) AND @SearchText <> ''
    ORDER BY [Trans. Date] DESC, RequestNum DESC
GO
