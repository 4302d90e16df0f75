-- Patients with results.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_ResultMaster
    @SearchText varchar(50)
AS
SET NOCOUNT ON
EXEC sp_Nuclear_PatientsOfResults @SearchText, 'W'
GO
