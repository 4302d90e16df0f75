#include "bench/BareTable.h"
#include "bench/Measure.h"
#include "bench/Measures.h"

#include "platform/ado/Connection.h"
#include "platform/controls/grid/FlexGrid.h"
#include "tests/support/core/ScriptedProvider.h"

#include <QApplication>
#include <QHeaderView>

namespace bench {

namespace {

constexpr int rowCount = 100'000;
constexpr int columnCount = 7;

ado::Result manyRows() {
    ado::Result result;
    for (int column = 0; column < columnCount; ++column)
        result.rows.columns.edit().push_back(
            {QStringLiteral("Column%1").arg(column), ado::DataType::Text, {}, {}});
    result.rows.values.reserve(std::size_t(rowCount) * columnCount);
    for (int row = 0; row < rowCount; ++row) {
        for (int column = 0; column < columnCount; ++column)
            result.rows.values.emplace_back(QStringLiteral("%1-%2").arg(row).arg(column));
    }
    return result;
}

void showIn(QTableView& view) {
    view.resize(1000, 600);
    view.show();
    QApplication::processEvents();
}

void scroll(QTableView& view) {
    for (int step = 1; step <= 50; ++step) {
        view.scrollTo(view.model()->index(rowCount / 50 * step - 1, 0));
        view.viewport()->repaint();
    }
}

} // namespace

bool bindGrid(const QString&) {
    auto provider = std::make_unique<tests::ScriptedProvider>();
    provider->answer(QStringLiteral("many"), manyRows());
    ado::Connection connection;
    connection.Open(std::move(provider), QStringLiteral("bench"));
    ado::Recordset rows;
    rows.Open(ado::sql("many"), connection);

    const auto gridRun = [&](bool scrolling) {
        return [&rows, scrolling](int) {
            controls::FlexGrid grid;
            showIn(grid);
            const auto bind = [&] {
                grid.setDataSource(rows);
                grid.viewport()->repaint();
            };
            if (!scrolling)
                return timed(bind);
            bind();
            return timed([&] { scroll(grid); });
        };
    };
    const auto bareRun = [&](bool scrolling) {
        return [&rows, scrolling](int) {
            QTableView view;
            view.verticalHeader()->hide();
            showIn(view);
            std::unique_ptr<BareTable> model;
            const auto bind = [&] {
                const ado::Rows copy = rows.rows(); // as the grid keeps one
                model = std::make_unique<BareTable>(rowCount, columnCount, [copy](int row, int column) {
                    return *copy.at(row, column).asText();
                });
                view.setModel(model.get());
                view.viewport()->repaint();
            };
            qint64 time = 0;
            if (scrolling) {
                bind();
                time = timed([&] { scroll(view); });
            } else {
                time = timed(bind);
            }
            view.setModel(nullptr);
            return time;
        };
    };
    bool met = Report::line(QStringLiteral("grid: bind and paint 100,000 rows"),
                            interleave(15, 2, gridRun(false), bareRun(false)), 1.5);
    met &= Report::line(QStringLiteral("grid: 50 jumps through 100,000 rows"),
                        interleave(9, 1, gridRun(true), bareRun(true)), 1.5);
    return met;
}

} // namespace bench
