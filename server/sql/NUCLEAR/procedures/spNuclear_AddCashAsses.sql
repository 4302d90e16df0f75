USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spNuclear_AddCashAsses
    @HospNum varchar(20),
    @IdNum varchar(20),
    @PatientName varchar(160),
    @TransDate datetime,
    @RequestNum varchar(20),
    @ItemID varchar(20),
    @Amount money,
    @UserID varchar(10),
    @RefNum varchar(20),
    @RevenueID varchar(4),
    @SectionID varchar(4),
    @DoctorID varchar(10),
    @Quantity float
AS
SET NOCOUNT ON
INSERT INTO BILLING..tbCashAssessment (HospNum, IdNum, PatientName, TransDate, RequestNum, ItemID, Amount, UserID,
    RefNum, RevenueID, SectionID, DoctorID, Quantity)
VALUES (@HospNum, @IdNum, @PatientName, @TransDate, @RequestNum, @ItemID, @Amount, @UserID,
    @RefNum, @RevenueID, @SectionID, @DoctorID, @Quantity)
GO
