-- Assessments by admission number or by the start of the name, in which a back-quote is any sign; latest first. Without a
-- text the latest of all, which no index has to be asked for.
USE NUCLEAR
GO

CREATE OR ALTER PROCEDURE sp_Nuclear_AssessmentStatus
    @SearchText varchar(160)
AS
SET NOCOUNT ON
IF @SearchText = ''
    SELECT TOP 200 * FROM vwNuclearAssessment
    ORDER BY AssessID DESC
ELSE
    SELECT TOP 200 * FROM vwNuclearAssessment
    WHERE PatientName LIKE REPLACE(@SearchText, '`', '_') + '%' OR IdNum = @SearchText
    ORDER BY AssessID DESC
GO
