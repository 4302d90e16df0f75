USE BUILD_FILE
GO

CREATE OR ALTER PROCEDURE sp_Bui_Show_Item_Details
    @RevenueID varchar(4),
    @NucExamID varchar(10)
AS
SET NOCOUNT ON
SELECT NucExamID, NucExam, RateA, RateB, RateC, RateD, RateE, Common AS common, Status, Fixrate, MedicareType,
    NucSectionID
FROM tbcoNucExam
WHERE NucExamID = @NucExamID AND @RevenueID = 'NU'
GO
