-- The hospital's patients, their stays and the heading data.
USE PATIENT_DATA
GO

-- Heading data of the hospital. One row.
IF OBJECT_ID('tbHospitalInfo') IS NULL
BEGIN
    CREATE TABLE tbHospitalInfo (
        HospitalID int NOT NULL,
        Company varchar(100) NOT NULL DEFAULT '',
        Address1 varchar(200) NOT NULL DEFAULT '',
        Title varchar(100) NOT NULL DEFAULT '',
        TinNo varchar(30) NOT NULL DEFAULT '',
        OPDPassword varchar(50) NOT NULL DEFAULT '',
        CONSTRAINT PK_HospitalInfo PRIMARY KEY (HospitalID)
    )
END
GO

-- A patient, for life.
IF OBJECT_ID('tbMaster') IS NULL
BEGIN
    CREATE TABLE tbMaster (
        HospNum varchar(20) NOT NULL,
        LastName varchar(50) NOT NULL DEFAULT '',
        FirstName varchar(50) NOT NULL DEFAULT '',
        MiddleName varchar(50) NOT NULL DEFAULT '',
        Sex varchar(1) NOT NULL DEFAULT '',
        BirthDate datetime NULL,
        BloodType varchar(5) NOT NULL DEFAULT '',
        CivilStatus varchar(1) NOT NULL DEFAULT '',
        HouseStreet varchar(100) NOT NULL DEFAULT '',
        Barangay varchar(100) NOT NULL DEFAULT '',
        ZipCode varchar(10) NOT NULL DEFAULT '',
        TelNum varchar(30) NOT NULL DEFAULT '',
        AccountNum varchar(20) NOT NULL DEFAULT '',
        CONSTRAINT PK_Master PRIMARY KEY (HospNum)
    )
    CREATE INDEX IX_Master_LastName ON tbMaster (LastName, FirstName, MiddleName)
    CREATE INDEX IX_Master_FirstName ON tbMaster (FirstName, LastName)
END
GO

-- Stays of admitted patients. BillingDate set: the bill is closed, unless LateCharges is set too.
IF OBJECT_ID('tbPatient') IS NULL
BEGIN
    CREATE TABLE tbPatient (
        IdNum varchar(20) NOT NULL,
        HospNum varchar(20) NOT NULL DEFAULT '',
        AdmDate datetime NULL,
        DcrDate datetime NULL,
        BillingDate datetime NULL,
        RoomID varchar(10) NOT NULL DEFAULT '',
        DoctorID1 varchar(10) NOT NULL DEFAULT '',
        DoctorID2 varchar(10) NOT NULL DEFAULT '',
        AccountNum varchar(20) NOT NULL DEFAULT '',
        Age varchar(5) NOT NULL DEFAULT '',
        InvoiceNumber varchar(20) NOT NULL DEFAULT '',
        LateCharges bit NOT NULL DEFAULT 0,
        AdmDiagnosis varchar(200) NOT NULL DEFAULT '',
        UserID varchar(10) NOT NULL DEFAULT '',
        CONSTRAINT PK_Patient PRIMARY KEY (IdNum)
    )
    CREATE INDEX IX_Patient_HospNum ON tbPatient (HospNum)
    CREATE INDEX IX_Patient_AdmDate ON tbPatient (AdmDate)
    CREATE INDEX IX_Patient_DcrDate ON tbPatient (DcrDate)
    CREATE INDEX IX_Patient_BillingDate ON tbPatient (BillingDate)
END
GO

-- What the departments hold about a stay. OkeyNU, OkeyPH: the account is under cash basis, or closed, for that department.
IF OBJECT_ID('tbPatient2') IS NULL
BEGIN
    CREATE TABLE tbPatient2 (
        IdNum varchar(20) NOT NULL,
        OkeyNU bit NOT NULL DEFAULT 0,
        OkeyPH bit NOT NULL DEFAULT 0,
        OkeyCS bit NOT NULL DEFAULT 0,
        AskCashBasis bit NOT NULL DEFAULT 0,
        CONSTRAINT PK_Patient2 PRIMARY KEY (IdNum)
    )
