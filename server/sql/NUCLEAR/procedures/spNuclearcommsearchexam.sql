-- The waiting requests for one out-patient.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spNuclearcommsearchexam
    @IdNum varchar(20)
AS
SET NOCOUNT ON
SELECT C.RevenueID, C.ItemID, E.NucExam AS Exam, C.Amount, C.Quantity, C.RequestNum
FROM STATION..tbNurseCommunicationFile C
LEFT JOIN BUILD_FILE..tbcoNucExam E ON E.NucExamID = C.ItemID
WHERE C.IdNum = @IdNum AND C.RecordStatus = 'N' AND C.RevenueID = 'NU'
ORDER BY C.CommunicationID
GO
