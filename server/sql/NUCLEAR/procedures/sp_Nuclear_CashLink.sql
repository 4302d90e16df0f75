-- Paid assessments that were not posted yet, by the start of the patient's name or by receipt.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_CashLink
    @SearchText varchar(50)
AS
SET NOCOUNT ON
SELECT A.ORNumber AS OrNumber, A.PatientName, CASE WHEN A.RevenueID = 'NU' THEN E.NucExam
    ELSE '(PF) DR. ' + F.LastName + ', ' + F.FirstName END AS Exam, A.TransDate, A.Amount, A.UserID, A.DoctorID,
    D.LastName + ', ' + D.FirstName + ' ' + D.MiddleName AS [Requesting Doctor]
FROM BILLING..tbCashAssessment A
LEFT JOIN BUILD_FILE..tbcoNucExam E ON E.NucExamID = A.ItemID
LEFT JOIN BUILD_FILE..tbcoDoctor F ON F.DoctorID = A.ItemID
LEFT JOIN BUILD_FILE..tbcoDoctor D ON D.DoctorID = A.DoctorID
WHERE A.RecordStatus = '1' AND A.ORNumber IS NOT NULL
    AND (A.PatientName LIKE @SearchText + '%' OR A.ORNumber = @SearchText)
    AND NOT EXISTS (SELECT 1 FROM tbNucMaster N WHERE N.RefNum = A.ORNumber)
ORDER BY A.TransDate DESC, A.AssessID
GO
