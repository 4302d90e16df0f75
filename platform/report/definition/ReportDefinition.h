#pragma once

#include "platform/report/definition/Length.h"
#include "platform/report/evaluation/Expression.h"

#include <QColor>
#include <QImage>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

class QByteArray;

namespace report {

enum class ParameterType { Text, Number, Date };
enum class Alignment { Left, Centre, Right };

struct FontStyle {
    QString name;
    QString family; ///< empty: the house's font for paper
    double points = 9;
    bool bold = false;
    bool italic = false;
    QColor colour = QColor(0x1F, 0x2A, 0x33);
};

/// A sub-report's parameter that takes its value from where it is placed.
struct Link {
    int parameter = 0;
    Expression value;
};

/// Something in a band. Its frame counts from the band's top left corner.
struct Element {
    enum class Kind { Field, Line, Box, Picture, Chart, SubReport };

    Kind kind = Kind::Field;
    Frame frame;
    std::optional<Expression> visible;
    /// "#RRGGBB" in place of a text's or line's colour, or of a box's fill; "" and Null leave it.
    std::optional<Expression> tint;
    // Field, Chart
    Expression value;
    QString format; ///< for base::Format; empty: the value as text
    int style = 0;
    Alignment alignment = Alignment::Left;
    bool wrap = false;
    bool grow = false; ///< takes the height that its lines need, and moves down what stands below it
    // Line, Box
    Length thickness;
    Length radius;
    QColor colour;
    QColor fill; ///< invalid: none
    // Picture
    QImage picture;
    // Chart: a bar a row, or a bar a group of the level `index`. SubReport: its `index`.
    Expression label;
    int index = -1;
    std::vector<Link> links; ///< of a sub-report
    int most = 0;            ///< bars; what is left over makes one more
};

struct Band {
    Length height;
    std::vector<Element> elements;
    std::optional<Expression> visible;
    bool newPageBefore = false;
    /// Page headers: left out where a page begins with a report footer that wanted a page of its own.
    bool withRows = false;
    bool atBottom = false; ///< report footers: stands right above the page footer
    bool tear = false;     ///< begins where the page has room for a few lines, and goes on on the next one
    /// Begins a page rather than being parted from the band that shows next, where one page holds both.
    bool keepWithNext = false;
};

struct Group {
    QString name;
    Expression by;
    std::optional<Expression> label; ///< in the group tree; else the value of `by`
    bool repeat = false;             ///< the header comes again on each page that goes on with the group
    bool newPage = false;            ///< every group but the first begins a page
    bool keepTogether = false;       ///< begins a page rather than being torn, where one page holds it
    std::vector<Band> headers;
    std::vector<Band> footers;
};

struct ParameterDefinition {
    QString name;
    ParameterType type = ParameterType::Text;
    QString prompt; ///< what the prompt calls it
};

struct TableDefinition {
    QString name;
    QString location; ///< "DATABASE..table"
    /// Text with {table} for the location, {?Name} for parameters and {@Name} for formulas over them.
    QString query;
};

struct FormulaDefinition {
    QString name;
    QString text;
};

struct Watermark {
    Expression value;
    int style = 0;
    double degrees = -35;
};

/// A column of the workbook and of the CSV file that a report is exported to.
struct SheetColumn {
    enum class Kind { Text, Number, Amount, Date, Moment };
    QString caption;
    Kind kind = Kind::Text;
    Expression value;
};

/// What an export holds. Without columns it is the first table as it comes.
struct SheetDefinition {
    std::optional<Expression> title; ///< else the document's
    std::vector<Expression> lines;   ///< below the title, such as the period; empty ones take no line
    std::vector<SheetColumn> columns;
};

class ReportDefinition;

struct SubReportDefinition {
    QString name;
    std::shared_ptr<const ReportDefinition> definition;
    std::vector<int> linked; ///< parameters that get their value wherever it is placed
    bool readAhead = true;   ///< its rows are the same wherever it is placed, at least once
};

/// A report as its file tells it. Never changed once it is read. The first table gives the details, one band
/// a row; of the others the first row can be used.
class ReportDefinition {
  public:
    /// Reads the XML text; `file` is named in errors. Raises 20515 with line and column.
    static std::shared_ptr<const ReportDefinition> read(const QByteArray& xml, const QString& file);

    QString title; ///< the printed document's title
    Length paperWidth, paperHeight;
    Length left, top, right, bottom; ///< margins
    int columns = 1;                 ///< the body runs in as many, from left to right
    Length gutter;                   ///< between two columns
    std::vector<FontStyle> styles;   ///< the first one is the default
    std::vector<ParameterDefinition> parameters;
    std::vector<TableDefinition> tables;
    std::vector<FormulaDefinition> formulas;
    std::vector<Expression> formulaExpressions;
    std::vector<Group> groups; ///< outermost first
    std::vector<Band> reportHeaders, pageHeaders, details, pageFooters, reportFooters;
    std::optional<Watermark> watermark;
    SheetDefinition sheet;
    /// Without a page of their own; placed in bands by Element::Kind::SubReport.
    std::vector<SubReportDefinition> subReports;

    Length columnWidth() const;
    Names names() const;
};

/// Expressions in place of `definition`'s formulas, with one of them told anew. Raises 20515 when the text
/// cannot be read or leads back to itself.
std::vector<Expression> withFormula(const ReportDefinition& definition,
                                    const std::vector<Expression>& formulas, int index, const QString& text);

} // namespace report
