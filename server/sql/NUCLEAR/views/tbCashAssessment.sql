USE NUCLEAR
GO

CREATE OR ALTER VIEW tbCashAssessment
AS
SELECT AssessID, HospNum, IdNum, PatientName, TransDate, RequestNum, ItemID, Amount, UserID, RefNum, RevenueID,
    SectionID, DoctorID, Quantity, ORNumber, RecordStatus
FROM BILLING..tbCashAssessment
GO
