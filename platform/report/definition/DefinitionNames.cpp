#include "platform/report/definition/DefinitionNames.h"

#include "platform/base/Error.h"
#include "platform/report/definition/ReportError.h"

#include <QXmlStreamReader>

namespace report {
namespace {

constexpr int deepest = 12;
constexpr int mostElements = 5000;
constexpr int mostFormulas = 300;

class NameReader {
  public:
    NameReader(const QByteArray& xml, const QString& file) : m_xml(xml), m_file(file) {}
    DefinitionNames read();

  private:
    [[noreturn]] void fail(const QString& reason) const {
        failAt(m_file, m_xml.lineNumber(), m_xml.columnNumber() + 1, reason);
    }
    void collectName(Names& names, QStringView element);
    void checkNames(const Names& names) const;

    QXmlStreamReader m_xml;
    const QString& m_file;
    DefinitionNames m_names;
};

DefinitionNames NameReader::read() {
    int depth = 0;
    int elements = 0;
    bool inside = false;
    while (!m_xml.atEnd()) {
        const QXmlStreamReader::TokenType token = m_xml.readNext();
        if (token == QXmlStreamReader::DTD)
            fail(QStringLiteral("a document type is not allowed"));
        if (token == QXmlStreamReader::EntityReference)
            fail(QStringLiteral("an entity of its own is not allowed"));
        if (token == QXmlStreamReader::EndElement) {
            --depth;
            inside = inside && depth > 1;
        }
        if (token != QXmlStreamReader::StartElement)
            continue;
        if (++depth > deepest)
            fail(QStringLiteral("the elements are nested too deeply"));
        if (++elements > mostElements)
            fail(QStringLiteral("there are too many elements"));
        const QStringView element = m_xml.name();
        collectName(inside ? m_names.subReports.back() : m_names.report, element);
        if (depth == 2 && element == QLatin1StringView("subReport")) {
            inside = true;
            m_names.subReports.emplace_back();
        }
    }
    if (m_xml.hasError())
        fail(m_xml.errorString());
    checkNames(m_names.report);
    for (const Names& names : m_names.subReports)
        checkNames(names);
    return std::move(m_names);
}

void NameReader::collectName(Names& names, QStringView element) {
    struct Kind {
        const char* element;
        QStringList Names::*list;
    };
    static constexpr Kind kinds[] = {{"parameter", &Names::parameters},
                                     {"table", &Names::tables},
                                     {"formula", &Names::formulas},
                                     {"group", &Names::groups},
                                     {"subReport", &Names::subReports}};
    for (const Kind& kind : kinds) {
        if (element != QLatin1StringView(kind.element))
            continue;
        const QString name = m_xml.attributes().value(QStringLiteral("name")).toString();
        if (name.trimmed().isEmpty())
            fail(QStringLiteral("attribute name is missing"));
        (names.*kind.list) << name;
    }
}

void NameReader::checkNames(const Names& names) const {
    if (names.formulas.size() > mostFormulas)
        fail(QStringLiteral("there are too many formulas"));
    for (const QStringList& list :
         {names.parameters, names.tables, names.formulas, names.groups, names.subReports}) {
        for (qsizetype i = 0; i < list.size(); ++i) {
            if (indexOfName(list, list[i]) != i)
                fail(QStringLiteral("the name \"%1\" is given twice").arg(list[i]));
        }
    }
}

} // namespace

DefinitionNames namesOf(const QByteArray& xml, const QString& file) {
    return NameReader(xml, file).read();
}

void failAt(const QString& file, qint64 line, qint64 column, const QString& reason) {
    throw base::RunTimeError(
        errorDamaged,
        QStringLiteral("%1: line %2, column %3: %4.").arg(file).arg(line).arg(column).arg(reason));
}

} // namespace report
