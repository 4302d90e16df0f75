-- The section's own files: numbers, requests, results, packages and rights.
USE NUCLEAR
GO

-- The numbers that the next slip and request take. One row, SlipID 1. The programs know it as tbNucSlip, a view
-- that locks it for the rest of the transaction; once the table itself was called so.
IF OBJECT_ID('tbNucSlipRow') IS NULL
BEGIN
    CREATE TABLE tbNucSlipRow (
        SlipID int NOT NULL,
        ChargeSlip int NOT NULL,
        RequestNum int NOT NULL,
        CONSTRAINT PK_NucSlipRow PRIMARY KEY (SlipID)
    )
    IF OBJECT_ID('tbNucSlip', 'U') IS NOT NULL
    BEGIN
        INSERT INTO tbNucSlipRow (SlipID, ChargeSlip, RequestNum)
        SELECT SlipID, ChargeSlip, RequestNum
        FROM tbNucSlip
        DROP TABLE tbNucSlip
    END
END
GO

-- One row a request line. RequestStatus: '' open, 'W' a result exists, 'R' revoked.
IF OBJECT_ID('tbNucMaster') IS NULL
BEGIN
    CREATE TABLE tbNucMaster (
        RequestNum varchar(20) NOT NULL,
        HospNum varchar(20) NOT NULL DEFAULT '',
        IdNum varchar(20) NOT NULL DEFAULT '',
        ItemID varchar(20) NOT NULL DEFAULT '',
        RevenueID varchar(4) NOT NULL DEFAULT '',
        PatientType varchar(1) NOT NULL DEFAULT '',
        RefNum varchar(20) NOT NULL DEFAULT '',
        NurseRequestNum varchar(20) NOT NULL DEFAULT '',
        Quantity float NOT NULL DEFAULT 0,
        Amount money NOT NULL DEFAULT 0,
        RequestDocCode varchar(10) NOT NULL DEFAULT '',
        UserID varchar(10) NOT NULL DEFAULT '',
        TransDate datetime NOT NULL,
        RequestStatus varchar(1) NOT NULL DEFAULT '',
        Remarks varchar(200) NOT NULL DEFAULT '',
        Classification varchar(10) NOT NULL DEFAULT '',
        ResultDate datetime NULL,
        RevokeDate datetime NULL,
        CONSTRAINT PK_NucMaster PRIMARY KEY (RequestNum)
    )
    CREATE INDEX IX_NucMaster_HospNum ON tbNucMaster (HospNum)
    CREATE INDEX IX_NucMaster_IdNum ON tbNucMaster (IdNum)
    CREATE INDEX IX_NucMaster_RefNum ON tbNucMaster (RefNum)
    CREATE INDEX IX_NucMaster_NurseRequestNum ON tbNucMaster (NurseRequestNum)
    CREATE INDEX IX_NucMaster_TransDate ON tbNucMaster (TransDate)
    CREATE INDEX IX_NucMaster_RequestStatus ON tbNucMaster (RequestStatus, RevenueID, HospNum)
END
GO

-- The lines of the charge slip that is being printed; emptied before each print.
IF OBJECT_ID('tbNucChargeSlip') IS NULL
BEGIN
    CREATE TABLE tbNucChargeSlip (
        LineID int IDENTITY(1,1) NOT NULL,
        ItemID varchar(20) NOT NULL DEFAULT '',
        Description varchar(200) NOT NULL DEFAULT '',
        Quantity float NOT NULL DEFAULT 0,
        Price money NOT NULL DEFAULT 0,
        Amount money NOT NULL DEFAULT 0,
        UserID varchar(10) NOT NULL DEFAULT '',
        RevenueID varchar(4) NOT NULL DEFAULT '',
        RefNum varchar(20) NOT NULL DEFAULT '',
        CONSTRAINT PK_NucChargeSlip PRIMARY KEY (LineID)
    )
END
GO

