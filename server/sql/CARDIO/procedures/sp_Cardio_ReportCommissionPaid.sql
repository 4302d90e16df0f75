-- What was paid out to doctors in a period. @DeptCode 'NU': for slips of nuclear medicine.
USE CARDIO
GO

CREATE OR ALTER PROCEDURE sp_Cardio_ReportCommissionPaid
    @DeptCode varchar(4),
    @From datetime,
    @To datetime
AS
SET NOCOUNT ON
SELECT Y.DoctorID, D.LastName + ', ' + D.FirstName AS DoctorName, Y.PaidDate, Y.RefNum, Y.RevenueID, Y.ItemID,
    ISNULL(E.NucExam, Y.ItemID) AS Description, Y.Amount, Y.UserID
FROM tbReaderPayment Y
LEFT JOIN BUILD_FILE..tbcoDoctor D ON D.DoctorID = Y.DoctorID
LEFT JOIN BUILD_FILE..tbcoNucExam E ON E.NucExamID = Y.ItemID
WHERE Y.PaidDate >= @From AND Y.PaidDate < DATEADD(day, 1, @To)
    AND (Y.RevenueID = @DeptCode OR (@DeptCode = 'NU' AND Y.RefNum LIKE 'C%J'))
ORDER BY D.LastName, D.FirstName, Y.DoctorID, Y.PaidDate, Y.PaymentID
GO
