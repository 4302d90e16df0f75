-- A new exam is generic and priced alike for out-patients and HMOs until the file is told otherwise.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Bui_Insert_Item
    @RevenueID varchar(4),
    @NucExamID varchar(10),
    @NucExam varchar(100),
    @RateA money,
    @RateB money,
    @RateC money,
    @RateD money,
    @RateE money,
    @Fixrate varchar(1),
    @Status varchar(1),
    @MedicareType varchar(1),
    @Common varchar(1)
AS
SET NOCOUNT ON
INSERT INTO BUILD_FILE..tbcoNucExam (NucExamID, NucExam, SectionID, FormType, Classification, RateA, RateB, RateC, RateD,
    RateE, RateH, Outpatient, Fixrate, Common, MedicareType, Status)
VALUES (@NucExamID, @NucExam, 'IMG', '', 'A', @RateA, @RateB, @RateC, @RateD,
    @RateE, @RateA, @RateA, @Fixrate, @Common, @MedicareType, @Status)
GO
