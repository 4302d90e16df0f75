-- All exams, in the columns of the exam file screen; the first is not shown.
USE BUILD_FILE
GO

CREATE OR ALTER PROCEDURE sp_Bui_Find_Revenue_Center_Items
    @RevenueID varchar(4)
AS
SET NOCOUNT ON
SELECT '' AS Dummy, NucExam, NucExamID, NucSectionID, RateA, RateB, RateC, RateD, RateE, Fixrate, Status
FROM tbcoNucExam
WHERE @RevenueID = 'NU'
ORDER BY NucExam
GO
