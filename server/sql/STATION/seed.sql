-- The wards' own series of request numbers, clear of the departments'.
USE STATION
GO

IF NOT EXISTS (SELECT 1 FROM tbNurseRequestNum)
    INSERT INTO tbNurseRequestNum (RequestNumID, RequestNum)
    VALUES (1, 7000000)
GO
