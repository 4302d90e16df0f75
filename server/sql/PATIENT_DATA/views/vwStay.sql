-- Stays of admitted patients and of out-patients alike.
USE PATIENT_DATA
GO

CREATE OR ALTER VIEW vwStay
AS
SELECT IdNum, HospNum, AdmDate, DcrDate, BillingDate, RoomID, DoctorID1, AccountNum, Age, InvoiceNumber, LateCharges,
    'I' AS PatientType
FROM tbPatient
UNION ALL
SELECT IdNum, HospNum, AdmDate, DcrDate, BillingDate, 'OPD', DoctorID1, AccountNum, Age, InvoiceNumber, LateCharges,
    'O'
FROM tbOutPatient
GO
