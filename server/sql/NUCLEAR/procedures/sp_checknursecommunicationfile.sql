-- The ward's entry of a line, to be written back. @Mode '0' the waiting one (posting), '1' one not revoked (cancelling).
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_checknursecommunicationfile
    @Mode varchar(1),
    @PatientType varchar(1),
    @RevenueID varchar(4),
    @ItemID varchar(20),
    @IdNum varchar(20),
    @RequestNum varchar(20)
AS
SET NOCOUNT ON
IF @Mode = '0'
    SELECT TOP 1 CommunicationID, IdNum, RequestNum, ItemID, ReferenceNum AS referencenum, RecordStatus,
        ProcessBy AS processby, ProcessDate AS processdate
    FROM STATION..tbNurseCommunicationFile
    WHERE RequestNum = @RequestNum AND IdNum = @IdNum AND RevenueID = @RevenueID AND ItemID = @ItemID
        AND PatientType = @PatientType AND RecordStatus = 'N'
    ORDER BY CommunicationID
ELSE
    SELECT TOP 1 CommunicationID, IdNum, RequestNum, ItemID, ReferenceNum AS referencenum, RecordStatus,
        ProcessBy AS processby, ProcessDate AS processdate
    FROM STATION..tbNurseCommunicationFile
    WHERE RequestNum = @RequestNum AND IdNum = @IdNum AND RevenueID = @RevenueID AND ItemID = @ItemID
        AND PatientType = @PatientType AND RecordStatus <> 'R'
    ORDER BY CommunicationID
GO
