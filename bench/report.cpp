#include "bench/Measure.h"
#include "bench/ReportRows.h"

#include "platform/base/DesksLanguage.h"
#include "platform/base/Format.h"
#include "platform/controls/look/Look.h"
#include "platform/controls/screen/Application.h"
#include "platform/report/layout/PageDocument.h"
#include "platform/report/output/Print.h"
#include "platform/report/viewer/Viewer.h"

#include <QPainter>
#include <QPdfWriter>

#include <cstdio>
#include <cstdlib>

namespace {

using bench::ReportRow;

/// What a program without a report engine would do: the same cells, rectangle by rectangle.
class BareLoop {
  public:
    BareLoop(qint64 count, const QString& path) : m_count(count), m_writer(path) {
        m_writer.setPageSize(QPageSize(QPageSize::A4));
        m_writer.setPageMargins(QMarginsF());
        m_painter.begin(&m_writer);
        m_scale = m_writer.resolution() / 25.4;
        m_plain = QFont(QStringLiteral("Noto Sans"), 8);
        m_bold = m_plain;
        m_bold.setBold(true);
    }

    void run() {
        beginPage();
        for (qint64 i = 0; i < m_count; ++i) {
            const ReportRow row = bench::reportRow(i, m_count);
            if (i == 0 || row.station != m_station)
                beginGroup(row);
            line(row);
        }
        endGroup();
        endPage();
        m_painter.end();
    }

  private:
    void cell(double x, double width, const QString& text, int alignment = Qt::AlignLeft) {
        m_painter.drawText(QRectF(x * m_scale, m_y * m_scale, width * m_scale, 4 * m_scale),
                           alignment | Qt::AlignVCenter | Qt::TextSingleLine, text);
    }
    static QString money(double amount) { return base::Format(amount, QStringLiteral("#,##0.00")); }

    void beginPage() {
        m_y = 12;
        m_painter.setFont(m_bold);
        cell(12, 120, QStringLiteral("Transactions"));
        m_painter.drawLine(QPointF(12 * m_scale, 20 * m_scale), QPointF(198 * m_scale, 20 * m_scale));
        m_painter.setFont(m_plain);
        m_y = 22;
    }
    void endPage() {
        m_y = 280;
        cell(12, 186, QStringLiteral("Page %1 of %2").arg(m_page).arg(m_page), Qt::AlignHCenter);
    }
    void room(double height) {
        if (m_y + height <= 277)
            return;
        endPage();
        m_writer.newPage();
        ++m_page;
        beginPage();
    }
    void beginGroup(const ReportRow& row) {
        if (!m_station.isEmpty())
            endGroup();
        m_station = row.station;
        m_sum = 0;
        m_lines = 0;
        room(6);
        m_painter.setFont(m_bold);
        cell(12, 100, m_station);
        m_painter.setFont(m_plain);
        m_y += 6;
    }
    void endGroup() {
        room(6);
        m_painter.setFont(m_bold);
        cell(12, 100, QStringLiteral("Lines of %1: %2").arg(m_station).arg(m_lines));
        cell(168, 30, money(m_sum), Qt::AlignRight);
        m_painter.setFont(m_plain);
        m_y += 6;
    }
    void line(const ReportRow& row) {
        room(4.5);
        cell(12, 14, QString::number(row.number), Qt::AlignRight);
        cell(28, 24, base::Format(row.at, QStringLiteral("mm/dd/yyyy hh:nn")));
        cell(53, 14, row.station);
        cell(68, 38, row.patient);
        cell(107, 34, row.exam);
        cell(142, 26, row.doctor);
        cell(169, 8, QString::number(row.quantity), Qt::AlignRight);
        cell(178, 20, money(row.amount), Qt::AlignRight);
        m_sum += row.amount;
        ++m_lines;
        m_y += 4.5;
    }

    qint64 m_count;
    QPdfWriter m_writer;
    QPainter m_painter;
    QFont m_plain, m_bold;
    double m_scale = 1;
    double m_y = 0;
    int m_page = 1;
    QString m_station;
    double m_sum = 0;
    qint64 m_lines = 0;
};

/// From the call to the first page painted, while the other pages are still being made.
qint64 firstPage(qint64 count) {
    report::Viewer viewer;
    viewer.resize(1180, 760);
    viewer.show();
    QApplication::processEvents();
    const auto report = bench::reportOf(count);
    return bench::timed([&] {
        viewer.showReport(*report);
        viewer.grab();
    });
}

} // namespace

/// bench-report pdf|bare|screen ROWS FILE: nanoseconds and bytes of peak memory.
int main(int argc, char** argv) {
    base::ignoreDesksLanguage();
    controls::Application application(argc, argv);
    controls::look::apply(application);
    const QStringList words = application.arguments().mid(1);
    const QString what = words.value(0);
    const qint64 count = words.value(1).toLongLong();
    const QString path = words.value(2);
    qint64 taken = 0;
    if (what == QLatin1String("screen"))
        taken = firstPage(count);
    else if (what == QLatin1String("bare"))
        taken = bench::timed([&] { BareLoop(count, path).run(); });
    else
        taken = bench::timed([&] { report::exportPdf(*bench::reportOf(count)->run(), path); });
    std::printf("%lld %lld\n", static_cast<long long>(taken), static_cast<long long>(bench::peakMemory()));
    std::fflush(stdout);
    std::_Exit(0);
}
