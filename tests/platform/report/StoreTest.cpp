// Rows set aside: what comes back, what stays in memory, and two threads at one store.
#include "platform/report/rows/RowStore.h"

#include "platform/base/Error.h"
#include "platform/report/rows/StoreSink.h"
#include "tests/platform/report/Bench.h"

#include <gtest/gtest.h>

#include <thread>

using report::RowStore;

namespace {

std::vector<ado::Column> columnsOf(const QString& names) {
    return tests::ScriptedProvider::rowsOf(names).rows.columns;
}

std::vector<base::Value> rowOf(qint64 index) {
    return {QStringLiteral("patient number %1, ward east").arg(index), index, double(index) / 4};
}

} // namespace

TEST(RowStore, EveryKindOfValueComesBackAsItWas) {
    const std::vector<base::Value> values{base::Value(),
                                          true,
                                          false,
                                          qint64(-9'000'000'000),
                                          1200.25,
                                          base::DateTime{1'790'000'000'123},
                                          "",
                                          "plain",
                                          QString::fromUtf8("Ñuñez"),
                                          QString::fromUtf8("日本 – 🙂"),
                                          QString(3000, u'x')};
    RowStore store(columnsOf("A"));
    for (const base::Value& value : values)
        store.append({value});
    store.finish();
    ASSERT_EQ(store.count(), qsizetype(values.size()));
    for (std::size_t i = 0; i < values.size(); ++i)
        EXPECT_EQ(store.at(qsizetype(i), 0), values[i]) << i;
}

TEST(RowStore, AFewRowsNeverTouchTheDisk) {
    RowStore store(columnsOf("A,B,C"));
    for (qint64 i = 0; i < 5000; ++i)
        store.append(rowOf(i));
    EXPECT_EQ(store.statistics().onDisk, 0);
    EXPECT_FALSE(store.isComplete());
    store.finish();
    EXPECT_TRUE(store.isComplete());
}

TEST(RowStore, ManyRowsLieOnDiskAndComeBackInAnyOrder) {
    constexpr qint64 rows = 200'000;
    RowStore store(columnsOf("A,B,C"));
    for (qint64 i = 0; i < rows; ++i)
        store.append(rowOf(i));
    const RowStore::Statistics afterwards = store.statistics();
    EXPECT_LE(afterwards.held, RowStore::heldAtMost + 200'000);
    EXPECT_GT(afterwards.onDisk, 5'000'000);
    for (qint64 i = 0, row = 0; i < 500; ++i, row = (row + 77'773) % rows) {
        EXPECT_EQ(store.at(row, 1), base::Value(row));
        EXPECT_EQ(store.at(row, 0), rowOf(row)[0]);
    }
    EXPECT_EQ(store.statistics().unpacked, qsizetype(RowStore::unpackedAtMost));
    EXPECT_EQ(store.at(rows - 1, 2), base::Value(double(rows - 1) / 4));
}

TEST(RowStore, OneThreadReadsWhatAnotherOneAppends) {
    constexpr qint64 rows = 60'000;
    RowStore store(columnsOf("A,B,C"));
    std::thread writer([&] {
        for (qint64 i = 0; i < rows; ++i)
            store.append(rowOf(i));
        store.finish();
    });
    qint64 read = 0;
    qint64 wrong = 0;
    while (read < rows) {
        const bool complete = store.isComplete();
        for (const qsizetype there = store.count(); read < there; ++read)
            wrong += store.at(read, 1) != base::Value(read) || store.at(read, 0) != rowOf(read)[0];
        if (complete && read == store.count())
            break;
    }
    writer.join();
    EXPECT_EQ(read, rows);
    EXPECT_EQ(wrong, 0);
}

TEST(StoreSink, TheLastResultCountsAndNoneMakesNoRows) {
    report::StoreSink sink;
    EXPECT_EQ(sink.rows(), nullptr);
    std::vector<base::Value> row{"first"};
    sink.begin(columnsOf("A"));
    EXPECT_TRUE(sink.row(row));
    const auto first = sink.rows();
    sink.begin(columnsOf("B"));
    row = {"second"};
    EXPECT_TRUE(sink.row(row));
    sink.finish();
    EXPECT_NE(sink.rows(), first);
    EXPECT_EQ(sink.rows()->columns()[0].name, "B");
    EXPECT_EQ(sink.rows()->at(0, 0), base::Value("second"));
    EXPECT_FALSE(first->isComplete());
    report::StoreSink empty;
    empty.finish();
    EXPECT_EQ(empty.rows()->count(), 0);
    EXPECT_TRUE(empty.rows()->isComplete());
}
