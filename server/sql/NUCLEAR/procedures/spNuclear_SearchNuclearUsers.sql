-- Users of a department by employee code or name.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE spNuclear_SearchNuclearUsers
    @DeptCode varchar(4),
    @SearchText varchar(100)
AS
SET NOCOUNT ON
SELECT EmployeeID AS [Employee Code], Name AS [Employee Name], Position
FROM PASSWORD..tbPasswordMain
WHERE DeptCode = @DeptCode AND Status = 'A'
    AND (EmployeeID LIKE @SearchText + '%' OR Name LIKE @SearchText + '%')
ORDER BY Name
GO
