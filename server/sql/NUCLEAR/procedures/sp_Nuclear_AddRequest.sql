-- A supply that a ward asked for comes twice in one save, under one number: the second call completes the first. The
-- same number of another save or of another patient is refused by the key.
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
INSERT INTO tbNucMaster (RequestNum, HospNum, IdNum, ItemID, RevenueID, PatientType, RefNum, NurseRequestNum, Quantity,
    Amount, RequestDocCode, UserID, TransDate, Remarks, Classification)
VALUES (@RequestNum, @HospNum, @IdNum, @ItemID, @RevenueID, @PatientType, @RefNum, @NurseRequestNum, @Quantity,
    @Amount, @RequestDocCode, @UserID, GETDATE(), @Remarks, @Classification)
GO
