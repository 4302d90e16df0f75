-- The files that every department builds on: rooms, doctors, exams, accounts, towns.
USE BUILD_FILE
GO

-- RoomClassID 'A' to 'E'.
IF OBJECT_ID('tbcoRoom') IS NULL
BEGIN
    CREATE TABLE tbcoRoom (
        RoomID varchar(10) NOT NULL,
        RoomClassID varchar(4) NOT NULL DEFAULT '',
        StationID varchar(10) NOT NULL DEFAULT '',
        Rate money NOT NULL DEFAULT 0,
        Status varchar(1) NOT NULL DEFAULT 'A',
        CONSTRAINT PK_coRoom PRIMARY KEY (RoomID)
    )
END
GO

IF OBJECT_ID('tbCoStation') IS NULL
BEGIN
    CREATE TABLE tbCoStation (
        StationID varchar(10) NOT NULL,
        Station varchar(60) NOT NULL DEFAULT '',
        CONSTRAINT PK_CoStation PRIMARY KEY (StationID)
    )
END
GO

IF OBJECT_ID('tbcoDoctor') IS NULL
BEGIN
    CREATE TABLE tbcoDoctor (
        DoctorID varchar(10) NOT NULL,
        LastName varchar(50) NOT NULL DEFAULT '',
        FirstName varchar(50) NOT NULL DEFAULT '',
        MiddleName varchar(50) NOT NULL DEFAULT '',
        Specialty varchar(60) NOT NULL DEFAULT '',
        ContactNum varchar(30) NOT NULL DEFAULT '',
        Status varchar(1) NOT NULL DEFAULT 'A',
        CONSTRAINT PK_coDoctor PRIMARY KEY (DoctorID)
    )
    CREATE INDEX IX_coDoctor_LastName ON tbcoDoctor (LastName, FirstName)
END
GO

-- Exams. FormType 'G', 'R', 'T', anything else generic. Fixrate 'N': the price may be keyed. Status 'A' or 'I'.
IF OBJECT_ID('tbcoNucExam') IS NULL
BEGIN
    CREATE TABLE tbcoNucExam (
        NucExamID varchar(10) NOT NULL,
        NucExam varchar(100) NOT NULL DEFAULT '',
        SectionID varchar(10) NOT NULL DEFAULT '',
        NucSectionID varchar(1) NOT NULL DEFAULT '',
        FormType varchar(1) NULL,
        Classification varchar(10) NULL,
        RateA money NOT NULL DEFAULT 0,
        RateB money NOT NULL DEFAULT 0,
        RateC money NOT NULL DEFAULT 0,
        RateD money NOT NULL DEFAULT 0,
        RateE money NOT NULL DEFAULT 0,
        RateH money NOT NULL DEFAULT 0,
        Outpatient money NOT NULL DEFAULT 0,
        Fixrate varchar(1) NOT NULL DEFAULT 'Y',
        Common varchar(1) NOT NULL DEFAULT 'N',
        MedicareType varchar(1) NOT NULL DEFAULT '',
        Status varchar(1) NOT NULL DEFAULT 'A',
        CONSTRAINT PK_coNucExam PRIMARY KEY (NucExamID)
    )
    CREATE INDEX IX_coNucExam_NucExam ON tbcoNucExam (NucExam)
END
GO

IF OBJECT_ID('tbcoNucSection') IS NULL
BEGIN
    CREATE TABLE tbcoNucSection (
        SectionID varchar(10) NOT NULL,
        Section varchar(60) NOT NULL DEFAULT '',
        CONSTRAINT PK_coNucSection PRIMARY KEY (SectionID)
    )
END
GO

IF OBJECT_ID('tbCoAddress') IS NULL
BEGIN
    CREATE TABLE tbCoAddress (
        ZipCode varchar(10) NOT NULL,
        Town varchar(60) NOT NULL DEFAULT '',
        Province varchar(60) NOT NULL DEFAULT '',
        CONSTRAINT PK_CoAddress PRIMARY KEY (ZipCode)
    )
    CREATE INDEX IX_CoAddress_Town ON tbCoAddress (Town)
END
GO

-- What a charge line can be. WithItems 'Y': items are chosen under it. SearchInventory: they come from the stock lists.
IF OBJECT_ID('tbcoRevenueCode') IS NULL
BEGIN
    CREATE TABLE tbcoRevenueCode (
        RevenueID varchar(4) NOT NULL,
        Revenue varchar(60) NOT NULL DEFAULT '',
        WithItems varchar(1) NOT NULL DEFAULT 'N',
        SearchInventory bit NOT NULL DEFAULT 0,
        LocationID varchar(10) NULL,
        InvCode varchar(10) NULL,
        CONSTRAINT PK_coRevenueCode PRIMARY KEY (RevenueID)
    )
END
GO

-- Accounts that pay for patients. IsHMO: the exams are priced at RateH.
IF OBJECT_ID('tbcoCompany') IS NULL
BEGIN
    CREATE TABLE tbcoCompany (
        AccountNum varchar(20) NOT NULL,
        Company varchar(100) NOT NULL DEFAULT '',
        IsHMO bit NOT NULL DEFAULT 0,
        Status varchar(1) NOT NULL DEFAULT 'A',
        CONSTRAINT PK_coCompany PRIMARY KEY (AccountNum)
    )
    CREATE INDEX IX_coCompany_Company ON tbcoCompany (Company)
END
GO

IF OBJECT_ID('tbCoCivilStatus') IS NULL
BEGIN
    CREATE TABLE tbCoCivilStatus (
        CivilStatusID varchar(1) NOT NULL,
        CivilStatus varchar(30) NOT NULL DEFAULT '',
        CONSTRAINT PK_CoCivilStatus PRIMARY KEY (CivilStatusID)
    )
END
GO

IF OBJECT_ID('tbCoDosage') IS NULL
BEGIN
    CREATE TABLE tbCoDosage (
        DosageID varchar(8) NOT NULL,
        Dosage varchar(60) NOT NULL DEFAULT '',
        Frequency int NOT NULL DEFAULT 1,
        CONSTRAINT PK_CoDosage PRIMARY KEY (DosageID)
    )
END
GO

-- Who changed what in the files and rights.
IF OBJECT_ID('tbBuildLog') IS NULL
BEGIN
    CREATE TABLE tbBuildLog (
        LogID int IDENTITY(1,1) NOT NULL,
        LogDate datetime NOT NULL,
        EmployeeID varchar(10) NOT NULL DEFAULT '',
        Module varchar(60) NOT NULL DEFAULT '',
        Details varchar(500) NOT NULL DEFAULT '',
        Workstation varchar(128) NOT NULL DEFAULT '',
        CONSTRAINT PK_BuildLog PRIMARY KEY (LogID)
    )
    CREATE INDEX IX_BuildLog_LogDate ON tbBuildLog (LogDate)
END
GO
