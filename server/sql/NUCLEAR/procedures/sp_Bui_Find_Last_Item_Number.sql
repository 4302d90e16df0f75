USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Bui_Find_Last_Item_Number
    @RevenueID varchar(4)
AS
SET NOCOUNT ON
SELECT ISNULL(MAX(TRY_CAST(NucExamID AS int)), 0) AS lastnumber
FROM BUILD_FILE..tbcoNucExam
WHERE @RevenueID = 'NU'
GO
