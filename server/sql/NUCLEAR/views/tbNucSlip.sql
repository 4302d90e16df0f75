-- The numbers of slips and requests. Whoever reads them in a transaction holds them to its end: a number is read and advanced in two
-- statements, and nobody else may read in between.
USE NUCLEAR
GO

CREATE OR ALTER VIEW tbNucSlip
AS
SELECT SlipID, ChargeSlip, RequestNum
FROM tbNucSlipRow WITH (UPDLOCK, HOLDLOCK)
GO