-- Results of the generic, perfusion and GFR screens, one row a request.
IF OBJECT_ID('tbNucResult') IS NULL
BEGIN
    CREATE TABLE tbNucResult (
        RequestNum varchar(20) NOT NULL,
        HospNum varchar(20) NOT NULL DEFAULT '',
        IdNum varchar(20) NOT NULL DEFAULT '',
        CaseNumber varchar(20) NOT NULL DEFAULT '',
        PatientType varchar(1) NOT NULL DEFAULT '',
        AttendingDocCode varchar(10) NOT NULL DEFAULT '',
        CardiologistCode varchar(10) NOT NULL DEFAULT '',
        RequestDocCode varchar(10) NOT NULL DEFAULT '',
        ItemID varchar(20) NOT NULL DEFAULT '',
        Dose varchar(max) NOT NULL DEFAULT '',
        Radiopharmaceutical varchar(max) NOT NULL DEFAULT '',
        Route varchar(max) NOT NULL DEFAULT '',
        Projections varchar(max) NOT NULL DEFAULT '',
        Protocol varchar(max) NOT NULL DEFAULT '',
        Isotope varchar(max) NOT NULL DEFAULT '',
        Interpretation varchar(max) NULL,
        Conclusion varchar(max) NULL,
        ClinicalHistory varchar(max) NULL,
        Technique varchar(max) NULL,
        StressDetails varchar(max) NULL,
        StressImages varchar(max) NULL,
        RestingImages varchar(max) NULL,
        QuantitativeData varchar(max) NULL,
        Fraction varchar(max) NOT NULL DEFAULT '',
        EDV varchar(max) NOT NULL DEFAULT '',
        ESV varchar(max) NOT NULL DEFAULT '',
        SV varchar(max) NOT NULL DEFAULT '',
        WallMotion varchar(max) NOT NULL DEFAULT '',
        Left1 varchar(max) NOT NULL DEFAULT '',
        Left2 varchar(max) NOT NULL DEFAULT '',
        Left3 varchar(max) NOT NULL DEFAULT '',
        Left4 varchar(max) NOT NULL DEFAULT '',
        Left5 varchar(max) NOT NULL DEFAULT '',
        Left6 varchar(max) NOT NULL DEFAULT '',
        Left7 varchar(max) NOT NULL DEFAULT '',
        Right1 varchar(max) NOT NULL DEFAULT '',
        Right2 varchar(max) NOT NULL DEFAULT '',
        Right3 varchar(max) NOT NULL DEFAULT '',
        Right4 varchar(max) NOT NULL DEFAULT '',
        Right5 varchar(max) NOT NULL DEFAULT '',
        Right6 varchar(max) NOT NULL DEFAULT '',
        Right7 varchar(max) NOT NULL DEFAULT '',
        Scale varchar(max) NOT NULL DEFAULT '',
        Weight varchar(max) NOT NULL DEFAULT '',
        Height varchar(max) NOT NULL DEFAULT '',
        UserID varchar(10) NOT NULL DEFAULT '',
        ResultDate datetime NULL,
        Remarks varchar(max) NULL,
        CONSTRAINT PK_NucResult PRIMARY KEY (RequestNum)
    )
    CREATE INDEX IX_NucResult_IdNum ON tbNucResult (IdNum)
END
GO

-- Radio-immunoassay results.
IF OBJECT_ID('tbNucRadioResult') IS NULL
BEGIN
    CREATE TABLE tbNucRadioResult (
        RequestNum varchar(20) NOT NULL,
        HospNum varchar(20) NOT NULL DEFAULT '',
        IdNum varchar(20) NOT NULL DEFAULT '',
        CaseNumber varchar(20) NOT NULL DEFAULT '',
        PatientType varchar(1) NOT NULL DEFAULT '',
        AttendingDocCode varchar(10) NOT NULL DEFAULT '',
        RequestDocCode varchar(10) NOT NULL DEFAULT '',
        ItemID varchar(20) NOT NULL DEFAULT '',
        Dose varchar(max) NOT NULL DEFAULT '',
        Radiopharmaceutical varchar(max) NOT NULL DEFAULT '',
        Route varchar(max) NOT NULL DEFAULT '',
        Projections varchar(max) NOT NULL DEFAULT '',
        Weight varchar(max) NOT NULL DEFAULT '',
        Height varchar(max) NOT NULL DEFAULT '',
        UserID varchar(10) NOT NULL DEFAULT '',
        ResultDate datetime NULL,
        Calcitonin varchar(max) NOT NULL DEFAULT '',
        AntiTG varchar(max) NOT NULL DEFAULT '',
        TG varchar(max) NOT NULL DEFAULT '',
        AntiTPO varchar(max) NOT NULL DEFAULT '',
        TSH varchar(max) NOT NULL DEFAULT '',
        FreeT4 varchar(max) NOT NULL DEFAULT '',
        FreeT3 varchar(max) NOT NULL DEFAULT '',
        T4 varchar(max) NOT NULL DEFAULT '',
        T3 varchar(max) NOT NULL DEFAULT '',
        Progesterone varchar(max) NOT NULL DEFAULT '',
        Cortisol varchar(max) NOT NULL DEFAULT '',
        DHEA varchar(max) NOT NULL DEFAULT '',
        HGH varchar(max) NOT NULL DEFAULT '',
        HLH varchar(max) NOT NULL DEFAULT '',
        HFSH varchar(max) NOT NULL DEFAULT '',
        AFP varchar(max) NOT NULL DEFAULT '',
        BHCG varchar(max) NOT NULL DEFAULT '',
        PSA varchar(max) NOT NULL DEFAULT '',
        Osteocalcin varchar(max) NOT NULL DEFAULT '',
        CPeptide varchar(max) NOT NULL DEFAULT '',
        SHBG varchar(max) NOT NULL DEFAULT '',
        Insulin varchar(max) NOT NULL DEFAULT '',
        Technologist varchar(max) NOT NULL DEFAULT '',
        CONSTRAINT PK_NucRadioResult PRIMARY KEY (RequestNum)
    )
    CREATE INDEX IX_NucRadioResult_IdNum ON tbNucRadioResult (IdNum)
