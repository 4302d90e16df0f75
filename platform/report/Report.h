#pragma once

#include "platform/ado/Connection.h"
#include "platform/base/Value.h"
#include "platform/report/Progress.h"
#include "platform/report/evaluation/LinkedValues.h"
#include "platform/report/output/SheetHeading.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

namespace report {

class ReportDefinition;
class PageDocument;
class RowSource;
class Run;
struct Expression;

/// Opens a connection for a report's tables. Raises what the server says.
using LogOn = std::function<std::unique_ptr<ado::Connection>(const QString& server, const QString& database,
                                                             const QString& login, const QString& password)>;

/// One table of a report: where it lies and who reads it.
struct TableLogOn {
    QString location; ///< "DATABASE..table" or "DATABASE..procedure"
    QString server, database, login, password;
};

/// An open report: its definition and what a caller gave it. Reads its rows when it is laid out, over
/// connections of its own.
class Report {
  public:
    /// Raises RunTimeError 20515 with line and column when the file is damaged, 20507 ("Invalid report file:
    /// <path>") when it is missing. Backslashes in the path are taken as separators on every system; the
    /// file's name is found in any case.
    static std::unique_ptr<Report> open(const QString& path, LogOn logOn);
    ~Report();

    const ReportDefinition& definition() const { return *m_definition; }

    /// The two document properties that make the heading.
    QString headingName;
    QString headingAddress;
    /// Who prints it, a value of the run as its time is; "" where nobody is known.
    QString printedBy;
    /// Stands across every page ("RE-PRINT"), in place of the definition's own; "" leaves that.
    QString watermark;
    /// The number of the paper that this is ("C20170J"): told behind the title, and so in the name of an
    /// export.
    QString number;

    /// A changed location must read "DATABASE..table": run() raises 20515 otherwise.
    std::vector<TableLogOn>& tables() { return m_tables; }
    /// Connects every table once, to fail where a log-on fails.
    void testLogOn();

    QStringList parameterNames() const; ///< in stored order
    void setParameter(int index, base::Value value);
    /// Raises 9 when there is no parameter of that name.
    void setParameter(const QString& name, base::Value value);
    bool hasParameter(int index) const;
    /// Parameters without a value, in stored order: they prompt before the report runs. A sub-report's
    /// parameters that get theirs from where it is placed are not among them.
    std::vector<int> missingParameters() const;

    QStringList formulaNames() const; ///< in stored order
    /// Raises 9 when there is no formula of that name.
    QString formula(const QString& name) const;
    /// Raises 9, and 20515 when the text cannot be read or leads back to itself. quotedFormula() makes a
    /// formula of a text that is to stand there as it is.
    void setFormula(const QString& name, const QString& text);

    /// A report inside this one, opened by name. Raises 20515 when there is none. Owned by this report.
    Report& subReport(const QString& name);
    QStringList subReportNames() const;

    /// Reads the rows that make the details, without holding them all in memory. Null when the report has no
    /// table, or when `progress` gave it up. Raises what the server says.
    std::shared_ptr<const RowSource> rows(const ProgressCall& progress = {}) const;

    /// What an export writes: these rows as the definition's sheet tells them. Null as rows() is.
    std::shared_ptr<const RowSource> sheetRows(const ProgressCall& progress = {}) const;
    /// What a sheet of them is headed with.
    SheetHeading rowsHeading() const;

    /// Reads the rows and lays out all pages. Parameters without a value are Null. Raises what the server
    /// says and what layout() raises. The document stands on its own: the report may go. Null
    /// when `progress`, called on this thread, gave it up.
    std::unique_ptr<PageDocument> run(const ProgressCall& progress = {});
    /// The same, but comes back at once: whoever wants the pages lets the run work. Raises at once what a
    /// log-on and the smaller tables raise. The run stands on its own.
    std::unique_ptr<Run> start();

  private:
    Report(std::shared_ptr<const ReportDefinition> definition, LogOn logOn);
    QString documentTitle() const;
    std::unique_ptr<ado::Connection> connect(std::size_t table) const;
    bool isLinked(int parameter) const;
    ReadLinked linkedReader() const;
    ado::Rows readTable(std::size_t table) const;
    std::shared_ptr<ReportData> bareData() const;
    std::shared_ptr<ReportData> readBesides() const;
    std::shared_ptr<ReportData> readData() const;
    QString queryFormula(int index) const;
    ado::Statement tableStatement(std::size_t table) const;

    std::shared_ptr<const ReportDefinition> m_definition;
    LogOn m_logOn;
    std::vector<TableLogOn> m_tables;
    std::vector<std::pair<bool, base::Value>> m_parameters; ///< given, value
    QStringList m_formulaTexts;
    std::vector<Expression> m_formulas;
    std::vector<std::unique_ptr<Report>> m_subReports;
    std::vector<int> m_linked; ///< parameters that a report around this one gives
    using Connections = std::vector<std::unique_ptr<ado::Connection>>;
    /// Of the tables, kept open between readings; null: each reading opens its own.
    std::unique_ptr<Connections> m_held;
};

/// The text as a formula that tells it: in double quotes, those inside it doubled.
QString quotedFormula(const QString& text);

} // namespace report
