-- A ward's waiting requests for one admitted patient and one classification.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_commsearchexam
    @IdNum varchar(20),
    @Classification varchar(10)
AS
SET NOCOUNT ON
SELECT C.RevenueID, C.ItemID, E.NucExam AS Exam, C.Amount, C.Quantity, C.RequestNum
FROM STATION..tbNurseCommunicationFile C
LEFT JOIN BUILD_FILE..tbcoNucExam E ON E.NucExamID = C.ItemID
WHERE C.IdNum = @IdNum AND C.RecordStatus = 'N' AND C.RevenueID = 'NU' AND C.Classification = @Classification
ORDER BY C.CommunicationID
GO
