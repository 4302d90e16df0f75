-- @Mode '0' adds, '1' changes. @BirthDate '' is not known.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spNuclearaddcashpatient
    @Mode varchar(1),
    @HospNum varchar(20),
    @LastName varchar(50),
    @FirstName varchar(50),
    @MiddleName varchar(50),
    @HouseStreet varchar(100),
    @Barangay varchar(100),
    @ZipCode varchar(10),
    @Sex varchar(1),
    @CivilStatusID varchar(1),
    @BirthDate varchar(20),
    @Age varchar(5)
AS
SET NOCOUNT ON
IF @Mode = '0'
    INSERT INTO PATIENT_DATA..tbCashPatient (hospnum, LastName, FirstName, MiddleName, BirthDate, Age, Sex,
        Civilstatusid, HouseStreet, Barangay, ZipCode, RegDate)
    VALUES (@HospNum, @LastName, @FirstName, @MiddleName, CONVERT(datetime, NULLIF(@BirthDate, ''), 101), @Age, @Sex,
        @CivilStatusID, @HouseStreet, @Barangay, @ZipCode, GETDATE())
ELSE
    UPDATE PATIENT_DATA..tbCashPatient
    SET LastName = @LastName, FirstName = @FirstName, MiddleName = @MiddleName,
        BirthDate = CONVERT(datetime, NULLIF(@BirthDate, ''), 101), Age = @Age, Sex = @Sex,
        Civilstatusid = @CivilStatusID, HouseStreet = @HouseStreet, Barangay = @Barangay, ZipCode = @ZipCode
    WHERE hospnum = @HospNum
GO
