#include "platform/report/Report.h"

#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "platform/report/Run.h"
#include "platform/report/definition/ReportError.h"
#include "platform/report/evaluation/Evaluator.h"
#include "platform/report/layout/Layout.h"
#include "platform/report/output/SheetRows.h"

#include <QDir>
#include <QFile>

namespace report {
namespace {

constexpr qint64 largestFile = 4 * 1024 * 1024;

/// The entry of `folder` with that name in any case, the exact one first; empty when there is none.
QString entryOf(const QDir& folder, const QString& name) {
    if (name.isEmpty())
        return {};
    if (folder.exists(name))
        return folder.filePath(name);
    const QStringList entries = folder.entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    const int found = indexOfName(entries, name);
    return found < 0 ? QString() : folder.filePath(entries[found]);
}

QString fileOf(const QString& path) {
    QString plain = path;
    plain.replace(u'\\', u'/');
    if (QFile::exists(plain))
        return plain;
    const qsizetype slash = plain.lastIndexOf(u'/');
    QString folder = slash < 0 ? QStringLiteral(".") : plain.left(std::max<qsizetype>(slash, 1));
    if (!QDir(folder).exists()) {
        const qsizetype parent = folder.lastIndexOf(u'/');
        folder = parent < 0
                     ? entryOf(QDir(QStringLiteral(".")), folder)
                     : entryOf(QDir(folder.left(std::max<qsizetype>(parent, 1))), folder.mid(parent + 1));
    }
    return folder.isEmpty() ? QString() : entryOf(QDir(folder), plain.mid(slash + 1));
}

template <typename Definitions>
int indexByName(const Definitions& definitions, const QString& name) {
    for (std::size_t i = 0; i < definitions.size(); ++i) {
        if (definitions[i].name.compare(name, Qt::CaseInsensitive) == 0)
            return int(i);
    }
    throw base::RunTimeError(base::errors::subscriptOutOfRange);
}

} // namespace

std::unique_ptr<Report> Report::open(const QString& path, LogOn logOn) {
    QFile file(fileOf(path));
    if (file.fileName().isEmpty() || !file.open(QIODevice::ReadOnly))
        throw base::RunTimeError(errorMissing, QStringLiteral("Invalid report file: %1").arg(path));
    const QByteArray xml = file.read(largestFile + 1);
    return std::unique_ptr<Report>(
        new Report(ReportDefinition::read(xml, file.fileName()), std::move(logOn)));
}

Report::Report(std::shared_ptr<const ReportDefinition> definition, LogOn logOn)
    : m_definition(std::move(definition))
    , m_logOn(std::move(logOn))
    , m_parameters(m_definition->parameters.size())
    , m_formulas(m_definition->formulaExpressions) {
    for (const TableDefinition& table : m_definition->tables)
        m_tables.push_back({table.location, {}, {}, {}, {}});
    for (const FormulaDefinition& one : m_definition->formulas)
        m_formulaTexts << one.text;
    for (const SubReportDefinition& one : m_definition->subReports) {
        m_subReports.push_back(std::unique_ptr<Report>(new Report(one.definition, m_logOn)));
        m_subReports.back()->m_linked = one.linked;
    }
}

Report::~Report() = default;

void Report::testLogOn() {
    for (const TableLogOn& table : m_tables)
        m_logOn(table.server, table.database, table.login, table.password)->Close();
}

QStringList Report::parameterNames() const {
    return m_definition->names().parameters;
}

void Report::setParameter(int index, base::Value value) {
    if (index < 0 || std::size_t(index) >= m_parameters.size())
        throw base::RunTimeError(base::errors::subscriptOutOfRange);
    m_parameters[std::size_t(index)] = {true, std::move(value)};
}

void Report::setParameter(const QString& name, base::Value value) {
    setParameter(indexByName(m_definition->parameters, name), std::move(value));
}

bool Report::hasParameter(int index) const {
    return index >= 0 && std::size_t(index) < m_parameters.size() && m_parameters[std::size_t(index)].first;
}

std::vector<int> Report::missingParameters() const {
    std::vector<int> missing;
    for (int i = 0; i < int(m_parameters.size()); ++i) {
        if (!hasParameter(i) && !isLinked(i))
            missing.push_back(i);
    }
    return missing;
}

bool Report::isLinked(int parameter) const {
    return std::find(m_linked.begin(), m_linked.end(), parameter) != m_linked.end();
}

QStringList Report::formulaNames() const {
    return m_definition->names().formulas;
}

QString Report::formula(const QString& name) const {
    return m_formulaTexts[indexByName(m_definition->formulas, name)];
}

void Report::setFormula(const QString& name, const QString& text) {
    const int index = indexByName(m_definition->formulas, name);
    m_formulas = withFormula(*m_definition, m_formulas, index, text);
    m_formulaTexts[index] = text;
}

Report& Report::subReport(const QString& name) {
    const int index = indexOfName(subReportNames(), name);
    if (index >= 0)
        return *m_subReports[std::size_t(index)];
    throw base::RunTimeError(errorDamaged, QStringLiteral("The report has no sub-report \"%1\".").arg(name));
}

QStringList Report::subReportNames() const {
    return m_definition->names().subReports;
}

/// A formula in a query knows parameters only: there are no rows yet.
QString Report::queryFormula(int index) const {
    Expression formula;
    formula.kind = Expression::Kind::Formula;
    formula.index = index;
    return base::textOf(Evaluator(bareData()).value(formula, Standpoint()));
}

ado::Statement Report::tableStatement(std::size_t table) const {
    const QString& location = m_tables[table].location;
    if (!isLocation(location))
        throw base::RunTimeError(errorDamaged, QStringLiteral("\"%1\" is no table's name.").arg(location));
    // The location is letters, digits and _ only, so it can become part of the text before the values are
    // checked.
    QString text = m_definition->tables[table].query;
    text.replace(QLatin1StringView("{table}"), location);
    std::vector<ado::DefinedValue> values;
    for (std::size_t i = 0; i < m_parameters.size(); ++i) {
        values.push_back({QStringLiteral("{?%1}").arg(m_definition->parameters[i].name),
                          base::textOf(m_parameters[i].second)});
    }
    for (std::size_t i = 0; i < m_formulas.size(); ++i) {
        const QString placeholder = QStringLiteral("{@%1}").arg(m_definition->formulas[i].name);
        if (text.contains(placeholder))
            values.push_back({placeholder, queryFormula(int(i))});
    }
    return ado::definedStatement(text, values);
}

std::unique_ptr<ado::Connection> Report::connect(std::size_t table) const {
    const TableLogOn& one = m_tables[table];
    return m_logOn(one.server, one.database, one.login, one.password);
}

ado::Rows Report::readTable(std::size_t table) const {
    if (m_held) {
        std::unique_ptr<ado::Connection>& held = m_held->at(table);
        if (!held)
            held = connect(table);
        return held->Execute(tableStatement(table)).rows();
    }
    const std::unique_ptr<ado::Connection> connection = connect(table);
    ado::Rows rows = connection->Execute(tableStatement(table)).rows();
    connection->Close();
    return rows;
}

std::shared_ptr<const RowSource> Report::rows(const ProgressCall& progress) const {
    if (m_tables.empty())
        return nullptr;
    const std::unique_ptr<ado::Connection> connection = connect(0);
    StoreSink sink(progress);
    const bool stopped = connection->stream(tableStatement(0), sink).stopped;
    connection->Close();
    if (stopped)
        return nullptr;
    sink.finish();
    return sink.rows();
}

SheetHeading Report::rowsHeading() const {
    return headingOf(bareData());
}

std::shared_ptr<const RowSource> Report::sheetRows(const ProgressCall& progress) const {
    std::shared_ptr<const RowSource> details = rows(progress);
    if (!details)
        return nullptr;
    std::shared_ptr<ReportData> data = bareData();
    for (std::size_t i = 1; i < m_tables.size(); ++i)
        data->tables[i] = readTable(i);
    data->details = std::move(details);
    return exportedRows(data);
}

/// Everything that needs no server.
std::shared_ptr<ReportData> Report::bareData() const {
    auto data = std::make_shared<ReportData>();
    data->definition = m_definition;
    data->tables.resize(m_tables.size());
    for (const auto& [given, value] : m_parameters)
        data->parameters.push_back(value);
    data->formulas = m_formulas;
    data->headingName = headingName;
    data->headingAddress = headingAddress;
    data->printedAt = base::now();
    data->printedBy = printedBy;
    data->watermark = watermark;
    return data;
}

/// Everything but the rows of the details.
std::shared_ptr<ReportData> Report::readBesides() const {
    std::shared_ptr<ReportData> data = bareData();
    for (std::size_t i = 1; i < m_tables.size(); ++i)
        data->tables[i] = readTable(i);
    for (std::size_t i = 0; i < m_subReports.size(); ++i) {
        Report& subReport = *m_subReports[i];
        subReport.headingName = headingName;
        subReport.headingAddress = headingAddress;
        subReport.printedBy = printedBy;
        const bool ahead = m_definition->subReports[i].readAhead;
        data->subReports.push_back(ahead ? subReport.readData() : nullptr);
        data->linked.push_back(subReport.linkedReader());
    }
    return data;
}

/// The pages outlive this report and ask again and again: a copy reads for them, over connections that stay.
ReadLinked Report::linkedReader() const {
    std::shared_ptr<Report> copy(new Report(m_definition, m_logOn));
    copy->headingName = headingName;
    copy->headingAddress = headingAddress;
    copy->printedBy = printedBy;
    copy->m_tables = m_tables;
    copy->m_parameters = m_parameters;
    copy->m_formulas = m_formulas;
    copy->m_held = std::make_unique<Connections>(m_tables.size());
    return [copy](const LinkedValues& values) {
        for (const auto& [parameter, value] : values)
            copy->setParameter(parameter, value);
        return copy->readData();
    };
}

std::shared_ptr<ReportData> Report::readData() const {
    std::shared_ptr<ReportData> data = readBesides();
    if (!m_tables.empty())
        data->tables[0] = readTable(0);
    return data;
}

std::unique_ptr<PageDocument> Report::run(const ProgressCall& progress) {
    std::shared_ptr<const RowSource> details = rows(progress);
    if (!m_tables.empty() && !details)
        return nullptr;
    std::shared_ptr<ReportData> data = readBesides();
    data->details = std::move(details);
    std::unique_ptr<PageDocument> document = layout(std::move(data), progress);
    if (document)
        document->setTitle(documentTitle());
    return document;
}

QString Report::documentTitle() const {
    return number.isEmpty() ? m_definition->title : m_definition->title + u' ' + number;
}

QString quotedFormula(const QString& text) {
    QString inside = text;
    return u'"' + inside.replace(u'"', QLatin1StringView("\"\"")) + u'"';
}

std::unique_ptr<Run> Report::start() {
    std::shared_ptr<ReportData> data = readBesides();
    std::unique_ptr<BackgroundReader> reader;
    if (!m_tables.empty()) {
        const ado::Statement statement = tableStatement(0);
        reader = std::make_unique<BackgroundReader>(connect(0), statement);
    }
    auto run = std::make_unique<Run>(std::move(data), std::move(reader));
    run->document()->setTitle(documentTitle());
    return run;
}

} // namespace report
