USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_CancelNurseRequest
    @IdNum varchar(20),
    @RequestNum varchar(20)
AS
SET NOCOUNT ON
UPDATE STATION..tbNurseCommunicationFile
SET RecordStatus = 'R', ProcessDate = GETDATE()
WHERE RequestNum = @RequestNum AND IdNum = @IdNum AND RevenueID = 'NU' AND RecordStatus = 'N'
UPDATE STATION..tbNurseLogBook
SET RecordStatus = 'R', ProcessDate = GETDATE()
WHERE RequestNum = @RequestNum AND IdNum = @IdNum AND RevenueID = 'NU' AND RecordStatus = 'N'
GO
