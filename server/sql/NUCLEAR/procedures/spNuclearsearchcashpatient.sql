USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spNuclearsearchcashpatient
    @HospNum varchar(20)
AS
SET NOCOUNT ON
SELECT hospnum AS HospNum, LastName, FirstName, MiddleName, Age, Sex, BirthDate
FROM PATIENT_DATA..tbCashPatient
WHERE hospnum = @HospNum
GO
