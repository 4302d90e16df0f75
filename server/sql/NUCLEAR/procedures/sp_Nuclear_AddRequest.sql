-- A supply that a ward asked for comes twice in one save, under one number: the second call completes the first. The
-- same number of another save or of another patient is refused by the key. A line that a ward asked for is taken once,
-- and so is a line of a receipt: the second of two desks gets the error, and nothing of its save is kept.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_AddRequest
    @HospNum varchar(20),
    @IdNum varchar(20),
    @RequestNum varchar(20),
    @ItemID varchar(20),
    @Amount money,
    @RequestDocCode varchar(10),
    @PatientType varchar(1),
    @RefNum varchar(20),
    @UserID varchar(10),
    @NurseRequestNum varchar(20),
    @Remarks varchar(200),
    @Quantity float,
    @Classification varchar(10),
    @RevenueID varchar(4)
AS
SET NOCOUNT ON
UPDATE tbNucMaster SET NurseRequestNum = @NurseRequestNum, Quantity = @Quantity, Amount = @Amount
WHERE RequestNum = @RequestNum AND HospNum = @HospNum AND IdNum = @IdNum AND RefNum = @RefNum AND ItemID = @ItemID
IF @@ROWCOUNT = 0
BEGIN
    IF EXISTS (SELECT 1 FROM STATION..tbNurseCommunicationFile
            WHERE RequestNum = @NurseRequestNum AND IdNum = @IdNum AND RevenueID = @RevenueID AND ItemID = @ItemID
                AND RecordStatus <> 'N')
        AND NOT EXISTS (SELECT 1 FROM STATION..tbNurseCommunicationFile
            WHERE RequestNum = @NurseRequestNum AND IdNum = @IdNum AND RevenueID = @RevenueID AND ItemID = @ItemID
                AND RecordStatus = 'N')
        THROW 50004, 'The request of the ward was processed or revoked meanwhile.', 1;
    IF EXISTS (SELECT 1 FROM BILLING..tbCashAssessment
            WHERE ORNumber = @RefNum AND ItemID = @ItemID AND RecordStatus = '1')
        AND (SELECT COUNT(*) FROM tbNucMaster
            WHERE RefNum = @RefNum AND ItemID = @ItemID AND RequestStatus <> 'R')
            >= (SELECT COUNT(*) FROM BILLING..tbCashAssessment
            WHERE ORNumber = @RefNum AND ItemID = @ItemID AND RecordStatus = '1')
        THROW 50005, 'The request of this receipt was filed meanwhile.', 1;
    INSERT INTO tbNucMaster (RequestNum, HospNum, IdNum, ItemID, RevenueID, PatientType, RefNum, NurseRequestNum,
        Quantity, Amount, RequestDocCode, UserID, TransDate, Remarks, Classification)
    VALUES (@RequestNum, @HospNum, @IdNum, @ItemID, @RevenueID, @PatientType, @RefNum, @NurseRequestNum, @Quantity,
        @Amount, @RequestDocCode, @UserID, GETDATE(), @Remarks, @Classification)
END
GO
