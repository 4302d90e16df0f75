USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_PrepaidUpdatePrintStatus
    @RefNum varchar(20)
AS
SET NOCOUNT ON
UPDATE tbNucPrepaid SET PrintStatus = 'P', PrintDate = GETDATE() WHERE RefNum = @RefNum
GO
