#pragma once

#include "platform/report/definition/ReportDefinition.h"

#include <QSet>
#include <QXmlStreamReader>

#include <functional>
#include <map>

namespace report {

/// Reads one definition, once. Unknown elements and attributes are errors: a slip of the pen must not print a
/// wrong paper. No document type, so no entity but the five of XML.
class DefinitionReader {
  public:
    DefinitionReader(const QByteArray& xml, QString file);
    /// Raises 20515 with file, line and column.
    std::shared_ptr<const ReportDefinition> read();

  private:
    class Attributes;
    using Children = std::function<bool(const QString& name, Attributes& attributes)>;

    [[noreturn]] void fail(const QString& reason) const;
    void readChildren(const Children& child);
    void endElement();
    QString readText();

    void readRoot();
    bool readSection(const QString& name, Attributes& attributes);
    void readPage(Attributes& attributes);
    void readStyle(Attributes& attributes);
    void readParameter(Attributes& attributes);
    void readTable(Attributes& attributes);
    void readFormula(Attributes& attributes);
    void readGroup(Attributes& attributes);
    void readWatermark(Attributes& attributes);
    void readSubReport(Attributes& attributes);
    void readSheet(Attributes& attributes);
    void readSheetLine(Attributes& attributes);
    void readSheetColumn(Attributes& attributes);
    Band readBand(Attributes& attributes);
    Element readElement(const QString& name, Attributes& attributes);
    void readField(Element& element, Attributes& attributes, bool literal);
    void readShape(Element& element, Attributes& attributes);
    void readChart(Element& element, Attributes& attributes);
    void readInsert(Element& element, Attributes& attributes);
    Link readLink(const Element& insert, Attributes& attributes);
    void finishInserts();
    QImage readPicture();

    void finishFormulas();
    void checkPage() const;
    Expression expression(const QString& text) const;
    int styleIndex(const QString& name) const;

    QXmlStreamReader m_xml;
    const QByteArray& m_source;
    QString m_file;
    std::shared_ptr<ReportDefinition> m_definition;
    /// Every name, collected ahead, so that an expression may use what is told further down.
    Names m_names;
    std::vector<Names> m_subNames; ///< of the sub-reports, in the file's order
    bool m_inSubReport = false;
    std::map<int, std::vector<QSet<int>>> m_inserts; ///< by sub-report: what each placing of it links
    struct Place {
        qint64 line, column;
    };
    std::vector<Place> m_formulaPlaces;
};

} // namespace report
