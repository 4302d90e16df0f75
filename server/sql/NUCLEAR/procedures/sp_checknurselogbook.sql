-- The log-book entry of a line, to be written back. @Mode as in sp_checknursecommunicationfile.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_checknurselogbook
    @Mode varchar(1),
    @PatientType varchar(1),
    @IdNum varchar(20),
    @RevenueID varchar(4),
    @ItemID varchar(20),
    @RequestNum varchar(20)
AS
SET NOCOUNT ON
IF @Mode = '0'
    SELECT TOP 1 LogBookID, IdNum, RequestNum, ItemID, ReferenceNum AS referencenum, RecordStatus,
        ProcessBy AS processby, ProcessDate AS processdate
    FROM STATION..tbNurseLogBook
    WHERE RequestNum = @RequestNum AND IdNum = @IdNum AND RevenueID = @RevenueID AND ItemID = @ItemID
        AND PatientType = @PatientType AND RecordStatus = 'N'
    ORDER BY LogBookID
ELSE
    SELECT TOP 1 LogBookID, IdNum, RequestNum, ItemID, ReferenceNum AS referencenum, RecordStatus,
        ProcessBy AS processby, ProcessDate AS processdate
    FROM STATION..tbNurseLogBook
    WHERE RequestNum = @RequestNum AND IdNum = @IdNum AND RevenueID = @RevenueID AND ItemID = @ItemID
        AND RecordStatus <> 'R'
    ORDER BY LogBookID
GO
