#include "bench/HospitalFile.h"
#include "bench/LogOn.h"
#include "bench/Measure.h"
#include "bench/Measures.h"

#include "ledger/frmPatientLedger.h"
#include "platform/base/Error.h"
#include "platform/base/Format.h"
#include "platform/report/layout/PageDocument.h"
#include "platform/report/viewer/Viewer.h"
#include "server/engine/EmbeddedProvider.h"
#include "session/Session.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>

namespace bench {

namespace {

constexpr int lineCount = 10'000;
constexpr int linesOfAPage = 50;
const QString account = QStringLiteral("26004022");

/// Two thousand days of five lines each.
void chargeTheAccount(const QString& file) {
    ado::Connection connection;
    connection.Open(engine::EmbeddedProvider::open(file, {}), QStringLiteral("bench"));
    connection.setDefaultDatabase(QStringLiteral("NUCLEAR"));
    connection.BeginTrans();
    for (int line = 0; line < lineCount; ++line)
        connection.Execute(
            ado::sql("sp_addbill 'I','{}','{}','C{}J', '{}','{}','NU','1001','1','','', '104022'", account,
                     base::Format(base::fromSerial(40000.25 + line / 5 + line % 5 / 24.0),
                                  QStringLiteral("mm/dd/yyyy hh:mm:ss AMPM")),
                     line, line % 2 ? "1001" : "1203", 100 + line % 7));
    connection.CommitTrans();
}

/// From Enter on the number to the first page painted, while the others are still being made.
class OurPage {
  public:
    OurPage() {
        m_screen.Show();
        m_screen.findChild<QComboBox*>(QStringLiteral("cmbPatientClass"))->setCurrentIndex(0);
        m_number = m_screen.findChild<QLineEdit*>(QStringLiteral("txtIdNum"));
        m_viewer = m_screen.findChild<report::Viewer*>(QStringLiteral("Viewer"));
        m_number->setText(account);
    }
    ~OurPage() { m_screen.Unload(); }

    qint64 show() {
        m_viewer->setDocument(nullptr);
        QApplication::processEvents();
        const qint64 taken = timed([&] {
            QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
            QApplication::sendEvent(m_number, &enter);
            m_viewer->grab();
        });
        if (!m_viewer->document() || m_viewer->document()->pageCount() < 1)
            throw base::RunTimeError(5, QStringLiteral("The ledger showed no page."));
        return taken;
    }
    /// From Enter to the last page.
    qint64 showAll() {
        return show() + timed([&] {
                   while (m_viewer->isRunning())
                       QApplication::processEvents();
               });
    }
    int pages() const { return m_viewer->document()->pageCount(); }

  private:
    ledger::frmPatientLedger m_screen;
    QLineEdit* m_number;
    report::Viewer* m_viewer;
};

/// What a program without a report engine would do: log on, read as many lines as a page holds, paint them.
class BarePage : public ado::RowSink {
  public:
    explicit BarePage(QSize size) : m_image(size, QImage::Format_ARGB32_Premultiplied) {}

    qint64 show(const QString& file) {
        return timed([&] {
            ado::Connection connection;
            connection.Open(engine::EmbeddedProvider::open(file, {}), QStringLiteral("bare"));
            connection.setDefaultDatabase(QStringLiteral("NUCLEAR"));
            m_image.fill(Qt::white);
            QPainter painter(&m_image);
            painter.setFont(QFont(QStringLiteral("Noto Sans"), 7));
            m_painter = &painter;
            m_lines = 0;
            m_balance = 0;
            connection.stream(ado::sql("sp_Nuclear_PatientLedger '{}','I'", account), *this);
        });
    }

    void begin(const std::vector<ado::Column>& columns) override { m_columns = int(columns.size()); }
    bool row(std::vector<base::Value>& values) override {
        for (int column = 0; column < m_columns; ++column)
            cell(column, base::textOf(values[std::size_t(column)]));
        m_balance += base::Val(base::textOf(values.back()));
        cell(m_columns, base::Format(m_balance, QStringLiteral("#,##0.00")));
        return ++m_lines < linesOfAPage;
    }

  private:
    void cell(int column, const QString& text) {
        const int width = m_image.width() / (m_columns + 1);
        m_painter->drawText(QRect(column * width, m_lines * 14, width, 14), Qt::TextSingleLine, text);
    }

    QImage m_image;
    QPainter* m_painter = nullptr;
    int m_columns = 0;
    int m_lines = 0;
    double m_balance = 0;
};

} // namespace

bool ledgerPage(const QString& folder) {
    const QString file = copyOf(hospitalFile(folder, 0), QStringLiteral("ledger.scintra"));
    chargeTheAccount(file);
    logOnTo(file);
    bool met = false;
    {
        OurPage ours;
        BarePage bare(QSize(1100, 700));
        const Outcome outcome = interleave(
            21, 3, [&](int) { return ours.show(); }, [&](int) { return bare.show(file); });
        met = Report::line(QStringLiteral("ledger of 10,000 lines: first page / bare painter"), outcome, 2.0);
        met &= Report::amounts(QStringLiteral("  first page / what it may be"), outcome.ours.median / 1e6,
                               100, QStringLiteral("ms"), 1.0);
        const qint64 all = ours.showAll();
        Report::note(
            QStringLiteral("  all %1 pages in %2 ms").arg(ours.pages()).arg(double(all) / 1e6, 0, 'f', 0));
    }
    session::forgetSession();
    return met;
}

} // namespace bench
