-- The wards' own series of request numbers, clear of the departments'.
USE STATION
GO

-- Where there are some already a new row would give their numbers out again: it is for the DBA to fill.
IF NOT EXISTS (SELECT 1 FROM tbNurseRequestNum) AND NOT EXISTS (SELECT 1 FROM tbNurseLogBook)
    INSERT INTO tbNurseRequestNum (RequestNumID, RequestNum)
    VALUES (1, 7000000)
GO
