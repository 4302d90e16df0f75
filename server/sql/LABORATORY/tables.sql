-- What the laboratory lays down for posting and cancelling.
USE LABORATORY
GO

-- PatientType 'I' admitted, 'O' out-patient. 'Y' allows.
IF OBJECT_ID('tbLabPostingRule') IS NULL
BEGIN
    CREATE TABLE tbLabPostingRule (
        PatientType varchar(1) NOT NULL,
        CanPost varchar(1) NOT NULL DEFAULT 'Y',
        CanPostBilled varchar(1) NOT NULL DEFAULT 'N',
        CanCancel varchar(1) NOT NULL DEFAULT 'Y',
        CanCancelBilled varchar(1) NOT NULL DEFAULT 'N',
        CONSTRAINT PK_LabPostingRule PRIMARY KEY (PatientType)
    )
END
GO
