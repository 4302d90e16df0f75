-- A cancelled line takes back what a reader was paid for it, once.
USE CARDIO
GO

CREATE OR ALTER PROCEDURE spGlobal_CashUpdate
    @RefNum varchar(20),
    @SectionID varchar(4),
    @ItemID varchar(20),
    @Remarks varchar(100)
AS
SET NOCOUNT ON
-- A second desk waits here until the first one has committed.
INSERT INTO tbReaderPayment (DoctorID, RevenueID, RefNum, ItemID, Amount, PaidDate, UserID)
SELECT DoctorID, RevenueID, RefNum, ItemID, -SUM(Amount), GETDATE(), ''
FROM tbReaderPayment WITH (UPDLOCK, HOLDLOCK)
WHERE RefNum = @RefNum AND ItemID = @ItemID
GROUP BY DoctorID, RevenueID, RefNum, ItemID
HAVING SUM(Amount) > 0
EXEC NUCLEAR..sp_Nuclear_MarkCancelled @RefNum, '', @ItemID
GO
