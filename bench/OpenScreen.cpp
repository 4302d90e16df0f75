#include "bench/HospitalFile.h"
#include "bench/LogOn.h"
#include "bench/Measure.h"
#include "bench/Measures.h"

#include "orders/frmRequest.h"
#include "platform/base/Conversion.h"
#include "session/Session.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>

namespace bench {

namespace {

struct ControlCounts {
    int labels = 0, fields = 0, buttons = 0, groups = 0, lists = 0, choices = 0, grids = 0;
    int sum() const { return labels + fields + buttons + groups + lists + choices + grids; }
};

ControlCounts controlsOf(const QWidget& screen) {
    const auto count = [&screen]<typename Control>(const Control*) {
        return int(screen.findChildren<Control*>().size());
    };
    return {.labels = count(static_cast<QLabel*>(nullptr)),
            .fields = count(static_cast<QLineEdit*>(nullptr)),
            .buttons = count(static_cast<QPushButton*>(nullptr)),
            .groups = count(static_cast<QGroupBox*>(nullptr)),
            .lists = count(static_cast<QComboBox*>(nullptr)),
            .choices = count(static_cast<QRadioButton*>(nullptr)) + count(static_cast<QCheckBox*>(nullptr)),
            .grids = count(static_cast<QTableView*>(nullptr))};
}

/// As many controls of each kind in the layouts of one dialog, with nothing behind them.
class BareDialog : public QDialog {
  public:
    explicit BareDialog(const ControlCounts& counts) {
        auto* page = new QGridLayout(this);
        QGridLayout* place = page;
        for (int i = 0; i < counts.groups; ++i) {
            auto* group = new QGroupBox(QStringLiteral("Group"));
            page->addWidget(group, i, 0);
            place = new QGridLayout(group);
        }
        const int controls = counts.sum() - counts.groups - counts.grids;
        add(place, counts.labels, [] { return new QLabel(QStringLiteral("Label")); });
        add(place, counts.fields, [] { return new QLineEdit(QStringLiteral("Text")); });
        add(place, counts.buttons, [] { return new QPushButton(QStringLiteral("Button")); });
        add(place, counts.lists, [] { return new QComboBox; });
        add(place, counts.choices, [] { return new QRadioButton(QStringLiteral("Choice")); });
        for (int i = 0; i < counts.grids; ++i)
            page->addWidget(new QTableWidget(2, 8), controls + i, 0);
        resize(1300, 680);
    }

  private:
    template <typename Make>
    void add(QGridLayout* layout, int count, Make make) {
        constexpr int columns = 6;
        for (int i = 0; i < count; ++i, ++m_added)
            layout->addWidget(make(), m_added / columns, m_added % columns);
    }
    int m_added = 0;
};

/// Shown and painted; the window is gone when the next one is timed.
template <typename Window, typename Make, typename Show>
Run opened(Make make, Show show) {
    return [make, show](int) {
        std::unique_ptr<Window> window;
        const qint64 taken = timed([&] {
            window = make();
            show(*window);
            QApplication::processEvents();
        });
        window->hide();
        return taken;
    };
}

std::unique_ptr<orders::frmRequest> requestScreen(const QString& patient) {
    auto screen = std::make_unique<orders::frmRequest>();
    screen->entry.PatIdNum = patient;
    screen->entry.PatientType = QStringLiteral("I");
    return screen;
}

} // namespace

bool openScreen(const QString& folder) {
    logOnTo(hospitalFile(folder, 0));
    const QString patient = base::Trim(
        session::Read(ado::sql("SELECT TOP 1 IdNum FROM PATIENT_DATA..tbPatient WHERE DcrDate IS NULL"))
            .Fields(0)
            .text());
    const auto counted = requestScreen(patient);
    counted->Show();
    const ControlCounts counts = controlsOf(*counted);
    counted->Unload();

    const Run ours = opened<orders::frmRequest>([&] { return requestScreen(patient); },
                                                [](orders::frmRequest& screen) { screen.Show(); });
    const Run bare = opened<BareDialog>([&] { return std::make_unique<BareDialog>(counts); },
                                        [](BareDialog& dialog) { dialog.show(); });
    // The bare window has no look of ours: the sheet belongs to the whole program and is taken off for it.
    const QString sheet = qApp->styleSheet();
    const Outcome outcome = interleave(
        101, 4,
        [&](int round) {
            qApp->setStyleSheet(sheet);
            ours(round); // fills what the sheet keeps once it has been set
            return ours(round);
        },
        [&](int round) {
            qApp->setStyleSheet({});
            bare(round);
            return bare(round);
        });
    qApp->setStyleSheet(sheet);
    const bool met = Report::line(QStringLiteral("open a request / a bare window"), outcome, 1.5);
    Report::note(QStringLiteral("  %1 controls").arg(counts.sum()));
    return met;
}

} // namespace bench
