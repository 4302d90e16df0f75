#include "tests/platform/report/Bench.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QUuid>

#include <gtest/gtest.h>

namespace tests {
namespace {

/// Writes down what a report sends.
class Recording : public ScriptedProvider {
  public:
    explicit Recording(ReportServer& server) : m_server(server) {}
    ado::Result execute(const QString& text) override {
        m_server.texts << text;
        return m_server.lines;
    }

  private:
    ReportServer& m_server;
};

} // namespace

QByteArray definitionOf(const QString& inside, const QString& columnsTable) {
    return QStringLiteral("<report version=\"1\" title=\"Test\">\n"
                          "<page width=\"100mm\" height=\"100mm\" left=\"10mm\" top=\"10mm\" right=\"10mm\" "
                          "bottom=\"10mm\"/>\n"
                          "<style name=\"s\" size=\"10pt\"/>\n"
                          "<table name=\"%1\" location=\"NUCLEAR..tbLines\"/>\n"
                          "%2\n"
                          "</report>\n")
        .arg(columnsTable, inside)
        .toUtf8();
}

std::unique_ptr<report::PageDocument> laidOut(const QString& inside, const QString& columns,
                                              const Cells& rows) {
    auto data = std::make_shared<report::ReportData>();
    data->definition = report::ReportDefinition::read(definitionOf(inside), QStringLiteral("test.RPT"));
    data->tables.push_back(ScriptedProvider::rowsOf(columns, rows).rows);
    data->formulas = data->definition->formulaExpressions;
    data->headingName = QStringLiteral("VALE GENERAL HOSPITAL");
    data->headingAddress = QStringLiteral("1 Harbour Road");
    data->printedAt = *base::makeDateTime({2026, 11, 21}, {20, 30, 5, 0});
    data->printedBy = QStringLiteral("REYES, JOAN P.");
    return report::layout(std::move(data));
}

QStringList textsOf(const report::PageDocument& document, int page) {
    QStringList texts;
    for (const report::Item& item : document.page(page)->items) {
        if (const auto* run = std::get_if<report::TextRun>(&item))
            texts << run->text;
    }
    return texts;
}

report::TextRun runOf(const report::PageDocument& document, int page, const QString& text) {
    for (const report::Item& item : document.page(page)->items) {
        const auto* run = std::get_if<report::TextRun>(&item);
        if (run && run->text == text)
            return *run;
    }
    ADD_FAILURE() << "no text \"" << qPrintable(text)
                  << "\" among: " << qPrintable(textsOf(document, page).join(QStringLiteral(" | ")));
    return {};
}

report::LogOn ReportServer::logOn() {
    return [this](const QString& server, const QString& database, const QString& login,
                  const QString& password) {
        logOns << QStringList{server, database, login, password}.join(u'|');
        if (failing)
            throw base::RunTimeError(failing, QStringLiteral("Cannot open database requested in login."));
        auto connection = std::make_unique<ado::Connection>();
        connection->Open(std::make_unique<Recording>(*this), QStringLiteral("report"));
        return connection;
    };
}

Folder::Folder() : m_path(QDir::tempPath() + u'/' + QUuid::createUuid().toString(QUuid::WithoutBraces)) {
    QDir().mkpath(m_path);
}

Folder::~Folder() {
    QDir(m_path).removeRecursively();
}

QString Folder::path(const QString& name) const {
    return m_path + u'/' + name;
}

QString Folder::write(const QString& name, const QByteArray& content) const {
    QDir().mkpath(path(name).section(u'/', 0, -2));
    QFile file(path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
    return path(name);
}

QString toolOutput(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(30000)) << qPrintable(program) << " is needed (poppler-utils)";
    return QString::fromUtf8(process.readAllStandardOutput());
}

} // namespace tests