END
GO

-- The header fields of the same results, as the revocation shows them, with the second series of boxes.
IF OBJECT_ID('tbNucResultRadio') IS NULL
BEGIN
    CREATE TABLE tbNucResultRadio (
        RequestNum varchar(20) NOT NULL,
        HospNum varchar(20) NOT NULL DEFAULT '',
        IdNum varchar(20) NOT NULL DEFAULT '',
        CaseNumber varchar(20) NOT NULL DEFAULT '',
        PatientType varchar(1) NOT NULL DEFAULT '',
        AttendingDocCode varchar(10) NOT NULL DEFAULT '',
        RequestDocCode varchar(10) NOT NULL DEFAULT '',
        ItemID varchar(20) NOT NULL DEFAULT '',
        Dose varchar(max) NOT NULL DEFAULT '',
        Radiopharmaceutical varchar(max) NOT NULL DEFAULT '',
        Route varchar(max) NOT NULL DEFAULT '',
        Projections varchar(max) NOT NULL DEFAULT '',
        Weight varchar(max) NOT NULL DEFAULT '',
        Height varchar(max) NOT NULL DEFAULT '',
        UserID varchar(10) NOT NULL DEFAULT '',
        ResultDate datetime NULL,
        Calcitonin varchar(max) NOT NULL DEFAULT '',
        AntiTG varchar(max) NOT NULL DEFAULT '',
        TG varchar(max) NOT NULL DEFAULT '',
        AntiTPO varchar(max) NOT NULL DEFAULT '',
        TSH varchar(max) NOT NULL DEFAULT '',
        FreeT4 varchar(max) NOT NULL DEFAULT '',
        FreeT3 varchar(max) NOT NULL DEFAULT '',
        T4 varchar(max) NOT NULL DEFAULT '',
        T3 varchar(max) NOT NULL DEFAULT '',
        Progesterone varchar(max) NOT NULL DEFAULT '',
        Cortisol varchar(max) NOT NULL DEFAULT '',
        DHEA varchar(max) NOT NULL DEFAULT '',
        HGH varchar(max) NOT NULL DEFAULT '',
        HLH varchar(max) NOT NULL DEFAULT '',
        HFSH varchar(max) NOT NULL DEFAULT '',
        AFP varchar(max) NOT NULL DEFAULT '',
        BHCG varchar(max) NOT NULL DEFAULT '',
        PSA varchar(max) NOT NULL DEFAULT '',
        Osteocalcin varchar(max) NOT NULL DEFAULT '',
        CPeptide varchar(max) NOT NULL DEFAULT '',
        SHBG varchar(max) NOT NULL DEFAULT '',
        Insulin varchar(max) NOT NULL DEFAULT '',
        Technologist varchar(max) NOT NULL DEFAULT '',
        CONSTRAINT PK_NucResultRadio PRIMARY KEY (RequestNum)
    )
    CREATE INDEX IX_NucResultRadio_IdNum ON tbNucResultRadio (IdNum)
END
GO