END
GO

IF OBJECT_ID('tbPatientHistory') IS NULL
BEGIN
    CREATE TABLE tbPatientHistory (
        IdNum varchar(20) NOT NULL,
        Height varchar(20) NOT NULL DEFAULT '',
        Weight varchar(20) NOT NULL DEFAULT '',
        BloodPressure varchar(20) NOT NULL DEFAULT '',
        ChiefComplaint varchar(200) NOT NULL DEFAULT '',
        Allergies varchar(200) NOT NULL DEFAULT '',
        CONSTRAINT PK_PatientHistory PRIMARY KEY (IdNum)
    )
END
GO

-- Stays of registered out-patients. OPDStatus 'R': the registration is revoked.
IF OBJECT_ID('tbOutPatient') IS NULL
BEGIN
    CREATE TABLE tbOutPatient (
        IdNum varchar(20) NOT NULL,
        HospNum varchar(20) NOT NULL DEFAULT '',
        AdmDate datetime NULL,
        DcrDate datetime NULL,
        BillingDate datetime NULL,
        DoctorID1 varchar(10) NOT NULL DEFAULT '',
        AccountNum varchar(20) NOT NULL DEFAULT '',
        Age varchar(5) NOT NULL DEFAULT '',
        InvoiceNumber varchar(20) NOT NULL DEFAULT '',
        LateCharges bit NOT NULL DEFAULT 0,
        OPDStatus varchar(1) NOT NULL DEFAULT '',
        UserID varchar(10) NOT NULL DEFAULT '',
        CONSTRAINT PK_OutPatient PRIMARY KEY (IdNum)
    )
    CREATE INDEX IX_OutPatient_HospNum ON tbOutPatient (HospNum)
    CREATE INDEX IX_OutPatient_AdmDate ON tbOutPatient (AdmDate)
    CREATE INDEX IX_OutPatient_DcrDate ON tbOutPatient (DcrDate)
END
GO

-- Walk-in cash patients. Civilstatusid '0' to '5'.
IF OBJECT_ID('tbCashPatient') IS NULL
BEGIN
    CREATE TABLE tbCashPatient (
        hospnum varchar(20) NOT NULL,
        LastName varchar(50) NOT NULL DEFAULT '',
        FirstName varchar(50) NOT NULL DEFAULT '',
        MiddleName varchar(50) NOT NULL DEFAULT '',
        BirthDate datetime NULL,
        Age varchar(5) NOT NULL DEFAULT '',
        Sex varchar(1) NOT NULL DEFAULT '',
        Civilstatusid varchar(1) NOT NULL DEFAULT '',
        HouseStreet varchar(100) NOT NULL DEFAULT '',
        Barangay varchar(100) NOT NULL DEFAULT '',
        ZipCode varchar(10) NOT NULL DEFAULT '',
        RegDate datetime NULL,
        CONSTRAINT PK_CashPatient PRIMARY KEY (hospnum)
    )
    CREATE INDEX IX_CashPatient_LastName ON tbCashPatient (LastName, FirstName)
END
GO

-- The last number of a walk-in patient. One row. The programs know it as tbLastWalkInNum, a view
-- that locks it for the rest of the transaction; once the table itself was called so.
IF OBJECT_ID('tbLastWalkInNumRow') IS NULL
BEGIN
    CREATE TABLE tbLastWalkInNumRow (
        WalkInNumID int NOT NULL,
        lastopd varchar(20) NOT NULL DEFAULT '',
        transnum int NOT NULL DEFAULT 0,
        CONSTRAINT PK_LastWalkInNumRow PRIMARY KEY (WalkInNumID)
    )
    IF OBJECT_ID('tbLastWalkInNum', 'U') IS NOT NULL
    BEGIN
        INSERT INTO tbLastWalkInNumRow (WalkInNumID, lastopd, transnum)
        SELECT WalkInNumID, lastopd, transnum
        FROM tbLastWalkInNum
        DROP TABLE tbLastWalkInNum
    END
END
GO
