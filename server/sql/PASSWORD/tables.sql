-- The hospital's users.
USE PASSWORD
GO

-- PasswordHash is an Argon2id text; '' lets nobody in. LockedUntil: no log-on before that moment.
IF OBJECT_ID('tbPasswordMain') IS NULL
BEGIN
    CREATE TABLE tbPasswordMain (
        EmployeeID varchar(10) NOT NULL,
        Name varchar(100) NOT NULL DEFAULT '',
        LastName varchar(50) NOT NULL DEFAULT '',
        FirstName varchar(50) NOT NULL DEFAULT '',
        MiddleName varchar(50) NOT NULL DEFAULT '',
        BirthDate datetime NULL,
        PasswordHash varchar(200) NOT NULL DEFAULT '',
        Position varchar(60) NOT NULL DEFAULT '',
        DeptCode varchar(4) NOT NULL DEFAULT '',
        Status varchar(1) NOT NULL DEFAULT 'A',
        WrongTries int NOT NULL DEFAULT 0,
        LockedUntil datetime NULL,
        CONSTRAINT PK_PasswordMain PRIMARY KEY (EmployeeID)
    )
    CREATE INDEX IX_PasswordMain_Name ON tbPasswordMain (Name)
END
GO

-- Rights of the hospital's log-on, by department code; RightsID 'A' is the maintenance of files.
IF OBJECT_ID('tbPasswordRights') IS NULL
BEGIN
    CREATE TABLE tbPasswordRights (
        EmployeeID varchar(10) NOT NULL,
        DeptCode varchar(4) NOT NULL,
        RightsID varchar(4) NOT NULL,
        CONSTRAINT PK_PasswordRights PRIMARY KEY (EmployeeID, DeptCode, RightsID)
    )
END
GO