-- What revoked results of tbNucResult said, for the audit: a row for each revocation.
IF OBJECT_ID('tbNucRevokedResult') IS NULL
BEGIN
    CREATE TABLE tbNucRevokedResult (
        RevokedID int IDENTITY(1,1) NOT NULL,
        RevokeDate datetime NOT NULL,
        Workstation varchar(128) NOT NULL DEFAULT '',
        RequestNum varchar(20) NOT NULL,
        HospNum varchar(20) NOT NULL DEFAULT '',
        IdNum varchar(20) NOT NULL DEFAULT '',
        CaseNumber varchar(20) NOT NULL DEFAULT '',
        PatientType varchar(1) NOT NULL DEFAULT '',
        AttendingDocCode varchar(10) NOT NULL DEFAULT '',
        CardiologistCode varchar(10) NOT NULL DEFAULT '',
        RequestDocCode varchar(10) NOT NULL DEFAULT '',
        ItemID varchar(20) NOT NULL DEFAULT '',
        Dose varchar(max) NOT NULL DEFAULT '',
        Radiopharmaceutical varchar(max) NOT NULL DEFAULT '',
        Route varchar(max) NOT NULL DEFAULT '',
        Projections varchar(max) NOT NULL DEFAULT '',
        Protocol varchar(max) NOT NULL DEFAULT '',
        Isotope varchar(max) NOT NULL DEFAULT '',
        Interpretation varchar(max) NULL,
        Conclusion varchar(max) NULL,
        ClinicalHistory varchar(max) NULL,
        Technique varchar(max) NULL,
        StressDetails varchar(max) NULL,
        StressImages varchar(max) NULL,
        RestingImages varchar(max) NULL,
        QuantitativeData varchar(max) NULL,
        Fraction varchar(max) NOT NULL DEFAULT '',
        EDV varchar(max) NOT NULL DEFAULT '',
        ESV varchar(max) NOT NULL DEFAULT '',
        SV varchar(max) NOT NULL DEFAULT '',
        WallMotion varchar(max) NOT NULL DEFAULT '',
        Left1 varchar(max) NOT NULL DEFAULT '',
        Left2 varchar(max) NOT NULL DEFAULT '',
        Left3 varchar(max) NOT NULL DEFAULT '',
        Left4 varchar(max) NOT NULL DEFAULT '',
        Left5 varchar(max) NOT NULL DEFAULT '',
        Left6 varchar(max) NOT NULL DEFAULT '',
        Left7 varchar(max) NOT NULL DEFAULT '',
        Right1 varchar(max) NOT NULL DEFAULT '',
        Right2 varchar(max) NOT NULL DEFAULT '',
        Right3 varchar(max) NOT NULL DEFAULT '',
        Right4 varchar(max) NOT NULL DEFAULT '',
        Right5 varchar(max) NOT NULL DEFAULT '',
        Right6 varchar(max) NOT NULL DEFAULT '',
        Right7 varchar(max) NOT NULL DEFAULT '',
        Scale varchar(max) NOT NULL DEFAULT '',
        Weight varchar(max) NOT NULL DEFAULT '',
        Height varchar(max) NOT NULL DEFAULT '',
        UserID varchar(10) NOT NULL DEFAULT '',
        ResultDate datetime NULL,
        Remarks varchar(max) NULL,
        CONSTRAINT PK_NucRevokedResult PRIMARY KEY (RevokedID)
    )
    CREATE INDEX IX_NucRevokedResult_RequestNum ON tbNucRevokedResult (RequestNum)
END
GO

