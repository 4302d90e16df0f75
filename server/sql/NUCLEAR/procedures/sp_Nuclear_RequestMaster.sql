-- Patients with requests that wait for a result.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_RequestMaster
    @SearchText varchar(50)
AS
SET NOCOUNT ON
EXEC sp_Nuclear_PatientsOfResults @SearchText, ''
GO
