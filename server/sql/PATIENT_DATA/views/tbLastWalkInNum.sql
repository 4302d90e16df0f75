-- The numbers of walk-in patients. Whoever reads them in a transaction holds them to its end: a number is read and advanced in two
-- statements, and nobody else may read in between.
USE PATIENT_DATA
GO

CREATE OR ALTER VIEW tbLastWalkInNum
AS
SELECT WalkInNumID, lastopd, transnum
FROM tbLastWalkInNumRow WITH (UPDLOCK, HOLDLOCK)
GO
