-- One charge on a patient's bill. @Marker 'D': the reversal of a charge, its amount negative.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_addbill
    @PatientType varchar(1),
    @IdNum varchar(20),
    @TransDate datetime,
    @RefNum varchar(20),
    @ItemID varchar(20),
    @Amount money,
    @RevenueID varchar(4),
    @UserID varchar(10),
    @Quantity float,
    @SectionID varchar(4) = '',
    @Marker varchar(1) = '',
    @HospNum varchar(20) = ''
AS
SET NOCOUNT ON
IF @HospNum = ''
    SELECT @HospNum = HospNum FROM BILLING..tbDailyBill WHERE RefNum = @RefNum AND IdNum = @IdNum
INSERT INTO BILLING..tbDailyBill (PatientType, IdNum, HospNum, TransDate, RefNum, ItemID, RevenueID, SectionID,
    Quantity, Amount, UserID, Marker)
VALUES (@PatientType, @IdNum, @HospNum, @TransDate, @RefNum, @ItemID, @RevenueID, @SectionID,
    @Quantity, @Amount, @UserID, @Marker)
GO
