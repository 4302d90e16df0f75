#include "bench/Measure.h"
#include "bench/Measures.h"

#include "platform/ado/Connection.h"
#include "platform/controls/FlexGrid.h"
#include "tests/support/core/ScriptedProvider.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QHeaderView>

namespace bench {

namespace {

constexpr int rowCount = 100'000;
constexpr int columnCount = 7;

ado::Result manyRows() {
    ado::Result result;
    for (int column = 0; column < columnCount; ++column)
        result.rows.columns.push_back({QStringLiteral("Column%1").arg(column), ado::DataType::Text, {}, {}});
    result.rows.values.reserve(std::size_t(rowCount) * columnCount);
    for (int row = 0; row < rowCount; ++row) {
        for (int column = 0; column < columnCount; ++column)
            result.rows.values.emplace_back(QStringLiteral("%1-%2").arg(row).arg(column));
    }
    return result;
}

/// The least that can show the rows: a model that hands out their texts.
class BareModel : public QAbstractTableModel {
  public:
    explicit BareModel(const ado::Rows& rows) : m_rows(rows) {}
    int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : int(m_rows.count());
    }
    int columnCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : int(m_rows.columns.size());
    }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole)
            return {};
        return *m_rows.at(index.row(), index.column()).asText();
    }

  private:
    const ado::Rows m_rows; // a copy, as the grid keeps one
};

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
            std::unique_ptr<BareModel> model;
            const auto bind = [&] {
                model = std::make_unique<BareModel>(rows.rows());
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
