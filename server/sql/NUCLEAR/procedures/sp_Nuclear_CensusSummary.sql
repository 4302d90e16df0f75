-- How many patients lay on each station on a day, by room class. Only PATIENT_DATA keeps a census.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_CensusSummary
    @Database varchar(30),
    @Day datetime
AS
SET NOCOUNT ON
SELECT S.StationID, S.Station, SUM(CASE WHEN R.RoomClassID = 'A' THEN 1 ELSE 0 END) AS ClassA,
    SUM(CASE WHEN R.RoomClassID = 'B' THEN 1 ELSE 0 END) AS ClassB,
    SUM(CASE WHEN R.RoomClassID = 'C' THEN 1 ELSE 0 END) AS ClassC,
    SUM(CASE WHEN R.RoomClassID = 'D' THEN 1 ELSE 0 END) AS ClassD,
    SUM(CASE WHEN R.RoomClassID = 'E' THEN 1 ELSE 0 END) AS ClassE,
    SUM(CASE WHEN R.RoomClassID IN ('A', 'B', 'C', 'D', 'E') THEN 0 ELSE 1 END) AS ClassOther, COUNT(*) AS Patients
FROM PATIENT_DATA..tbPatient P
INNER JOIN PATIENT_DATA..tbMaster M ON M.HospNum = P.HospNum
LEFT JOIN BUILD_FILE..tbcoRoom R ON R.RoomID = P.RoomID
LEFT JOIN BUILD_FILE..tbCoStation S ON S.StationID = R.StationID
WHERE @Database = 'PATIENT_DATA' AND (P.DcrDate IS NULL OR P.DcrDate >= @Day) AND P.AdmDate < DATEADD(day, 1, @Day)
GROUP BY S.StationID, S.Station
ORDER BY S.StationID
GO
