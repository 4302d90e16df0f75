-- Was the item acted on today? One row: the latest.
USE STATION
GO

CREATE OR ALTER PROCEDURE Nurse_CheckExam_Posted
    @IdNum varchar(20),
    @ItemID varchar(20),
    @RequestType varchar(2)
AS
SET NOCOUNT ON
SELECT TOP 1 LogBookID, RequestNum, ItemID, Description, ProcessDate, ProcessBy
FROM tbNurseLogBook
WHERE IdNum = @IdNum AND ItemID = @ItemID AND RequestType = @RequestType AND RecordStatus IN ('X', 'W')
    AND ProcessDate >= CONVERT(datetime, CONVERT(varchar(10), GETDATE(), 120), 120)
ORDER BY ProcessDate DESC
GO