-- The same of radio-immunoassay results. Series '1': of tbNucRadioResult, '2': of tbNucResultRadio.
IF OBJECT_ID('tbNucRevokedRadioResult') IS NULL
BEGIN
    CREATE TABLE tbNucRevokedRadioResult (
        RevokedID int IDENTITY(1,1) NOT NULL,
        RevokeDate datetime NOT NULL,
        Workstation varchar(128) NOT NULL DEFAULT '',
        Series varchar(1) NOT NULL DEFAULT '',
        RequestNum varchar(20) NOT NULL,
        HospNum varchar(20) NOT NULL DEFAULT '',
        IdNum varchar(20) NOT NULL DEFAULT '',
        CaseNumber varchar(20) NOT NULL DEFAULT '',
        PatientType varchar(1) NOT NULL DEFAULT '',
        AttendingDocCode varchar(10) NOT NULL DEFAULT '',
        RequestDocCode varchar(10) NOT NULL DEFAULT '',
        ItemID varchar(20) NOT NULL DEFAULT '',
        Dose varchar(max) NOT NULL DEFAULT '',
        Radiopharmaceutical varchar(max) NOT NULL DEFAULT '',
        Route varchar(max) NOT NULL DEFAULT '',
        Projections varchar(max) NOT NULL DEFAULT '',
        Weight varchar(max) NOT NULL DEFAULT '',
        Height varchar(max) NOT NULL DEFAULT '',
        UserID varchar(10) NOT NULL DEFAULT '',
        ResultDate datetime NULL,
        Calcitonin varchar(max) NOT NULL DEFAULT '',
        AntiTG varchar(max) NOT NULL DEFAULT '',
        TG varchar(max) NOT NULL DEFAULT '',
        AntiTPO varchar(max) NOT NULL DEFAULT '',
        TSH varchar(max) NOT NULL DEFAULT '',
        FreeT4 varchar(max) NOT NULL DEFAULT '',
        FreeT3 varchar(max) NOT NULL DEFAULT '',
        T4 varchar(max) NOT NULL DEFAULT '',
        T3 varchar(max) NOT NULL DEFAULT '',
        Progesterone varchar(max) NOT NULL DEFAULT '',
        Cortisol varchar(max) NOT NULL DEFAULT '',
        DHEA varchar(max) NOT NULL DEFAULT '',
        HGH varchar(max) NOT NULL DEFAULT '',
        HLH varchar(max) NOT NULL DEFAULT '',
        HFSH varchar(max) NOT NULL DEFAULT '',
        AFP varchar(max) NOT NULL DEFAULT '',
        BHCG varchar(max) NOT NULL DEFAULT '',
        PSA varchar(max) NOT NULL DEFAULT '',
        Osteocalcin varchar(max) NOT NULL DEFAULT '',
        CPeptide varchar(max) NOT NULL DEFAULT '',
        SHBG varchar(max) NOT NULL DEFAULT '',
        Insulin varchar(max) NOT NULL DEFAULT '',
        Technologist varchar(max) NOT NULL DEFAULT '',
        CONSTRAINT PK_NucRevokedRadioResult PRIMARY KEY (RevokedID)
    )
    CREATE INDEX IX_NucRevokedRadioResult_RequestNum ON tbNucRevokedRadioResult (RequestNum)
END
GO

-- Case (NM) numbers. Status 'R' frees the number.
IF OBJECT_ID('tbNucLogBook') IS NULL
BEGIN
    CREATE TABLE tbNucLogBook (
        LogBookID int IDENTITY(1,1) NOT NULL,
        CaseNumber varchar(20) NOT NULL DEFAULT '',
        RequestNum varchar(20) NOT NULL DEFAULT '',
        HospNum varchar(20) NOT NULL DEFAULT '',
        IdNum varchar(20) NOT NULL DEFAULT '',
        PatientType varchar(1) NOT NULL DEFAULT '',
        ItemID varchar(20) NOT NULL DEFAULT '',
        DoctorID varchar(10) NOT NULL DEFAULT '',
        RequestDocCode varchar(10) NOT NULL DEFAULT '',
        UserID varchar(10) NOT NULL DEFAULT '',
        ResultDate datetime NULL,
        Status varchar(1) NOT NULL DEFAULT '',
        RevokeDate datetime NULL,
        CONSTRAINT PK_NucLogBook PRIMARY KEY (LogBookID)
    )
    CREATE INDEX IX_NucLogBook_CaseNumber ON tbNucLogBook (CaseNumber)
    CREATE INDEX IX_NucLogBook_RequestNum ON tbNucLogBook (RequestNum)
    CREATE INDEX IX_NucLogBook_ResultDate ON tbNucLogBook (ResultDate)
END
GO

-- What files of before the audit of revocations lack.
IF COL_LENGTH('tbNucLogBook', 'RevokeDate') IS NULL
BEGIN
    ALTER TABLE tbNucLogBook ADD RevokeDate datetime NULL
    CREATE INDEX IX_NucMaster_RequestStatus ON tbNucMaster (RequestStatus, RevenueID, HospNum)
END
GO

-- Packages of the section. PackageLetter is the letter that picks one on the request screens.
IF OBJECT_ID('tbNucPackage') IS NULL
BEGIN
    CREATE TABLE tbNucPackage (
        Code varchar(10) NOT NULL,
        PackageLetter varchar(1) NOT NULL DEFAULT '',
        Description varchar(100) NOT NULL DEFAULT '',
        Status bit NOT NULL DEFAULT 1,
        CONSTRAINT PK_NucPackage PRIMARY KEY (Code)
    )
