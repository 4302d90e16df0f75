#pragma once

#include "platform/report/Report.h"
#include "platform/report/layout/Layout.h"
#include "platform/report/layout/PageDocument.h"
#include "tests/support/core/ScriptedProvider.h"

#include <QStringList>

#include <memory>
#include <ostream>
#include <vector>

/// How GoogleTest shows a text; it would list its bytes.
inline void PrintTo(const QString& text, std::ostream* stream) {
    *stream << '"' << text.toStdString() << '"';
}

namespace tests {

using Cells = std::vector<std::vector<base::Value>>;

/// A definition of a 100 x 100 mm paper with 10 mm margins, a style "s" of 10 pt, one table and the given
/// inside.
QByteArray definitionOf(const QString& inside, const QString& columnsTable = QStringLiteral("Lines"));

/// Lays the inside out over one table's rows.
std::unique_ptr<report::PageDocument>
laidOut(const QString& inside, const QString& columns = QStringLiteral("A"), const Cells& rows = {});

/// Every text of a page, in painting order.
QStringList textsOf(const report::PageDocument& document, int page);
/// The first run with that text; fails the test when there is none.
report::TextRun runOf(const report::PageDocument& document, int page, const QString& text);

/// One scripted server for all connections of a report, and what was sent to it.
struct ReportServer {
    ado::Result lines;
    QStringList texts;
    QStringList logOns;
    int failing = 0; ///< error number that a log-on raises

    report::LogOn logOn();
};

/// Files for one test, in a folder of their own that goes with it.
class Folder {
  public:
    Folder();
    ~Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    QString path(const QString& name) const;
    QString write(const QString& name, const QByteArray& content) const;

  private:
    QString m_path;
};

/// What a poppler tool says about a file.
QString toolOutput(const QString& program, const QStringList& arguments);

} // namespace tests
