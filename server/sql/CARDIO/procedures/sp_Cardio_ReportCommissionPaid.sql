-- What was paid out to doctors in a period, for whose slip and by whom. @DeptCode 'NU': for slips of nuclear medicine.
-- A payment names its slip alone: the patient is the one that the slip or the receipt was made for.
USE CARDIO
GO

CREATE OR ALTER PROCEDURE sp_Cardio_ReportCommissionPaid
    @DeptCode varchar(4),
    @From datetime,
    @To datetime
AS
SET NOCOUNT ON
SELECT Y.DoctorID, D.LastName + ', ' + D.FirstName AS DoctorName, Y.PaidDate, Y.RefNum, Y.RevenueID, Y.ItemID,
    ISNULL(E.NucExam, Y.ItemID) AS Description, Y.Amount, Y.UserID, U.Name AS UserName,
    ISNULL(M.LastName + ', ' + M.FirstName + ' ' + M.MiddleName, Y.ReceiptName) AS PatientName
FROM (SELECT P.PaymentID, P.DoctorID, P.PaidDate, P.RefNum, P.RevenueID, P.ItemID, P.Amount, P.UserID,
        ISNULL((SELECT MIN(B.HospNum) FROM BILLING..tbDailyBill B WHERE B.RefNum = P.RefNum),
            (SELECT MIN(N.HospNum) FROM NUCLEAR..tbNucMaster N WHERE N.RefNum = P.RefNum)) AS HospNum,
        (SELECT MIN(A.PatientName) FROM BILLING..tbCashAssessment A WHERE A.ORNumber = P.RefNum) AS ReceiptName
    FROM tbReaderPayment P
    WHERE P.PaidDate >= @From AND P.PaidDate < DATEADD(day, 1, @To)) Y
LEFT JOIN BUILD_FILE..tbcoDoctor D ON D.DoctorID = Y.DoctorID
LEFT JOIN BUILD_FILE..tbcoNucExam E ON E.NucExamID = Y.ItemID
LEFT JOIN PATIENT_DATA..tbMaster M ON M.HospNum = Y.HospNum
LEFT JOIN PASSWORD..tbPasswordMain U ON U.EmployeeID = Y.UserID
WHERE Y.RevenueID = @DeptCode OR (@DeptCode = 'NU' AND Y.RefNum LIKE 'C%J')
ORDER BY D.LastName, D.FirstName, Y.DoctorID, Y.PaidDate, Y.PaymentID
GO
