USE STATION
GO

CREATE OR ALTER VIEW tbNucLogBook
AS
SELECT LogBookID, CaseNumber, RequestNum, HospNum, IdNum, PatientType, ItemID, DoctorID, RequestDocCode, UserID,
    ResultDate, Status
FROM NUCLEAR..tbNucLogBook
GO
