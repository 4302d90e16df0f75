-- The stock locations that the programs name.
USE INVENTORY
GO

IF NOT EXISTS (SELECT 1 FROM tbInvLocation)
    INSERT INTO tbInvLocation (LocationID, Location, ItemClass)
    VALUES ('20', 'PHARMACY', 'PH'),
        ('21', 'CENTRAL SUPPLY', 'CS'),
        ('179', 'NUCLEAR MEDICINE DRUGS', 'PH'),
        ('224', 'NUCLEAR MEDICINE SUPPLIES', 'CS')
GO
