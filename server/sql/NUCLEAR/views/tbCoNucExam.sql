USE NUCLEAR
GO

CREATE OR ALTER VIEW tbCoNucExam
AS
SELECT NucExamID, NucExam, SectionID, NucSectionID, FormType, Classification, RateA, RateB, RateC, RateD, RateE, RateH,
    Outpatient, Fixrate, Common, MedicareType, Status
FROM BUILD_FILE..tbcoNucExam
GO
