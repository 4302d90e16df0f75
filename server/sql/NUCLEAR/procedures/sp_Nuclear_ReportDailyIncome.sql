-- The section's income of a day, without the doctors' fees. @Kind 'A' charges to in- and out-patients with their
-- reversals, 'B' paid assessments by the day of their receipt.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_ReportDailyIncome
    @Kind varchar(1),
    @Day datetime
AS
SET NOCOUNT ON
IF @Kind = 'B'
    SELECT R.TransDate, A.ORNumber AS RefNum, 'W' AS PatientKind, A.PatientName, A.ItemID,
        ISNULL(E.NucExam, A.ItemID) AS Description, A.Quantity, A.Amount, A.RevenueID
    FROM BILLING..tbCashAssessment A
    INNER JOIN BILLING..tbCashReceipt R ON R.ORNumber = A.ORNumber
    LEFT JOIN BUILD_FILE..tbcoNucExam E ON E.NucExamID = A.ItemID
    WHERE R.TransDate >= @Day AND R.TransDate < DATEADD(day, 1, @Day) AND A.RecordStatus = '1'
        AND A.RevenueID = 'NU'
    ORDER BY A.ORNumber, A.AssessID
ELSE
    SELECT B.TransDate, B.RefNum, B.PatientType AS PatientKind, M.LastName + ', ' + M.FirstName + ' ' + M.MiddleName
        AS PatientName, B.ItemID, ISNULL(E.NucExam, B.ItemID) AS Description, B.Quantity, B.Amount, B.RevenueID
    FROM BILLING..tbDailyBill B
    LEFT JOIN PATIENT_DATA..tbMaster M ON M.HospNum = B.HospNum
    LEFT JOIN BUILD_FILE..tbcoNucExam E ON E.NucExamID = B.ItemID
    WHERE B.TransDate >= @Day AND B.TransDate < DATEADD(day, 1, @Day) AND B.RevenueID = 'NU'
    ORDER BY B.PatientType, B.RefNum, B.BillID
GO
