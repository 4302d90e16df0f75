-- What a desk has processed meanwhile is not revoked here: it stands on the bill.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_CancelNurseRequest
    @IdNum varchar(20),
    @RequestNum varchar(20)
AS
SET NOCOUNT ON
IF EXISTS (SELECT 1 FROM STATION..tbNurseCommunicationFile
        WHERE RequestNum = @RequestNum AND IdNum = @IdNum AND RevenueID = 'NU' AND RecordStatus IN ('X', 'W'))
    AND NOT EXISTS (SELECT 1 FROM STATION..tbNurseCommunicationFile
        WHERE RequestNum = @RequestNum AND IdNum = @IdNum AND RevenueID = 'NU' AND RecordStatus = 'N')
    THROW 50004, 'The request of the ward was processed or revoked meanwhile.', 1;
UPDATE STATION..tbNurseCommunicationFile
SET RecordStatus = 'R', ProcessDate = GETDATE()
WHERE RequestNum = @RequestNum AND IdNum = @IdNum AND RevenueID = 'NU' AND RecordStatus = 'N'
UPDATE STATION..tbNurseLogBook
SET RecordStatus = 'R', ProcessDate = GETDATE()
WHERE RequestNum = @RequestNum AND IdNum = @IdNum AND RevenueID = 'NU' AND RecordStatus = 'N'
GO
