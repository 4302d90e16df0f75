#include "tests/results/ResultFixture.h"

#include "platform/controls/screen/TestDoors.h"
#include "platform/report/layout/PageDocument.h"
#include "results/frmResultEntry.h"
#include "results/frmResultEntryGFR.h"
#include "results/frmResultEntryMPI.h"
#include "results/frmResultRadioImmuno.h"
#include "results/frmSymbols.h"
#include "session/TestDoors.h"
#include "session/reports/ReportLaunch.h"

#include <QDir>
#include <QFile>
#include <QTabBar>
#include <QTest>

#include <variant>

namespace tests {

namespace {

using namespace results;
using controls::SharedScreen;

ResultScreen& freshScreen(Kind kind) {
    switch (kind) {
    case Kind::Generic:
        return SharedScreen<frmResultEntry>::fresh();
    case Kind::Perfusion:
        return SharedScreen<frmResultEntryMPI>::fresh();
    case Kind::Gfr:
        return SharedScreen<frmResultEntryGFR>::fresh();
    default:
        return SharedScreen<frmResultRadioImmuno>::fresh();
    }
}

/// Clicks the tab of every page around a field.
void turnTo(QWidget& field) {
    std::vector<std::pair<QTabWidget*, int>> pages;
    for (QWidget* page = &field; page->parentWidget(); page = page->parentWidget()) {
        auto* tabs = qobject_cast<QTabWidget*>(page->parentWidget()->parentWidget());
        if (tabs && tabs->indexOf(page) >= 0)
            pages.emplace_back(tabs, tabs->indexOf(page));
    }
    for (auto it = pages.rbegin(); it != pages.rend(); ++it)
        QTest::mouseClick(it->first->tabBar(), Qt::LeftButton, {},
                          it->first->tabBar()->tabRect(it->second).center());
}

} // namespace

void PrintTo(Kind kind, std::ostream* out) {
    constexpr const char* names[] = {"Generic", "Perfusion", "Gfr", "Radio"};
    *out << names[int(kind)];
}

ResultFixture::ResultFixture() {
    run("sp_Nuclear_AddRequest '104078','26004078','90001', '1001','5620','204','I', "
        "'C900J','1001','500001','','1', '','NU'");
    run("INSERT INTO STATION..tbNurseCommunicationFile (HospNum, IdNum, RequestNum, PatientType, RevenueID, "
        "ItemID, "
        "RequestDate, RecordStatus, ReferenceNum) VALUES ('104078','26004078','500001','I','NU','1001', "
        "'2026-11-21', 'X','C900J')");
    run("INSERT INTO STATION..tbNurseLogBook (HospNum, IdNum, RequestNum, PatientType, RevenueID, ItemID, "
        "RequestDate, "
        "RecordStatus, ReferenceNum) VALUES ('104078','26004078','500001','I','NU','1001', '2026-11-21', "
        "'X','C900J')");
}

ResultFixture::~ResultFixture() {
    controls::release<frmResultEntry>();
    controls::release<frmResultEntryMPI>();
    controls::release<frmResultEntryGFR>();
    controls::release<frmResultRadioImmuno>();
    controls::release<frmSymbols>();
    session::gReport.reset();
    session::setProgramFolder({});
}

ResultScreen& ResultFixture::fill(Kind kind, const QString& request) {
    ResultScreen& opened = freshScreen(kind);
    m_screen = &opened;
    opened.load();
    opened.PatientType = "I";
    opened.RequestNum = request;
    opened.RefNum = "C900J";
    opened.ItemCode = "1001";
    opened.NurseRequestNum = "500001";
    opened.setText("txtPName", "AGUILAR, ROSARIO CRUZ");
    opened.setText("txtHospNum", "104078");
    opened.setText("txtIdNum", "26004078");
    opened.setText("lblProcedure", "1001 BONE SCAN, WHOLE BODY");
    opened.setText(kind == Kind::Perfusion ? "txtCardiologistCode" : "txtAttendingDrCode", "201");
    opened.setText("txtRequestingDrCode", "204");
    opened.showCommands(std::array{"btnEdit", "btnPrint"}, false);
    return opened;
}

ResultScreen& ResultFixture::open(Kind kind, const QString& request) {
    fill(kind, request);
    show();
    return screen();
}

void ResultFixture::show() {
    screen().Show();
    screen().activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(m_screen));
    QCoreApplication::processEvents();
    takeTexts();
}

QWidget& ResultFixture::widget(const QString& name) {
    return child<QWidget>(screen(), name.toLatin1().constData());
}

void ResultFixture::type(const char* name, const QString& typed) {
    QWidget& field = widget(QString::fromLatin1(name));
    turnTo(field);
    keys(field, typed);
}

QString ResultFixture::focused() const {
    const QWidget* focus = m_screen->focusWidget();
    return focus ? focus->objectName() : QString();
}

std::string ResultFixture::station() {
    const auto stamp = [&](const char* column, const char* table) {
        return value(QStringLiteral("SELECT %1 FROM %2 WHERE RequestNum = '500001'").arg(column, table));
    };
    return QStringList{stamp("RecordStatus", "STATION..tbNurseCommunicationFile"),
                       stamp("RecordStatus", "STATION..tbNurseLogBook"),
                       stamp("ResultDate", "STATION..tbNurseLogBook"),
                       stamp("ResultBy", "STATION..tbNurseLogBook"),
                       value("SELECT RequestStatus FROM NUCLEAR..tbNucMaster WHERE RequestNum = '90001'")}
        .join(u'|')
        .toStdString();
}

void ResultFixture::useOwnReports() {
    QDir(m_programFolder.path()).mkdir("Reports");
    for (const char* name : {"NucResult", "NucResultMPI", "NucResultGFR", "NucResultRadio"}) {
        QFile definition(m_programFolder.filePath(QStringLiteral("Reports/%1.rpt").arg(name)));
        ASSERT_TRUE(definition.open(QIODevice::WriteOnly));
        definition.write(QStringLiteral(R"(<report version="1" title="%1">
  <page width="140mm" height="100mm" left="10mm" right="10mm" top="10mm" bottom="10mm"/>
  <parameter name="IdNum"/>
  <parameter name="RequestNum"/>
  <table name="Rooms" location="BUILD_FILE..tbcoRoom">SELECT TOP 1 RoomID FROM {table} ORDER BY RoomID</table>
  <details height="8mm">
    <field x="0mm" y="0mm" width="120mm" height="6mm" value="&quot;%1 &quot; &amp; {?IdNum} &amp; &quot;/&quot; &amp; {?RequestNum}"/>
  </details>
</report>)")
                             .arg(name)
                             .toUtf8());
    }
    session::setProgramFolder(m_programFolder.path());
}

QString ResultFixture::shownReport(QWidget& viewer) {
    if (viewer.objectName() != u"frmReportViewer" || !session::gReport)
        return QStringLiteral("no report but ") + viewer.objectName();
    const auto document = session::gReport->run();
    for (const report::Item& item : document->page(0)->items) {
        if (const auto* run = std::get_if<report::TextRun>(&item))
            return viewer.windowTitle() + QStringLiteral(": ") + run->text;
    }
    return QStringLiteral("an empty page");
}

std::string listed(const QStringList& texts) {
    return texts.join(u'\n').toStdString();
}

} // namespace tests
