-- The stay of an admission number. @PatientType 'I' admitted, 'O' out-patient.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_getpatientbyidnum
    @PatientType varchar(1),
    @IdNum varchar(20)
AS
SET NOCOUNT ON
SET @IdNum = LTRIM(RTRIM(@IdNum))
IF @PatientType = 'O'
    SELECT TOP 200 [Hosp.No.], [Adm.No.], [Patient Name], [Billed Date], [Charging Status], NucStatus, DcrDate
    FROM vwNuclearOutStay
    WHERE [Adm.No.] = @IdNum
    ORDER BY LastName, FirstName, MiddleName, AdmDate DESC
ELSE
    SELECT TOP 200 [Hosp.No.], [Adm.No.], [Patient Name], [Billed Date], [Charging Status], NucStatus, DcrDate
    FROM vwNuclearInStay
    WHERE [Adm.No.] = @IdNum
    ORDER BY LastName, FirstName, MiddleName, AdmDate DESC
GO
