#include "bench/ReportRows.h"

#include "platform/ado/Provider.h"

#include <QFile>
#include <QTemporaryDir>

namespace bench {

namespace {

constexpr int groups = 50;

const char* const definition = R"xml(<report version="1" title="Measured">
<page width="210mm" height="297mm" left="12mm" top="12mm" right="12mm" bottom="12mm"/>
<table name="Lines" location="NUCLEAR..tbLines"/>
<style name="s" size="8pt"/><style name="b" size="8pt" bold="yes"/>
<group name="Station" by="{Station}">
 <header height="6mm"><field x="0mm" y="1mm" width="100mm" height="4mm" style="b" value="{Station}"/></header>
 <footer height="6mm">
  <field x="0mm" y="1mm" width="100mm" height="4mm" style="b" value="&quot;Lines of &quot; &amp; {Station} &amp; &quot;: &quot; &amp; Count({Number})"/>
  <field x="156mm" y="1mm" width="30mm" height="4mm" style="b" align="right" value="Sum({Amount})" format="#,##0.00"/>
 </footer>
</group>
<pageHeader height="10mm">
 <field x="0mm" y="0mm" width="120mm" height="5mm" style="b" value="&quot;Transactions&quot;"/>
 <line x="0mm" y="8mm" width="186mm"/>
</pageHeader>
<details height="4.5mm">
 <field x="0mm" y="0mm" width="14mm" height="4mm" style="s" align="right" value="{Number}"/>
 <field x="16mm" y="0mm" width="24mm" height="4mm" style="s" value="{At}" format="mm/dd/yyyy hh:nn"/>
 <field x="41mm" y="0mm" width="14mm" height="4mm" style="s" value="{Station}"/>
 <field x="56mm" y="0mm" width="38mm" height="4mm" style="s" value="{Patient}"/>
 <field x="95mm" y="0mm" width="34mm" height="4mm" style="s" value="{Exam}"/>
 <field x="130mm" y="0mm" width="26mm" height="4mm" style="s" value="{Doctor}"/>
 <field x="157mm" y="0mm" width="8mm" height="4mm" style="s" align="right" value="{Quantity}"/>
 <field x="166mm" y="0mm" width="20mm" height="4mm" style="s" align="right" value="{Amount}" format="#,##0.00"/>
</details>
<pageFooter height="8mm"><field x="0mm" y="3mm" width="186mm" height="4mm" style="s" align="centre" value="&quot;Page &quot; &amp; PageNumber &amp; &quot; of &quot; &amp; PageCount"/></pageFooter>
<reportFooter height="8mm"><field x="146mm" y="2mm" width="40mm" height="4mm" style="b" align="right" value="Sum({Amount})" format="#,##0.00"/></reportFooter>
</report>)xml";

/// Knows one statement: the rows of the report.
class RowServer : public ado::Provider {
  public:
    explicit RowServer(qint64 count) : m_count(count) {}
    ado::Result execute(const QString&) override { return {}; }
    ado::Streamed stream(const QString&, ado::RowSink& sink) override {
        using Type = ado::DataType;
        const std::pair<const char*, Type> names[] = {{"Station", Type::Text},     {"Patient", Type::Text},
                                                      {"Exam", Type::Text},        {"Doctor", Type::Text},
                                                      {"Number", Type::Integer},   {"At", Type::DateTime},
                                                      {"Quantity", Type::Integer}, {"Amount", Type::Money}};
        std::vector<ado::Column> columns;
        for (const auto& [name, type] : names)
            columns.push_back({QString::fromLatin1(name), type, {}, {}});
        sink.begin(columns);
        ado::Streamed end;
        std::vector<base::Value> values;
        while (end.rows < m_count && !end.stopped) {
            ReportRow row = reportRow(end.rows++, m_count);
            values = {std::move(row.station),
                      std::move(row.patient),
                      std::move(row.exam),
                      std::move(row.doctor),
                      row.number,
                      row.at,
                      row.quantity,
                      row.amount};
            end.stopped = !sink.row(values);
        }
        return end;
    }
    void begin() override {}
    void commit() override {}
    void rollback() override {}
    bool inTransaction() const override { return false; }
    void useDatabase(const QString&) override {}
    QStringList primaryKey(const QString&) override { return {}; }

  private:
    qint64 m_count;
};

} // namespace

ReportRow reportRow(qint64 index, qint64 count) {
    static const QString exams[] = {QStringLiteral("WHOLE BODY BONE SCAN"), QStringLiteral("THYROID SCAN"),
                                    QStringLiteral("MYOCARDIAL PERFUSION"), QStringLiteral("GFR")};
    ReportRow row;
    row.station =
        QStringLiteral("ST %1").arg(index / std::max<qint64>(1, count / groups), 2, 10, QChar(u'0'));
    row.patient = QStringLiteral("DELA CRUZ, MARIA %1").arg(index % 9973);
    row.exam = exams[index % 4];
    row.doctor = QStringLiteral("DR. SANTOS %1").arg(index % 37);
    row.number = index + 1;
    row.at = base::DateTime{1'790'000'000'000 + index * 61'000};
    row.quantity = 1 + index % 3;
    row.amount = double(index % 100'000) * 1.25 + 350;
    return row;
}

std::unique_ptr<report::Report> reportOf(qint64 count) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Measured.RPT"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return nullptr;
    file.write(definition);
    file.close();
    return report::Report::open(
        path, [count](const QString&, const QString&, const QString&, const QString&) {
            auto connection = std::make_unique<ado::Connection>();
            connection->Open(std::make_unique<RowServer>(count), QStringLiteral("rows"));
            return connection;
        });
}

} // namespace bench
