-- Requests of the wards that a department has not processed yet for a stay.
USE RADIOLOGY
GO

CREATE OR ALTER PROCEDURE spRadio_PendingRequestPatient
    @IdNum varchar(20),
    @RevenueID varchar(4)
AS
SET NOCOUNT ON
SELECT CommunicationID, RequestNum, ItemID, RequestDate
FROM STATION..tbNurseCommunicationFile
WHERE IdNum = @IdNum AND RevenueID = @RevenueID AND RecordStatus = 'N'
GO
