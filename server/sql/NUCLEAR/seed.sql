-- The number row and the catalogue of rights.
USE NUCLEAR
GO

-- Where there are some already a new row would give their numbers out again: it is for the DBA to fill.
IF NOT EXISTS (SELECT 1 FROM tbNucSlip) AND NOT EXISTS (SELECT 1 FROM tbNucMaster)
    INSERT INTO tbNucSlip (SlipID, ChargeSlip, RequestNum)
    VALUES (1, 1, 1)
GO

IF NOT EXISTS (SELECT 1 FROM tbNuclearUserSettings)
    INSERT INTO tbNuclearUserSettings (ItemID, Description, Status)
    VALUES ('1', 'Assessment', 'A'),
        ('2', 'Charge Entry', 'A'),
        ('3', 'In-Patient Request Entry', 'A'),
        ('4', 'Result Entry', 'A'),
        ('5', 'Result Inquiry', 'A'),
        ('6', 'Result Cancellation', 'A'),
        ('7', 'Request Cancellation', 'A'),
        ('8', 'Re-Print Chargeslip', 'A'),
        ('9', 'Assessment Status', 'A'),
        ('10', 'Patient`s Ledger', 'A'),
        ('11', 'Walk-In Master File', 'A'),
        ('12', 'Transaction Report', 'A'),
        ('13', 'Monthly Report', 'A'),
        ('14', 'Statistical Report', 'A'),
        ('15', 'Daily Income Report', 'A'),
        ('16', 'Cancelled Procedures', 'A'),
        ('17', 'Nuclear Exams', 'A'),
        ('18', 'CSR / Pharmacy Request; Cancel Charges', 'A')
GO
