-- Results read in a period, reader by reader, with the reader's share of what the exam was charged at. Percentage is
-- NULL where the reader has no rate.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_ReportReaders
    @From datetime,
    @To datetime
AS
SET NOCOUNT ON
SELECT B.DoctorID, D.LastName + ', ' + D.FirstName AS Reader, B.CaseNumber, B.ResultDate, L.PatientName, L.PatientKind,
    L.ItemID, L.Description, L.Amount, R.Percentage,
    ROUND(L.Amount * ISNULL(R.Percentage, 0) / 100, 2) AS Fee
FROM tbNucLogBook B
INNER JOIN vwNuclearFiledLine L ON L.RequestNum = B.RequestNum
LEFT JOIN BUILD_FILE..tbcoDoctor D ON D.DoctorID = B.DoctorID
LEFT JOIN CARDIO..tbReaderRate R ON R.DoctorID = B.DoctorID AND R.RevenueID = 'FN'
WHERE B.ResultDate >= @From AND B.ResultDate < DATEADD(day, 1, @To) AND B.Status <> 'R'
ORDER BY D.LastName, D.FirstName, B.DoctorID, B.ResultDate, B.CaseNumber
GO
