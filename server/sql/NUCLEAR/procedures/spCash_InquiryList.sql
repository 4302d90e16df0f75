USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spCash_InquiryList
    @ORNumber varchar(20)
AS
SET NOCOUNT ON
SELECT ORNumber AS [Receipt #], PaymentFrom AS [Payment From], TransDate AS [transaction Date], Amount,
    TransactionType AS [Transaction Type]
FROM BILLING..tbCashReceipt
WHERE ORNumber = @ORNumber
GO
