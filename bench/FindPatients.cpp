#include "bench/BareTable.h"
#include "bench/HospitalFile.h"
#include "bench/Measure.h"
#include "bench/Measures.h"
#include "bench/PatientSearches.h"
#include "bench/RawStatement.h"

#include "platform/ado/Connection.h"
#include "platform/base/Error.h"
#include "platform/controls/grid/FlexGrid.h"
#include "server/engine/EmbeddedProvider.h"
#include "server/hospital/Create.h"
#include "session/Session.h"

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>

namespace bench {

namespace {

constexpr int patientCount = 1'000'000;

/// The hospital of a million patients, every one of which came in for cash too.
QString fileWithWalkIns(const QString& folder) {
    const QString name = QStringLiteral("walk-ins-%1.scintra").arg(patientCount);
    const QString ready = folder + u'/' + name;
    if (QFile::exists(ready))
        return ready;
    const QString part = copyOf(hospitalFile(folder, patientCount), name + QStringLiteral(".part"));
    {
        const auto provider = engine::EmbeddedProvider::open(part, {});
        RawStatement(provider->handle(),
                     "INSERT INTO \"PATIENT_DATA.tbCashPatient\" (hospnum, LastName, FirstName, MiddleName, "
                     "BirthDate, Age, Sex, Civilstatusid, HouseStreet, Barangay, ZipCode) SELECT 'W9' || "
                     "HospNum, LastName, FirstName, MiddleName, BirthDate, '30', Sex, CivilStatus, "
                     "HouseStreet, Barangay, ZipCode FROM \"PATIENT_DATA.tbMaster\"")
            .run();
    }
    if (!QFile::rename(part, ready))
        throw base::RunTimeError(75, QStringLiteral("%1 cannot be written.").arg(ready));
    return ready;
}

using RawRows = std::vector<std::vector<std::string>>;

RawRows fetchRaw(RawStatement& query, const std::string& text) {
    const std::string end = text + "\xff"; // behind every longer name
    query.bind(1, text);
    query.bind(2, end);
    const int columns = sqlite3_column_count(query.get());
    RawRows rows;
    while (query.step()) {
        std::vector<std::string>& row = rows.emplace_back(std::size_t(columns));
        for (int column = 0; column < columns; ++column)
            row[std::size_t(column)] = query.text(column);
    }
    query.reset();
    return rows;
}

ado::Recordset fetchOurs(const PatientSearch& search, const std::string& text) {
    return session::Read(search.ours.with({{"#", QString::fromStdString(text)}}));
}

void requireSame(const PatientSearch& search, RawStatement& query, const std::string& text) {
    ado::Recordset rows = fetchOurs(search, text);
    const RawRows raw = fetchRaw(query, text);
    bool same = rows.RecordCount() == int(raw.size()) && !raw.empty();
    for (std::size_t row = 0; same && row < raw.size(); ++row, rows.MoveNext())
        same = rows.Fields(search.number).text().toStdString() == raw[row][std::size_t(search.number)];
    if (!same)
        throw base::RunTimeError(
            5, QStringLiteral("Both sides must find the same %1.").arg(QString::fromLatin1(search.name)));
}

/// From Enter until the first rows are painted: the screen of the program, and a bare table of the same size.
class OnScreen {
  public:
    OnScreen(const PatientSearch& search, RawStatement& query) : m_query(query), m_screen(search.screen()) {
        m_screen->Show();
        m_grid = m_screen->findChild<controls::FlexGrid*>();
        m_text = m_screen->findChild<QLineEdit*>(QStringLiteral("txtSearch"));
        m_screen->findChild<QComboBox*>(QStringLiteral("cmbSearch"))->setCurrentIndex(search.choice);
        for (int column = m_grid->FixedCols(); column < m_grid->Cols(); ++column)
            m_shownColumns += m_grid->ColWidth(column) > 0 ? 1 : 0;
        m_bare.verticalHeader()->hide();
        m_bare.resize(m_grid->size());
        m_bare.show();
        QApplication::processEvents();
    }
    qint64 ours(const std::string& text) {
        m_text->setText(QString::fromStdString(text));
        return timed([&] {
            QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
            QApplication::sendEvent(m_text, &enter);
            m_grid->viewport()->repaint();
        });
    }
    qint64 floor(const std::string& text) {
        std::unique_ptr<BareTable> table;
        const qint64 time = timed([&] {
            const RawRows rows = fetchRaw(m_query, text);
            table =
                std::make_unique<BareTable>(int(rows.size()), m_shownColumns, [rows](int row, int column) {
                    return QString::fromStdString(rows[std::size_t(row)][std::size_t(column)]);
                });
            m_bare.setModel(table.get());
            m_bare.viewport()->repaint();
        });
        m_bare.setModel(nullptr);
        return time;
    }

  private:
    RawStatement& m_query;
    std::unique_ptr<controls::Screen> m_screen;
    controls::FlexGrid* m_grid;
    QLineEdit* m_text;
    QTableView m_bare;
    int m_shownColumns = 0;
};

bool measure(const PatientSearch& search, sqlite3* handle) {
    RawStatement query(handle, search.raw);
    const std::vector<std::string> texts = typedTexts(handle, search.typed);
    for (const std::string& text : texts)
        requireSame(search, query, text);
    const auto text = [&](int round) -> const std::string& {
        return texts[std::size_t(round) % texts.size()];
    };
    const QString name = QString::fromLatin1(search.name);
    bool met = true;
    // A number finds one row: there the fixed cost of a call is all there is, and the screen is what counts.
    if (search.typed == Typed::Name) {
        met &= Report::line(QStringLiteral("find ") + name,
                            interleave(
                                201, 20,
                                [&](int round) { return timed([&] { fetchOurs(search, text(round)); }); },
                                [&](int round) { return timed([&] { fetchRaw(query, text(round)); }); }),
                            1.25);
    }
    OnScreen screen(search, query);
    met &= Report::line(QStringLiteral("  on screen: ") + name,
                        interleave(
                            101, 10, [&](int round) { return screen.ours(text(round)); },
                            [&](int round) { return screen.floor(text(round)); }),
                        1.25);
    return met;
}

} // namespace

bool findPatients(const QString& folder) {
    const QString file = fileWithWalkIns(folder);
    const auto floorProvider = engine::EmbeddedProvider::open(file, {});
    hospital::ensureKit(*floorProvider); // the file may be of an older program
    ado::Connection connection;
    connection.Open(engine::EmbeddedProvider::open(file, {}), QStringLiteral("bench-find"));
    connection.setDefaultDatabase(QStringLiteral("NUCLEAR"));
    session::gConnection = &connection;
    bool met = true;
    for (const PatientSearch& search : patientSearches)
        met &= measure(search, floorProvider->handle());
    session::gConnection = nullptr;
    return met;
}

} // namespace bench
