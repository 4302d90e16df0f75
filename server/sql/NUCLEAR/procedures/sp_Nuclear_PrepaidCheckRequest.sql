-- The prepaid requests whose form was not printed yet.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_PrepaidCheckRequest
    @RevenueID varchar(4)
AS
SET NOCOUNT ON
SELECT RequestNum, RefNum, IdNum
FROM tbNucPrepaid
WHERE PrintStatus = '' AND RevenueID = @RevenueID
GO
