-- Who lay in the house on a day, by station. @StationID '' is every station.
USE PATIENT_DATA
GO

CREATE OR ALTER PROCEDURE sp_adm_censusbystation
    @CensusDate datetime,
    @StationID varchar(10)
AS
SET NOCOUNT ON
SELECT S.StationID, S.Station, P.RoomID, R.RoomClassID, P.IdNum, P.HospNum,
    M.LastName + ', ' + M.FirstName + ' ' + M.MiddleName AS PatientName,
    P.Age, M.Sex, P.AdmDate, P.DcrDate,
    D.LastName + ', ' + D.FirstName AS DoctorName, C.Company
FROM tbPatient P
INNER JOIN tbMaster M ON M.HospNum = P.HospNum
LEFT JOIN BUILD_FILE..tbcoRoom R ON R.RoomID = P.RoomID
LEFT JOIN BUILD_FILE..tbCoStation S ON S.StationID = R.StationID
LEFT JOIN BUILD_FILE..tbcoDoctor D ON D.DoctorID = P.DoctorID1
LEFT JOIN BUILD_FILE..tbcoCompany C ON C.AccountNum = P.AccountNum
WHERE P.IdNum IN (SELECT IdNum FROM tbPatient WHERE DcrDate IS NULL
        UNION ALL SELECT IdNum FROM tbPatient WHERE DcrDate >= @CensusDate)
    AND P.AdmDate < DATEADD(day, 1, @CensusDate)
    AND (@StationID = '' OR R.StationID = @StationID)
ORDER BY S.StationID, P.RoomID, M.LastName, M.FirstName
GO
