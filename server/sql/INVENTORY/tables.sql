-- Drugs and supplies, and the stock of each location.
USE INVENTORY
GO

-- ItemClass 'PH' drugs, 'CS' supplies. Inactive: not to be dispensed any more.
IF OBJECT_ID('tbInvMaster') IS NULL
BEGIN
    CREATE TABLE tbInvMaster (
        ItemID varchar(20) NOT NULL,
        ItemName varchar(100) NOT NULL DEFAULT '',
        GenericName varchar(100) NOT NULL DEFAULT '',
        ItemClass varchar(2) NOT NULL DEFAULT '',
        Unit varchar(20) NOT NULL DEFAULT '',
        SellingPriceIn money NOT NULL DEFAULT 0,
        SellingPriceOut money NOT NULL DEFAULT 0,
        Inactive bit NOT NULL DEFAULT 0,
        CONSTRAINT PK_InvMaster PRIMARY KEY (ItemID)
    )
    CREATE INDEX IX_InvMaster_ItemName ON tbInvMaster (ItemName)
END
GO

IF OBJECT_ID('tbInvLocation') IS NULL
BEGIN
    CREATE TABLE tbInvLocation (
        LocationID varchar(10) NOT NULL,
        Location varchar(60) NOT NULL DEFAULT '',
        ItemClass varchar(2) NOT NULL DEFAULT '',
        CONSTRAINT PK_InvLocation PRIMARY KEY (LocationID)
    )
END
GO

IF OBJECT_ID('tbInvStock') IS NULL
BEGIN
    CREATE TABLE tbInvStock (
        ItemID varchar(20) NOT NULL,
        LocationID varchar(10) NOT NULL,
        OnHand float NOT NULL DEFAULT 0,
        ReorderPoint float NOT NULL DEFAULT 0,
        CONSTRAINT PK_InvStock PRIMARY KEY (ItemID, LocationID)
    )
    CREATE INDEX IX_InvStock_LocationID ON tbInvStock (LocationID)
END
GO

-- One row a movement, as the departments post it.
IF OBJECT_ID('tbInvStockCard') IS NULL
BEGIN
    CREATE TABLE tbInvStockCard (
        StockCardID int IDENTITY(1,1) NOT NULL,
        HospNum varchar(20) NOT NULL DEFAULT '',
        IdNum varchar(20) NOT NULL DEFAULT '',
        ItemID varchar(20) NOT NULL DEFAULT '',
        TransDate datetime NOT NULL,
        RefNum varchar(20) NOT NULL DEFAULT '',
        Quantity float NOT NULL DEFAULT 0,
        QuantityIn float NOT NULL DEFAULT 0,
        Amount money NOT NULL DEFAULT 0,
        UserID varchar(10) NOT NULL DEFAULT '',
        Dosage varchar(8) NOT NULL DEFAULT '',
        RoomID varchar(10) NOT NULL DEFAULT '',
        LocationID varchar(10) NOT NULL DEFAULT '',
        ToLocationID varchar(10) NOT NULL DEFAULT '',
        Remarks varchar(100) NOT NULL DEFAULT '',
        Discount money NOT NULL DEFAULT 0,
        SummaryCode varchar(4) NOT NULL DEFAULT '',
        StockClass varchar(4) NOT NULL DEFAULT '',
        BatchNum varchar(20) NOT NULL DEFAULT '',
        ExpiryDate datetime NULL,
        UnitCost money NULL,
        Supplier varchar(60) NULL,
        Direction varchar(1) NOT NULL DEFAULT 'O',
        CONSTRAINT PK_InvStockCard PRIMARY KEY (StockCardID)
    )
    CREATE INDEX IX_InvStockCard_ItemID ON tbInvStockCard (ItemID)
    CREATE INDEX IX_InvStockCard_IdNum ON tbInvStockCard (IdNum)
    CREATE INDEX IX_InvStockCard_RefNum ON tbInvStockCard (RefNum)
END
GO
