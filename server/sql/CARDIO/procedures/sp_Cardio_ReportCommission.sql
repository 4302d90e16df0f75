-- What doctors earn on the professional and reader's fees of a period: charged to an account, or paid at the cashier's
-- ('W'). @DeptCode 'NU': slips of nuclear medicine. Percentage is NULL where the doctor has no rate for that fee.
USE CARDIO
GO

CREATE OR ALTER PROCEDURE sp_Cardio_ReportCommission
    @DeptCode varchar(4),
    @From datetime,
    @To datetime
AS
SET NOCOUNT ON
SELECT B.ItemID AS DoctorID, D.LastName + ', ' + D.FirstName AS DoctorName, B.TransDate, B.RefNum, B.RevenueID,
    B.PatientType AS PatientKind, M.LastName + ', ' + M.FirstName + ' ' + M.MiddleName AS PatientName, B.Amount,
    R.Percentage, ROUND(B.Amount * ISNULL(R.Percentage, 0) / 100, 2) AS Commission
FROM BILLING..tbDailyBill B
INNER JOIN BUILD_FILE..tbcoDoctor D ON D.DoctorID = B.ItemID
LEFT JOIN PATIENT_DATA..tbMaster M ON M.HospNum = B.HospNum
LEFT JOIN tbReaderRate R ON R.DoctorID = B.ItemID AND R.RevenueID = B.RevenueID
WHERE B.TransDate >= @From AND B.TransDate < DATEADD(day, 1, @To) AND B.RevenueID IN ('MD', 'FN')
    AND (B.SectionID = @DeptCode OR (@DeptCode = 'NU' AND B.RefNum LIKE 'C%J'))
UNION ALL
SELECT A.ItemID, D.LastName + ', ' + D.FirstName, A.TransDate, A.ORNumber, A.RevenueID, 'W', A.PatientName, A.Amount,
    R.Percentage, ROUND(A.Amount * ISNULL(R.Percentage, 0) / 100, 2)
FROM BILLING..tbCashAssessment A
INNER JOIN BUILD_FILE..tbcoDoctor D ON D.DoctorID = A.ItemID
LEFT JOIN tbReaderRate R ON R.DoctorID = A.ItemID AND R.RevenueID = A.RevenueID
WHERE A.TransDate >= @From AND A.TransDate < DATEADD(day, 1, @To) AND A.RevenueID IN ('MD', 'FN')
    AND A.RecordStatus = '1' AND A.SectionID = @DeptCode
ORDER BY DoctorName, DoctorID, TransDate, RefNum
GO
