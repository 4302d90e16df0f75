USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spNuclearsearchoutpatient
    @IdNum varchar(20)
AS
SET NOCOUNT ON
SELECT O.IdNum, O.HospNum, O.AdmDate, O.DoctorID1 AS doctorid1, O.AccountNum
FROM PATIENT_DATA..tbOutPatient O
WHERE O.IdNum = @IdNum
GO
