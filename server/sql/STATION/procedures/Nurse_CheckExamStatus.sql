-- Is the item already asked for and not yet acted on? One row: the latest request.
USE STATION
GO

CREATE OR ALTER PROCEDURE Nurse_CheckExamStatus
    @IdNum varchar(20),
    @ItemID varchar(20),
    @RequestType varchar(2)
AS
SET NOCOUNT ON
SELECT TOP 1 LogBookID, RequestNum, ItemID, Description, RequestDate, UserID
FROM tbNurseLogBook
WHERE IdNum = @IdNum AND ItemID = @ItemID AND RequestType = @RequestType AND RecordStatus = 'N'
ORDER BY RequestDate DESC
GO
