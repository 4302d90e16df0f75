-- The wards: requests to the departments, the nurses' log book, packages, notices of discharge.
USE STATION
GO

-- A ward's request to a department. RecordStatus: 'N' pending, 'X' processed, 'W' result done, 'R' revoked.
IF OBJECT_ID('tbNurseCommunicationFile') IS NULL
BEGIN
    CREATE TABLE tbNurseCommunicationFile (
        CommunicationID int IDENTITY(1,1) NOT NULL,
        HospNum varchar(20) NOT NULL DEFAULT '',
        IdNum varchar(20) NOT NULL DEFAULT '',
        RequestNum varchar(20) NOT NULL DEFAULT '',
        PatientType varchar(1) NOT NULL DEFAULT '',
        RevenueID varchar(4) NOT NULL DEFAULT '',
        ItemID varchar(20) NOT NULL DEFAULT '',
        Quantity float NOT NULL DEFAULT 1,
        Amount money NOT NULL DEFAULT 0,
        Classification varchar(10) NOT NULL DEFAULT '',
        RequestDate datetime NOT NULL,
        StationID varchar(10) NOT NULL DEFAULT '',
        UserID varchar(10) NOT NULL DEFAULT '',
        Remarks varchar(200) NOT NULL DEFAULT '',
        RecordStatus varchar(1) NOT NULL DEFAULT 'N',
        ReferenceNum varchar(20) NULL,
        ProcessBy varchar(10) NULL,
        ProcessDate datetime NULL,
        CONSTRAINT PK_NurseCommunicationFile PRIMARY KEY (CommunicationID)
    )
    CREATE INDEX IX_NurseCommunicationFile_IdNum ON tbNurseCommunicationFile (IdNum)
    CREATE INDEX IX_NurseCommunicationFile_RequestNum ON tbNurseCommunicationFile (RequestNum)
    CREATE INDEX IX_NurseCommunicationFile_ReferenceNum ON tbNurseCommunicationFile (ReferenceNum)
    CREATE INDEX IX_NurseCommunicationFile_RecordStatus ON tbNurseCommunicationFile (RecordStatus, RevenueID)
END
GO

-- Everything ordered for a patient, by a ward or by a department. RecordStatus as above.
IF OBJECT_ID('tbNurseLogBook') IS NULL
BEGIN
    CREATE TABLE tbNurseLogBook (
        LogBookID int IDENTITY(1,1) NOT NULL,
        HospNum varchar(20) NOT NULL DEFAULT '',
        IdNum varchar(20) NOT NULL DEFAULT '',
        RequestNum varchar(20) NOT NULL DEFAULT '',
        PatientType varchar(1) NOT NULL DEFAULT '',
        RevenueID varchar(4) NOT NULL DEFAULT '',
        RequestType varchar(2) NOT NULL DEFAULT '',
        ItemID varchar(20) NOT NULL DEFAULT '',
        Description varchar(200) NOT NULL DEFAULT '',
        Quantity float NOT NULL DEFAULT 1,
        Amount money NOT NULL DEFAULT 0,
        Dosage varchar(8) NOT NULL DEFAULT '',
        DoctorID varchar(10) NOT NULL DEFAULT '',
        RequestDate datetime NOT NULL,
        UserID varchar(10) NOT NULL DEFAULT '',
        Remarks varchar(200) NOT NULL DEFAULT '',
        SectionID varchar(4) NOT NULL DEFAULT '',
        ReservedText varchar(50) NOT NULL DEFAULT '',
        RecordStatus varchar(1) NOT NULL DEFAULT 'N',
        ReferenceNum varchar(20) NULL,
        ProcessBy varchar(10) NULL,
        ProcessDate datetime NULL,
        ResultDate datetime NULL,
        ResultBy varchar(10) NULL,
        CONSTRAINT PK_NurseLogBook PRIMARY KEY (LogBookID)
    )
    CREATE INDEX IX_NurseLogBook_IdNum ON tbNurseLogBook (IdNum)
    CREATE INDEX IX_NurseLogBook_RequestNum ON tbNurseLogBook (RequestNum)
    CREATE INDEX IX_NurseLogBook_ReferenceNum ON tbNurseLogBook (ReferenceNum)
END
GO

-- The last number of a ward's request. One row; the series starts above the departments' request numbers.
IF OBJECT_ID('tbNurseRequestNum') IS NULL
BEGIN
    CREATE TABLE tbNurseRequestNum (
        RequestNumID int NOT NULL,
        RequestNum int NOT NULL,
        CONSTRAINT PK_NurseRequestNum PRIMARY KEY (RequestNumID)
    )
END
GO

IF OBJECT_ID('tbAdmPackage') IS NULL
BEGIN
    CREATE TABLE tbAdmPackage (
        PackageID varchar(10) NOT NULL,
        Description varchar(100) NOT NULL DEFAULT '',
        GrossAmount money NOT NULL DEFAULT 0,
        PackageGroup int NOT NULL DEFAULT 11,
        Status bit NOT NULL DEFAULT 1,
        CONSTRAINT PK_AdmPackage PRIMARY KEY (PackageID)
    )
END
GO

-- ItemStatus: '1' selected, '2' un-used. Amount is for the whole quantity.
IF OBJECT_ID('tbAdmPackageItem') IS NULL
BEGIN
    CREATE TABLE tbAdmPackageItem (
        PackageID varchar(10) NOT NULL,
        LineNum int NOT NULL,
        ItemID varchar(20) NOT NULL DEFAULT '',
        RevenueID varchar(4) NOT NULL DEFAULT '',
        Description varchar(100) NOT NULL DEFAULT '',
        Quantity float NOT NULL DEFAULT 1,
        Amount money NOT NULL DEFAULT 0,
        LocationID varchar(10) NOT NULL DEFAULT '',
        ItemStatus varchar(1) NOT NULL DEFAULT '1',
        CONSTRAINT PK_AdmPackageItem PRIMARY KEY (PackageID, LineNum)
    )
END
GO

-- Package items that a patient did not use.
IF OBJECT_ID('tbPackageItemsUnused') IS NULL
BEGIN
    CREATE TABLE tbPackageItemsUnused (
        UnusedID int IDENTITY(1,1) NOT NULL,
        IdNum varchar(20) NOT NULL DEFAULT '',
        PackageID varchar(10) NOT NULL DEFAULT '',
        ItemID varchar(20) NOT NULL DEFAULT '',
        RevenueID varchar(4) NOT NULL DEFAULT '',
        Quantity float NOT NULL DEFAULT 0,
        Price money NOT NULL DEFAULT 0,
        LocationID varchar(10) NOT NULL DEFAULT '',
        UserID varchar(10) NOT NULL DEFAULT '',
        ReferenceNum varchar(20) NOT NULL DEFAULT '',
        TransDate datetime NOT NULL,
        CONSTRAINT PK_PackageItemsUnused PRIMARY KEY (UnusedID)
    )
    CREATE INDEX IX_PackageItemsUnused_IdNum ON tbPackageItemsUnused (IdNum)
END
GO

IF OBJECT_ID('tbDischargeNotice') IS NULL
BEGIN
    CREATE TABLE tbDischargeNotice (
        IdNum varchar(20) NOT NULL,
        OrderDate datetime NULL,
        NoticeDate datetime NOT NULL,
        DischargeNurse varchar(60) NOT NULL DEFAULT '',
        Remarks varchar(500) NOT NULL DEFAULT '',
        CONSTRAINT PK_DischargeNotice PRIMARY KEY (IdNum)
    )
    CREATE INDEX IX_DischargeNotice_NoticeDate ON tbDischargeNotice (NoticeDate)
END
GO
