-- A cancelled line takes back what a reader was paid for it.
USE CARDIO
GO

CREATE OR ALTER PROCEDURE spGlobal_CashUpdate
    @RefNum varchar(20),
    @SectionID varchar(4),
    @ItemID varchar(20),
    @Remarks varchar(100)
AS
SET NOCOUNT ON
INSERT INTO tbReaderPayment (DoctorID, RevenueID, RefNum, ItemID, Amount, PaidDate, UserID)
SELECT DoctorID, RevenueID, RefNum, ItemID, -SUM(Amount), GETDATE(), ''
FROM tbReaderPayment
WHERE RefNum = @RefNum AND ItemID = @ItemID
GROUP BY DoctorID, RevenueID, RefNum, ItemID
HAVING SUM(Amount) > 0
GO
