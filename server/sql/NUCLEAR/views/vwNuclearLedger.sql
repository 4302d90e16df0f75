-- What an account was charged and paid, one row a line: the bill, the stock card, deposits. Kind 'C' a charge, 'R' its
-- reversal or an item taken back, 'P' a payment. Charge and Credit are positive, Amount is what the line adds to the
-- balance. What a cash patient pays for an assessment never touches an account.
USE NUCLEAR
GO

CREATE OR ALTER VIEW vwNuclearLedger
AS
SELECT B.IdNum, B.TransDate, 1 AS Source, B.BillID AS LineID, B.RevenueID,
    CASE WHEN B.Marker = 'D' OR B.Amount < 0 THEN 'R' ELSE 'C' END AS Kind, B.RefNum, B.ItemID,
    ISNULL(E.NucExam, ISNULL('DR. ' + D.FirstName + ' ' + D.LastName, ISNULL(I.ItemName, B.ItemID))) AS Description,
    B.Quantity, CASE WHEN B.Amount < 0 THEN 0 ELSE B.Amount END AS Charge,
    CASE WHEN B.Amount < 0 THEN -B.Amount ELSE 0 END AS Credit, B.Amount
FROM BILLING..tbDailyBill B
LEFT JOIN BUILD_FILE..tbcoNucExam E ON E.NucExamID = B.ItemID AND B.RevenueID = 'NU'
LEFT JOIN BUILD_FILE..tbcoDoctor D ON D.DoctorID = B.ItemID AND B.RevenueID IN ('MD', 'FN')
LEFT JOIN INVENTORY..tbInvMaster I ON I.ItemID = B.ItemID AND B.RevenueID NOT IN ('NU', 'MD', 'FN')
UNION ALL
SELECT K.IdNum, K.TransDate, 2, K.StockCardID, CASE WHEN K.StockClass = 'PH' THEN 'MN' ELSE 'UR' END,
    CASE WHEN K.Direction = 'I' THEN 'R' ELSE 'C' END, K.RefNum, K.ItemID, ISNULL(I.ItemName, K.ItemID), K.Quantity,
    CASE WHEN K.Direction = 'I' THEN 0 ELSE K.Amount END, CASE WHEN K.Direction = 'I' THEN ABS(K.Amount) ELSE 0 END,
    CASE WHEN K.Direction = 'I' THEN -ABS(K.Amount) ELSE K.Amount END
FROM INVENTORY..tbInvStockCard K
LEFT JOIN INVENTORY..tbInvMaster I ON I.ItemID = K.ItemID
UNION ALL
SELECT P.IdNum, P.TransDate, 3, P.DepositID, '', 'P', P.ORNumber, '', 'DEPOSIT', 1, 0, P.Amount, -P.Amount
FROM BILLING..tbDeposit P
GO
