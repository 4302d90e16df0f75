-- Lays one line of a posted slip ready for the report, and clears away what is not of that slip, or not any more.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_ChargesbySlip
    @RefNum varchar(20),
    @ItemID varchar(20),
    @UserID varchar(10)
AS
SET NOCOUNT ON
DELETE FROM tbNucChargeSlip
WHERE RefNum <> @RefNum OR ItemID = @ItemID OR ItemID NOT IN (SELECT L.ItemID FROM STATION..tbNurseLogBook L
    WHERE L.ReferenceNum = @RefNum AND L.RecordStatus <> 'R')
INSERT INTO tbNucChargeSlip (ItemID, Description, Quantity, Price, Amount, UserID, RevenueID, RefNum)
SELECT ItemID, Description, Quantity, CASE WHEN Quantity = 0 THEN Amount ELSE Amount / Quantity END, Amount, @UserID,
    RevenueID, @RefNum
FROM STATION..tbNurseLogBook
WHERE ReferenceNum = @RefNum AND ItemID = @ItemID AND RecordStatus <> 'R'
GO
