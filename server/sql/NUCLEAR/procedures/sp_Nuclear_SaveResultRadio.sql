-- A radio-immunoassay result, new or changed. Each analyte has two boxes; the first one that holds something is the
-- result, and the second series is kept beside it. The last value of the first series is no analyte's own.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_SaveResultRadio
    @HospNum varchar(20),
    @IdNum varchar(20),
    @RequestNum varchar(20),
    @CaseNumber varchar(20),
    @PatientType varchar(1),
    @AttendingDocCode varchar(10),
    @RequestDocCode varchar(10),
    @ItemID varchar(20),
    @Dose varchar(50),
    @Radiopharmaceutical varchar(200),
    @Route varchar(100),
    @Projections varchar(200),
    @Weight varchar(20),
    @Height varchar(20),
    @UserID varchar(10),
    @ResultDate datetime,
    @FirstCalcitonin varchar(100),
    @FirstAntiTG varchar(100),
    @FirstTG varchar(100),
    @FirstAntiTPO varchar(100),
    @FirstTSH varchar(100),
    @FirstFreeT4 varchar(100),
    @FirstFreeT3 varchar(100),
    @FirstT4 varchar(100),
    @FirstT3 varchar(100),
    @FirstProgesterone varchar(100),
    @FirstCortisol varchar(100),
    @FirstDHEA varchar(100),
    @FirstHGH varchar(100),
    @FirstHLH varchar(100),
    @FirstHFSH varchar(100),
    @FirstAFP varchar(100),
    @FirstBHCG varchar(100),
    @FirstPSA varchar(100),
    @FirstOsteocalcin varchar(100),
    @FirstCPeptide varchar(100),
    @FirstSHBG varchar(100),
    @FirstLast varchar(100),
    @SecondCalcitonin varchar(100),
    @SecondAntiTG varchar(100),
    @SecondTG varchar(100),
    @SecondAntiTPO varchar(100),
    @SecondTSH varchar(100),
    @SecondFreeT4 varchar(100),
    @SecondFreeT3 varchar(100),
    @SecondT4 varchar(100),
    @SecondT3 varchar(100),
    @SecondProgesterone varchar(100),
    @SecondCortisol varchar(100),
    @SecondDHEA varchar(100),
    @SecondHGH varchar(100),
    @SecondHLH varchar(100),
    @SecondHFSH varchar(100),
    @SecondAFP varchar(100),
    @SecondBHCG varchar(100),
    @SecondPSA varchar(100),
    @SecondOsteocalcin varchar(100),
    @SecondCPeptide varchar(100),
    @SecondSHBG varchar(100),
    @SecondInsulin varchar(100),
    @Technologist varchar(100)
AS
SET NOCOUNT ON
EXEC sp_Nuclear_FileResult @RequestNum, @CaseNumber, @HospNum, @IdNum, @PatientType, @ItemID, @AttendingDocCode, @RequestDocCode,
    @UserID, @ResultDate
UPDATE tbNucRadioResult
SET HospNum = @HospNum, IdNum = @IdNum, CaseNumber = @CaseNumber, PatientType = @PatientType, AttendingDocCode =
    @AttendingDocCode, RequestDocCode = @RequestDocCode, ItemID = @ItemID, Dose = @Dose, Radiopharmaceutical =
    @Radiopharmaceutical, Route = @Route, Projections = @Projections, Weight = @Weight, Height = @Height, UserID =
    @UserID, ResultDate = @ResultDate, Calcitonin = ISNULL(NULLIF(@FirstCalcitonin, ''), @SecondCalcitonin), AntiTG
    = ISNULL(NULLIF(@FirstAntiTG, ''), @SecondAntiTG), TG = ISNULL(NULLIF(@FirstTG, ''), @SecondTG), AntiTPO =
    ISNULL(NULLIF(@FirstAntiTPO, ''), @SecondAntiTPO), TSH = ISNULL(NULLIF(@FirstTSH, ''), @SecondTSH), FreeT4 =
    ISNULL(NULLIF(@FirstFreeT4, ''), @SecondFreeT4), FreeT3 = ISNULL(NULLIF(@FirstFreeT3, ''), @SecondFreeT3), T4 =
    ISNULL(NULLIF(@FirstT4, ''), @SecondT4), T3 = ISNULL(NULLIF(@FirstT3, ''), @SecondT3), Progesterone =
    ISNULL(NULLIF(@FirstProgesterone, ''), @SecondProgesterone), Cortisol = ISNULL(NULLIF(@FirstCortisol, ''),
    @SecondCortisol), DHEA = ISNULL(NULLIF(@FirstDHEA, ''), @SecondDHEA), HGH = ISNULL(NULLIF(@FirstHGH, ''),
    @SecondHGH), HLH = ISNULL(NULLIF(@FirstHLH, ''), @SecondHLH), HFSH = ISNULL(NULLIF(@FirstHFSH, ''),
    @SecondHFSH), AFP = ISNULL(NULLIF(@FirstAFP, ''), @SecondAFP), BHCG = ISNULL(NULLIF(@FirstBHCG, ''),
    @SecondBHCG), PSA = ISNULL(NULLIF(@FirstPSA, ''), @SecondPSA), Osteocalcin = ISNULL(NULLIF(@FirstOsteocalcin,
    ''), @SecondOsteocalcin), CPeptide = ISNULL(NULLIF(@FirstCPeptide, ''), @SecondCPeptide), SHBG =
    ISNULL(NULLIF(@FirstSHBG, ''), @SecondSHBG), Insulin = @SecondInsulin, Technologist = @Technologist
