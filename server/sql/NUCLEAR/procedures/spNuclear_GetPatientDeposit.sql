-- Deposits with something left, of patients who still lie in the house.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spNuclear_GetPatientDeposit
AS
SET NOCOUNT ON
SELECT D.PatientName, D.HospNum, D.IdNum, D.TransDate, P.RoomID, D.ORNumber, D.Amount, D.Balance, D.UserID,
    R.RoomClassID, R.StationID
FROM BILLING..tbDeposit D
INNER JOIN PATIENT_DATA..tbPatient P ON P.IdNum = D.IdNum
LEFT JOIN BUILD_FILE..tbcoRoom R ON R.RoomID = P.RoomID
WHERE D.Balance > 0 AND P.DcrDate IS NULL
ORDER BY D.PatientName
GO
