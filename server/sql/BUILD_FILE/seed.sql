-- Codes that the programs count on.
USE BUILD_FILE
GO

IF NOT EXISTS (SELECT 1 FROM tbcoRevenueCode)
    INSERT INTO tbcoRevenueCode (RevenueID, Revenue, WithItems, SearchInventory, LocationID, InvCode)
    VALUES ('NU', 'NUCLEAR PROCEDURES', 'Y', 0, NULL, NULL),
        ('MD', 'PROFESSIONAL FEE', 'Y', 0, NULL, NULL),
        ('FN', 'READERS FEE', 'Y', 0, NULL, NULL),
        ('UR', 'NUCLEAR SUPPLY', 'Y', 1, '224', 'CS'),
        ('MN', 'MEDICINES', 'Y', 1, '179', 'PH'),
        ('MS', 'MISCELLANEOUS', 'N', 0, NULL, NULL)
GO

IF NOT EXISTS (SELECT 1 FROM tbcoNucSection)
    INSERT INTO tbcoNucSection (SectionID, Section)
    VALUES ('IMG', 'IMAGING'),
        ('RIA', 'RADIO-IMMUNOASSAY'),
        ('THR', 'THERAPY')
GO

IF NOT EXISTS (SELECT 1 FROM tbCoCivilStatus)
    INSERT INTO tbCoCivilStatus (CivilStatusID, CivilStatus)
    VALUES ('0', 'NONE'),
        ('1', 'SINGLE'),
        ('2', 'MARRIED'),
        ('3', 'WIDOWED'),
        ('4', 'SEPARATED'),
        ('5', 'CHILD')
GO

IF NOT EXISTS (SELECT 1 FROM tbCoDosage)
    INSERT INTO tbCoDosage (DosageID, Dosage, Frequency)
    VALUES ('PRN', 'AS NEEDED', 1),
        ('OD', 'ONCE A DAY', 1),
        ('BID', 'TWICE A DAY', 2),
        ('TID', 'THREE TIMES A DAY', 3),
        ('QID', 'FOUR TIMES A DAY', 4),
        ('STAT', 'AT ONCE', 1),
        ('HS', 'AT BEDTIME', 1)
GO