WHERE RequestNum = @RequestNum
IF @@ROWCOUNT = 0
    INSERT INTO tbNucRadioResult (RequestNum,
        HospNum, IdNum, CaseNumber, PatientType, AttendingDocCode, RequestDocCode, ItemID, Dose,
        Radiopharmaceutical, Route, Projections, Weight, Height, UserID, ResultDate, Calcitonin, AntiTG, TG,
        AntiTPO, TSH, FreeT4, FreeT3, T4, T3, Progesterone, Cortisol, DHEA, HGH, HLH, HFSH, AFP, BHCG, PSA,
        Osteocalcin, CPeptide, SHBG, Insulin, Technologist)
    VALUES (@RequestNum,
        @HospNum, @IdNum, @CaseNumber, @PatientType, @AttendingDocCode, @RequestDocCode, @ItemID, @Dose,
        @Radiopharmaceutical, @Route, @Projections, @Weight, @Height, @UserID, @ResultDate,
        ISNULL(NULLIF(@FirstCalcitonin, ''), @SecondCalcitonin), ISNULL(NULLIF(@FirstAntiTG, ''), @SecondAntiTG),
        ISNULL(NULLIF(@FirstTG, ''), @SecondTG), ISNULL(NULLIF(@FirstAntiTPO, ''), @SecondAntiTPO),
        ISNULL(NULLIF(@FirstTSH, ''), @SecondTSH), ISNULL(NULLIF(@FirstFreeT4, ''), @SecondFreeT4),
        ISNULL(NULLIF(@FirstFreeT3, ''), @SecondFreeT3), ISNULL(NULLIF(@FirstT4, ''), @SecondT4),
        ISNULL(NULLIF(@FirstT3, ''), @SecondT3), ISNULL(NULLIF(@FirstProgesterone, ''), @SecondProgesterone),
        ISNULL(NULLIF(@FirstCortisol, ''), @SecondCortisol), ISNULL(NULLIF(@FirstDHEA, ''), @SecondDHEA),
        ISNULL(NULLIF(@FirstHGH, ''), @SecondHGH), ISNULL(NULLIF(@FirstHLH, ''), @SecondHLH),
        ISNULL(NULLIF(@FirstHFSH, ''), @SecondHFSH), ISNULL(NULLIF(@FirstAFP, ''), @SecondAFP),
        ISNULL(NULLIF(@FirstBHCG, ''), @SecondBHCG), ISNULL(NULLIF(@FirstPSA, ''), @SecondPSA),
        ISNULL(NULLIF(@FirstOsteocalcin, ''), @SecondOsteocalcin), ISNULL(NULLIF(@FirstCPeptide, ''),
        @SecondCPeptide), ISNULL(NULLIF(@FirstSHBG, ''), @SecondSHBG), @SecondInsulin, @Technologist)
UPDATE tbNucResultRadio
SET HospNum = @HospNum, IdNum = @IdNum, CaseNumber = @CaseNumber, PatientType = @PatientType, AttendingDocCode =
    @AttendingDocCode, RequestDocCode = @RequestDocCode, ItemID = @ItemID, Dose = @Dose, Radiopharmaceutical =
    @Radiopharmaceutical, Route = @Route, Projections = @Projections, Weight = @Weight, Height = @Height, UserID =
    @UserID, ResultDate = @ResultDate, Calcitonin = @SecondCalcitonin, AntiTG = @SecondAntiTG, TG = @SecondTG,
    AntiTPO = @SecondAntiTPO, TSH = @SecondTSH, FreeT4 = @SecondFreeT4, FreeT3 = @SecondFreeT3, T4 = @SecondT4, T3 =
    @SecondT3, Progesterone = @SecondProgesterone, Cortisol = @SecondCortisol, DHEA = @SecondDHEA, HGH = @SecondHGH,
    HLH = @SecondHLH, HFSH = @SecondHFSH, AFP = @SecondAFP, BHCG = @SecondBHCG, PSA = @SecondPSA, Osteocalcin =
    @SecondOsteocalcin, CPeptide = @SecondCPeptide, SHBG = @SecondSHBG, Insulin = @SecondInsulin, Technologist =
    @Technologist
WHERE RequestNum = @RequestNum
IF @@ROWCOUNT = 0
    INSERT INTO tbNucResultRadio (RequestNum,
        HospNum, IdNum, CaseNumber, PatientType, AttendingDocCode, RequestDocCode, ItemID, Dose,
        Radiopharmaceutical, Route, Projections, Weight, Height, UserID, ResultDate, Calcitonin, AntiTG, TG,
        AntiTPO, TSH, FreeT4, FreeT3, T4, T3, Progesterone, Cortisol, DHEA, HGH, HLH, HFSH, AFP, BHCG, PSA,
        Osteocalcin, CPeptide, SHBG, Insulin, Technologist)
    VALUES (@RequestNum,
        @HospNum, @IdNum, @CaseNumber, @PatientType, @AttendingDocCode, @RequestDocCode, @ItemID, @Dose,
        @Radiopharmaceutical, @Route, @Projections, @Weight, @Height, @UserID, @ResultDate, @SecondCalcitonin,
        @SecondAntiTG, @SecondTG, @SecondAntiTPO, @SecondTSH, @SecondFreeT4, @SecondFreeT3, @SecondT4, @SecondT3,
        @SecondProgesterone, @SecondCortisol, @SecondDHEA, @SecondHGH, @SecondHLH, @SecondHFSH, @SecondAFP,
        @SecondBHCG, @SecondPSA, @SecondOsteocalcin, @SecondCPeptide, @SecondSHBG, @SecondInsulin, @Technologist)
GO
