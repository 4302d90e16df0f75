-- The request waits for a result again and the case number is free. The revoked text stays until a new one is saved.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_CancelResult
    @RequestNum varchar(20)
AS
SET NOCOUNT ON
UPDATE tbNucLogBook SET Status = 'R' WHERE RequestNum = @RequestNum AND Status <> 'R'
UPDATE tbNucMaster SET RequestStatus = '', ResultDate = NULL WHERE RequestNum = @RequestNum AND RequestStatus = 'W'
GO
