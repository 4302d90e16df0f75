-- 'Y' when a stay may be charged.
USE LABORATORY
GO

CREATE OR ALTER FUNCTION fn_LabCanPost(@IdNum varchar(20))
RETURNS varchar(1)
AS
BEGIN
    DECLARE @Type varchar(1)
    DECLARE @Answer varchar(1)
    DECLARE @Closed int
    SET @Type = 'O'
    SET @Closed = 0
    IF EXISTS (SELECT 1 FROM PATIENT_DATA..tbPatient WHERE IdNum = @IdNum)
        SET @Type = 'I'
    IF EXISTS (SELECT 1 FROM PATIENT_DATA..tbPatient
            WHERE IdNum = @IdNum AND BillingDate IS NOT NULL AND LateCharges = 0)
        SET @Closed = 1
    IF EXISTS (SELECT 1 FROM PATIENT_DATA..tbOutPatient
            WHERE IdNum = @IdNum AND BillingDate IS NOT NULL AND LateCharges = 0)
        SET @Closed = 1
    SELECT @Answer = CASE WHEN @Closed = 1 THEN CanPostBilled ELSE CanPost END
    FROM tbLabPostingRule WHERE PatientType = @Type
    RETURN ISNULL(@Answer, 'N')
END
GO
