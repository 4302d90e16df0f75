-- What doctors earn on the professional and reader's fees charged in a period. @DeptCode 'NU': slips of nuclear medicine.
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
    ISNULL(R.Percentage, 0) AS Percentage, ROUND(B.Amount * ISNULL(R.Percentage, 0) / 100, 2) AS Commission
FROM BILLING..tbDailyBill B
INNER JOIN BUILD_FILE..tbcoDoctor D ON D.DoctorID = B.ItemID
LEFT JOIN PATIENT_DATA..tbMaster M ON M.HospNum = B.HospNum
LEFT JOIN tbReaderRate R ON R.DoctorID = B.ItemID AND R.RevenueID = B.RevenueID
WHERE B.TransDate >= @From AND B.TransDate < DATEADD(day, 1, @To) AND B.RevenueID IN ('MD', 'FN')
    AND (B.SectionID = @DeptCode OR (@DeptCode = 'NU' AND B.RefNum LIKE 'C%J'))
ORDER BY D.LastName, D.FirstName, B.ItemID, B.TransDate, B.BillID
GO
