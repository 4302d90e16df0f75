// Rows handed over one by one, and statements that are stopped.
#include "tests/server/engine/Hospital.h"

#include <QFile>
#include <QStringList>

#include <functional>

namespace {

using tests::Hospital;

/// Writes the rows down as "a|b"; a new result as "[names]".
class Recording : public ado::RowSink {
  public:
    void begin(const std::vector<ado::Column>& columns) override {
        QStringList names;
        for (const ado::Column& column : columns)
            names << column.name;
        seen << u'[' + names.join(u'|') + u']';
    }
    bool row(std::vector<base::Value>& values) override {
        QStringList cells;
        for (const base::Value& value : values)
            cells << Hospital::shown(value);
        seen << cells.join(u'|');
        return !onRow || onRow();
    }
    bool isWanted() const override { return wanted == 0 || ++asked < wanted; }

    QStringList seen;
    std::function<bool()> onRow; ///< false stops
    int wanted = 0;              ///< how often it is asked before it wants no more; 0: always wanted
    mutable int asked = 0;
};

constexpr const char* tables = R"(
CREATE TABLE tbLine (Line int NOT NULL PRIMARY KEY, Words varchar(20) NULL, Amount money NULL)
INSERT INTO tbLine VALUES (1, 'one', 1.5)
INSERT INTO tbLine VALUES (2, NULL, 2.5)
INSERT INTO tbLine VALUES (3, 'three', NULL)
GO
CREATE PROCEDURE sp_Lines @from int AS
SET NOCOUNT ON
SELECT Words FROM tbLine WHERE Line = 1
SELECT Line, Words, Amount FROM tbLine WHERE Line >= @from ORDER BY Line DESC
GO
CREATE PROCEDURE sp_WriteThenRead AS
SET NOCOUNT ON
UPDATE tbLine SET Words = 'changed'
SELECT Line FROM tbLine ORDER BY Line
)";

struct Stream : testing::Test {
    Stream() { hospital.install(QString::fromLatin1(tables)); }
    ado::Streamed stream(const QString& text) { return hospital.provider().stream(text, sink); }
    Hospital hospital;
    Recording sink;
};

TEST_F(Stream, tellsRowsAsTheyAreSteppedAndEachResultAnew) {
    const ado::Streamed end = stream("sp_Lines '2'");
    EXPECT_EQ(sink.seen,
              (QStringList{"[Words]", "one", "[Line|Words|Amount]", "3|three|NULL", "2|NULL|2.5"}));
    EXPECT_EQ(end.rows, 2);
    EXPECT_FALSE(end.stopped);
    EXPECT_EQ(hospital.value("SELECT @@ROWCOUNT"), base::Value(qint64(2)));
}

TEST_F(Stream, tellsOfNoResultWhereThereIsNone) {
    const ado::Streamed end = stream("UPDATE tbLine SET Amount = 7 WHERE Line > 1");
    EXPECT_TRUE(sink.seen.isEmpty());
    EXPECT_EQ(end.rows, 0);
    EXPECT_EQ(end.affected, 2);
}

TEST_F(Stream, endsWhenNoMoreRowsAreWantedAndTakesItsWritesBack) {
    sink.onRow = [] { return false; };
    const ado::Streamed end = stream("sp_WriteThenRead");
    EXPECT_TRUE(end.stopped);
    EXPECT_EQ(end.rows, 1);
    EXPECT_EQ(sink.seen.size(), 2);
    EXPECT_EQ(hospital.expression("COUNT(*) FROM tbLine WHERE Words = 'changed'"), "0");
    sink = {};
    EXPECT_FALSE(stream("sp_WriteThenRead").stopped); // and the connection is as good as before
    EXPECT_EQ(sink.seen.size(), 4);
    EXPECT_EQ(hospital.expression("COUNT(*) FROM tbLine WHERE Words = 'changed'"), "3");
}

TEST_F(Stream, endsWhileTheServerWorksOnARow) {
    hospital.provider().begin();
    for (int i = 4; i < 300; ++i)
        hospital.run(QStringLiteral("INSERT INTO tbLine VALUES (%1, 'more', 1)").arg(i));
    hospital.provider().commit();
    sink.wanted = 3;
    const ado::Streamed end = stream("SELECT COUNT(*) FROM tbLine a, tbLine b, tbLine c, tbLine d "
                                     "WHERE a.Amount + b.Amount + c.Amount + d.Amount < 0");
    EXPECT_TRUE(end.stopped);
    EXPECT_EQ(sink.seen.size(), 1);
    EXPECT_EQ(hospital.expression("COUNT(*) FROM tbLine"), "299"); // nobody asks any more
}

TEST_F(Stream, raisesWhatTheServerSaysAndWhatTheSinkSays) {
    const auto errorOf = [&](const QString& text) {
        try {
            stream(text);
        } catch (const base::RunTimeError& error) {
            EXPECT_EQ(error.statement(), text);
            return error.number();
        }
        return 0;
    };
    EXPECT_EQ(errorOf("SELECT Nothing FROM tbLine"), 207);
    EXPECT_EQ(errorOf("SELECT Line, 1 / (Line - 2) FROM tbLine ORDER BY Line"), 8134);
    EXPECT_EQ(sink.seen, (QStringList{"[Line|]", "1|-1"}));
    sink.onRow = []() -> bool { throw base::RunTimeError(75, QStringLiteral("The disk is full.")); };
    EXPECT_EQ(errorOf("SELECT Line FROM tbLine"), 75);
}

TEST_F(Stream, isOneLineOfTheTrace) {
    hospital.provider().setTracing(true);
    stream("sp_Lines '1'");
    sink.onRow = [] { return false; };
    stream("SELECT Line FROM tbLine");
    QFile trace(hospital.file() + QStringLiteral(".trace.txt"));
    ASSERT_TRUE(trace.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(trace.readAll());
    EXPECT_TRUE(text.contains("3 rows")) << qPrintable(text);
    EXPECT_TRUE(text.contains("1 rows, stopped")) << qPrintable(text);
}

} // namespace