END
GO

-- ItemStatus: '1' selected, '2' un-used. Amount is for the whole quantity.
IF OBJECT_ID('tbNucPackageItem') IS NULL
BEGIN
    CREATE TABLE tbNucPackageItem (
        Code varchar(10) NOT NULL,
        LineNum int NOT NULL,
        ItemID varchar(20) NOT NULL DEFAULT '',
        RevenueID varchar(4) NOT NULL DEFAULT '',
        Description varchar(100) NOT NULL DEFAULT '',
        Quantity float NOT NULL DEFAULT 1,
        Amount money NOT NULL DEFAULT 0,
        LocationID varchar(10) NOT NULL DEFAULT '',
        ItemStatus varchar(1) NOT NULL DEFAULT '1',
        CONSTRAINT PK_NucPackageItem PRIMARY KEY (Code, LineNum)
    )
END
GO

-- Requests bought in advance at another office.
IF OBJECT_ID('tbNucPrepaid') IS NULL
BEGIN
    CREATE TABLE tbNucPrepaid (
        RequestNum varchar(20) NOT NULL,
        RefNum varchar(20) NOT NULL DEFAULT '',
        HospNum varchar(20) NOT NULL DEFAULT '',
        IdNum varchar(20) NOT NULL DEFAULT '',
        RevenueID varchar(4) NOT NULL DEFAULT '',
        ItemID varchar(20) NOT NULL DEFAULT '',
        Quantity float NOT NULL DEFAULT 1,
        Amount money NOT NULL DEFAULT 0,
        DoctorID varchar(10) NOT NULL DEFAULT '',
        TransDate datetime NOT NULL,
        UserID varchar(10) NOT NULL DEFAULT '',
        PrintStatus varchar(1) NOT NULL DEFAULT '',
        PrintDate datetime NULL,
        CONSTRAINT PK_NucPrepaid PRIMARY KEY (RequestNum)
    )
    CREATE INDEX IX_NucPrepaid_RefNum ON tbNucPrepaid (RefNum)
    CREATE INDEX IX_NucPrepaid_PrintStatus ON tbNucPrepaid (PrintStatus)
END
GO

-- What the section said to a notice of discharge.
IF OBJECT_ID('tbNucDischargeClearance') IS NULL
BEGIN
    CREATE TABLE tbNucDischargeClearance (
        IdNum varchar(20) NOT NULL,
        ClearDate datetime NULL,
        ClearRemarks varchar(500) NOT NULL DEFAULT '',
        UserID varchar(10) NOT NULL DEFAULT '',
        CONSTRAINT PK_NucDischargeClearance PRIMARY KEY (IdNum)
    )
END
GO

-- Catalogue of rights. Status 'A' active, 'I' inactive.
IF OBJECT_ID('tbNuclearUserSettings') IS NULL
BEGIN
    CREATE TABLE tbNuclearUserSettings (
        ItemID varchar(2) NOT NULL,
        Description varchar(100) NOT NULL DEFAULT '',
        Status varchar(1) NOT NULL DEFAULT 'A',
        CONSTRAINT PK_NuclearUserSettings PRIMARY KEY (ItemID)
    )
END
GO

-- EmployeeRights: ItemIDs, each led by a vertical bar.
IF OBJECT_ID('tbNuclearUserRights') IS NULL
BEGIN
    CREATE TABLE tbNuclearUserRights (
        EmployeeID varchar(10) NOT NULL,
        EmployeeRights varchar(500) NOT NULL DEFAULT '',
        UserID varchar(10) NOT NULL DEFAULT '',
        UpdateDate datetime NULL,
        CONSTRAINT PK_NuclearUserRights PRIMARY KEY (EmployeeID)
    )
END
GO

-- The rights last asked for, a set for each session of each workstation; read through the view tbNuclearDumpUserRights.
IF OBJECT_ID('tbNuclearSessionRights') IS NULL
BEGIN
    CREATE TABLE tbNuclearSessionRights (
        Workstation varchar(128) NOT NULL,
        SessionID int NOT NULL,
        RightsID varchar(2) NOT NULL,
        DumpDate datetime NOT NULL,
        CONSTRAINT PK_NuclearSessionRights PRIMARY KEY (Workstation, SessionID, RightsID)
    )
END
GO
