USE BUILD_FILE
GO

CREATE OR ALTER PROCEDURE sp_Bui_Update_Item_Details
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
UPDATE tbcoNucExam
SET NucExam = @NucExam, RateA = @RateA, RateB = @RateB, RateC = @RateC, RateD = @RateD, RateE = @RateE,
    Fixrate = @Fixrate, Status = @Status, MedicareType = @MedicareType, Common = @Common
WHERE NucExamID = @NucExamID
GO
