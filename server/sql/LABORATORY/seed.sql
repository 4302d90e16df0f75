-- Billed items are not to be cancelled unless the hospital says so.
USE LABORATORY
GO

IF NOT EXISTS (SELECT 1 FROM tbLabPostingRule)
    INSERT INTO tbLabPostingRule (PatientType, CanPost, CanPostBilled, CanCancel, CanCancelBilled)
    VALUES ('I', 'Y', 'N', 'Y', 'N'),
        ('O', 'Y', 'N', 'Y', 'N')
GO
