-- A radio-immunoassay result, new or changed. Each analyte has two boxes; the first one that holds more than blanks is
-- the result, and the second series is kept beside it. The last value of the first series is no analyte's own.
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
    @Dose varchar(max),
    @Radiopharmaceutical varchar(max),
    @Route varchar(max),
    @Projections varchar(max),
    @Weight varchar(max),
    @Height varchar(max),
    @UserID varchar(10),
    @ResultDate datetime,
    @FirstCalcitonin varchar(max),
    @FirstAntiTG varchar(max),
    @FirstTG varchar(max),
    @FirstAntiTPO varchar(max),
    @FirstTSH varchar(max),
    @FirstFreeT4 varchar(max),
    @FirstFreeT3 varchar(max),
    @FirstT4 varchar(max),
    @FirstT3 varchar(max),
    @FirstProgesterone varchar(max),
    @FirstCortisol varchar(max),
    @FirstDHEA varchar(max),
    @FirstHGH varchar(max),
    @FirstHLH varchar(max),
    @FirstHFSH varchar(max),
    @FirstAFP varchar(max),
    @FirstBHCG varchar(max),
    @FirstPSA varchar(max),
    @FirstOsteocalcin varchar(max),
    @FirstCPeptide varchar(max),
    @FirstSHBG varchar(max),
    @FirstLast varchar(max),
    @SecondCalcitonin varchar(max),
    @SecondAntiTG varchar(max),
    @SecondTG varchar(max),
    @SecondAntiTPO varchar(max),
    @SecondTSH varchar(max),
    @SecondFreeT4 varchar(max),
    @SecondFreeT3 varchar(max),
    @SecondT4 varchar(max),
    @SecondT3 varchar(max),
    @SecondProgesterone varchar(max),
    @SecondCortisol varchar(max),
    @SecondDHEA varchar(max),
    @SecondHGH varchar(max),
    @SecondHLH varchar(max),
    @SecondHFSH varchar(max),
    @SecondAFP varchar(max),
    @SecondBHCG varchar(max),
    @SecondPSA varchar(max),
    @SecondOsteocalcin varchar(max),
    @SecondCPeptide varchar(max),
    @SecondSHBG varchar(max),
    @SecondInsulin varchar(max),
    @Technologist varchar(max)
AS
SET NOCOUNT ON
EXEC sp_Nuclear_FileResult @RequestNum, @CaseNumber, @HospNum, @IdNum, @PatientType, @ItemID, @AttendingDocCode, @RequestDocCode,
    @UserID, @ResultDate
UPDATE tbNucRadioResult
SET HospNum = @HospNum, IdNum = @IdNum, CaseNumber = @CaseNumber, PatientType = @PatientType, AttendingDocCode =
    @AttendingDocCode, RequestDocCode = @RequestDocCode, ItemID = @ItemID, Dose = @Dose, Radiopharmaceutical =
    @Radiopharmaceutical, Route = @Route, Projections = @Projections, Weight = @Weight, Height = @Height, UserID =
    @UserID, ResultDate = @ResultDate, Calcitonin = ISNULL(NULLIF(RTRIM(@FirstCalcitonin), ''), @SecondCalcitonin), AntiTG
    = ISNULL(NULLIF(RTRIM(@FirstAntiTG), ''), @SecondAntiTG), TG = ISNULL(NULLIF(RTRIM(@FirstTG), ''), @SecondTG), AntiTPO =
    ISNULL(NULLIF(RTRIM(@FirstAntiTPO), ''), @SecondAntiTPO), TSH = ISNULL(NULLIF(RTRIM(@FirstTSH), ''), @SecondTSH), FreeT4 =
    ISNULL(NULLIF(RTRIM(@FirstFreeT4), ''), @SecondFreeT4), FreeT3 = ISNULL(NULLIF(RTRIM(@FirstFreeT3), ''), @SecondFreeT3), T4 =
    ISNULL(NULLIF(RTRIM(@FirstT4), ''), @SecondT4), T3 = ISNULL(NULLIF(RTRIM(@FirstT3), ''), @SecondT3), Progesterone =
    ISNULL(NULLIF(RTRIM(@FirstProgesterone), ''), @SecondProgesterone), Cortisol = ISNULL(NULLIF(RTRIM(@FirstCortisol), ''),
    @SecondCortisol), DHEA = ISNULL(NULLIF(RTRIM(@FirstDHEA), ''), @SecondDHEA), HGH = ISNULL(NULLIF(RTRIM(@FirstHGH), ''),
    @SecondHGH), HLH = ISNULL(NULLIF(RTRIM(@FirstHLH), ''), @SecondHLH), HFSH = ISNULL(NULLIF(RTRIM(@FirstHFSH), ''),
    @SecondHFSH), AFP = ISNULL(NULLIF(RTRIM(@FirstAFP), ''), @SecondAFP), BHCG = ISNULL(NULLIF(RTRIM(@FirstBHCG), ''),
    @SecondBHCG), PSA = ISNULL(NULLIF(RTRIM(@FirstPSA), ''), @SecondPSA), Osteocalcin = ISNULL(NULLIF(RTRIM(@FirstOsteocalcin),
    ''), @SecondOsteocalcin), CPeptide = ISNULL(NULLIF(RTRIM(@FirstCPeptide), ''), @SecondCPeptide), SHBG =
    ISNULL(NULLIF(RTRIM(@FirstSHBG), ''), @SecondSHBG), Insulin = @SecondInsulin, Technologist = @Technologist
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
        ISNULL(NULLIF(RTRIM(@FirstCalcitonin), ''), @SecondCalcitonin), ISNULL(NULLIF(RTRIM(@FirstAntiTG), ''), @SecondAntiTG),
        ISNULL(NULLIF(RTRIM(@FirstTG), ''), @SecondTG), ISNULL(NULLIF(RTRIM(@FirstAntiTPO), ''), @SecondAntiTPO),
        ISNULL(NULLIF(RTRIM(@FirstTSH), ''), @SecondTSH), ISNULL(NULLIF(RTRIM(@FirstFreeT4), ''), @SecondFreeT4),
        ISNULL(NULLIF(RTRIM(@FirstFreeT3), ''), @SecondFreeT3), ISNULL(NULLIF(RTRIM(@FirstT4), ''), @SecondT4),
        ISNULL(NULLIF(RTRIM(@FirstT3), ''), @SecondT3), ISNULL(NULLIF(RTRIM(@FirstProgesterone), ''), @SecondProgesterone),
        ISNULL(NULLIF(RTRIM(@FirstCortisol), ''), @SecondCortisol), ISNULL(NULLIF(RTRIM(@FirstDHEA), ''), @SecondDHEA),
        ISNULL(NULLIF(RTRIM(@FirstHGH), ''), @SecondHGH), ISNULL(NULLIF(RTRIM(@FirstHLH), ''), @SecondHLH),
        ISNULL(NULLIF(RTRIM(@FirstHFSH), ''), @SecondHFSH), ISNULL(NULLIF(RTRIM(@FirstAFP), ''), @SecondAFP),
        ISNULL(NULLIF(RTRIM(@FirstBHCG), ''), @SecondBHCG), ISNULL(NULLIF(RTRIM(@FirstPSA), ''), @SecondPSA),
        ISNULL(NULLIF(RTRIM(@FirstOsteocalcin), ''), @SecondOsteocalcin), ISNULL(NULLIF(RTRIM(@FirstCPeptide), ''),
        @SecondCPeptide), ISNULL(NULLIF(RTRIM(@FirstSHBG), ''), @SecondSHBG), @SecondInsulin, @Technologist)
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
