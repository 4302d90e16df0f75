-- The heading row, to be changed to the hospital's own, and the walk-in series.
USE PATIENT_DATA
GO

IF NOT EXISTS (SELECT 1 FROM tbHospitalInfo)
    INSERT INTO tbHospitalInfo (HospitalID, Company, Address1, Title, TinNo, OPDPassword)
    VALUES (1, 'Hospital', '', '', '', '')
GO

-- Where there are some already a new row would give their numbers out again: it is for the DBA to fill.
IF NOT EXISTS (SELECT 1 FROM tbLastWalkInNum) AND NOT EXISTS (SELECT 1 FROM tbCashPatient)
    INSERT INTO tbLastWalkInNum (WalkInNumID, lastopd, transnum)
    VALUES (1, 'W1000', 1000)
GO
