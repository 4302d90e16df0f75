-- Assessments of the section with their state. A paid one goes by its receipt. What is printed again is sent back in a
-- statement, so a quote in its name is a back-quote here.
USE NUCLEAR
GO

CREATE OR ALTER VIEW vwNuclearAssessment
AS
SELECT A.PatientName, A.ItemID AS Code,
    REPLACE(CASE WHEN A.RevenueID = 'NU' THEN E.NucExam ELSE '(PF) DR. ' + F.LastName + ', ' + F.FirstName END,
        '''', '`') AS Exam, A.Quantity, ISNULL(A.ORNumber, A.RefNum) AS RefNum,
    A.Amount, CASE WHEN A.RecordStatus = '1' THEN 'PAID' WHEN A.RecordStatus IN ('R', 'X') THEN 'REVOKED'
    ELSE 'PENDING' END AS Status, A.RecordStatus, A.AssessID, A.IdNum, A.RevenueID,
    D.LastName + ', ' + D.FirstName + ' ' + D.MiddleName AS RequestDoctor
FROM BILLING..tbCashAssessment A
LEFT JOIN BUILD_FILE..tbcoNucExam E ON E.NucExamID = A.ItemID
LEFT JOIN BUILD_FILE..tbcoDoctor F ON F.DoctorID = A.ItemID
LEFT JOIN BUILD_FILE..tbcoDoctor D ON D.DoctorID = A.DoctorID
WHERE A.RevenueID = 'NU' OR A.SectionID = 'NU'
GO
