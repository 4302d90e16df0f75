#include "tools/scintra-tour/ResultWalk.h"

#include "platform/controls/grid/FlexGrid.h"
#include "platform/report/layout/PageDocument.h"
#include "platform/report/viewer/Viewer.h"
#include "tools/scintra-tour/Steps.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

#include <stdexcept>

namespace tour {

namespace {

/// Whichever entry screen the exam led to.
QWidget* entryScreen() {
    for (const char* name : {"frmResultEntry", "frmResultEntryGFR", "frmResultRadioImmuno"}) {
        if (QWidget* found = windowOnTop(QLatin1String(name)))
            return found;
    }
    return nullptr;
}

/// What a technologist and a physician write. The tour's request is an assay of Anti-TG; the other screens
/// are ready for another one.
struct Written {
    const char* screen;
    const char* field;
    const char* text;
};
constexpr Written written[] = {
    {"frmResultRadioImmuno", "txtNormal_1", "28.4 IU/mL"},
    {"frmResultRadioImmuno", "txtTechnologist", "R. VILLANUEVA"},
    {"frmResultEntryGFR", "txtRadiopharmaceutical", "Tc-99m DTPA"},
    {"frmResultEntryGFR", "txtDose", "10 mCi"},
    {"frmResultEntryGFR", "txtProjections", "POSTERIOR"},
    {"frmResultEntryGFR", "txtScale", "97.5"},
    {"frmResultEntry", "txtRadiopharmaceutical", "Tc-99m MDP"},
    {"frmResultEntry", "txtDose", "20 mCi"},
    {"frmResultEntry", "txtRoute", "I.V."},
    {"frmResultEntry", "txtProjections", "ANTERIOR AND POSTERIOR"},
    {"frmResultEntry", "txtClinicalHistory", "Low back pain for three months."},
    {"frmResultEntry", "txtConsultation", "Tracer distribution is homogenous."},
    {"frmResultEntry", "txtConclusion", "NORMAL BONE SCAN."},
};

/// What stood in the field goes; false where the window is another screen.
bool writtenOver(QWidget& window, const Written& one) {
    if (window.objectName() != QLatin1String(one.screen))
        return false;
    const QString name = QLatin1String(one.field);
    if (auto* line = window.findChild<QLineEdit*>(name)) {
        line->selectAll();
        QTest::keyClicks(line, QLatin1String(one.text));
        return true;
    }
    QTest::keyClicks(&control<QPlainTextEdit>(window, name), QLatin1String(one.text));
    return true;
}

void addRequest(Walk& walk, const QString& admissionNumber, const QString& chargeSlip) {
    walk.step(QStringLiteral("Click the results' main button"), seen("frmMainMenu"),
              clicked("cmdMainMenu_1"));
    walk.step(QStringLiteral("Click \"Result Entry\""), offered("Result Entry"), commanded("Result Entry"));
    walk.step(QStringLiteral("Search the patient by the admission number"),
              focused("frmRequestMaster", "txtSearch"), [&admissionNumber](QWidget& window) {
                  typed("txtSearch", admissionNumber, Qt::Key_Return)(window);
              });
    walk.step(QStringLiteral("Go to the list"), focused("frmRequestMaster", "txtSearch"),
              typed("txtSearch", {}, Qt::Key_Down));
    walk.picture(QStringLiteral("request-master"), focused("frmRequestMaster", "grdTable"));
    walk.step(QStringLiteral("Take the patient with Enter"), focused("frmRequestMaster", "grdTable"),
              typed("grdTable", {}, Qt::Key_Return));
    walk.step(QStringLiteral("Move to the request"), focused("frmResult", "grdTable"),
              [&chargeSlip](QWidget& window) {
                  auto& grid = control<controls::FlexGrid>(window, QStringLiteral("grdTable"));
                  while (grid.TextMatrix(grid.Row(), 7) != chargeSlip) {
                      const int row = grid.Row();
                      QTest::keyClick(&grid, Qt::Key_Down);
                      if (grid.Row() == row)
                          throw std::runtime_error("the request is not in the list");
                  }
              });
    walk.picture(QStringLiteral("result-list"), focused("frmResult", "grdTable"));
    walk.step(QStringLiteral("Take the request with Enter"), focused("frmResult", "grdTable"),
              typed("grdTable", {}, Qt::Key_Return));
}

void addEntry(Walk& walk, ResultWalkResult& result) {
    walk.step(QStringLiteral("Type the case number"), entryScreen,
              typed("txtCaseNum", QStringLiteral("90001"), Qt::Key_Tab));
    walk.step(QStringLiteral("Type what was measured and read"), entryScreen, [&result](QWidget& window) {
        for (const Written& one : written) {
            if (writtenOver(window, one))
                result.written << QLatin1String(one.text);
        }
    });
    walk.picture(QStringLiteral("result"), entryScreen);
    walk.step(QStringLiteral("Save and print the result"), entryScreen, clicked("btnSavePrint"));
    walk.step(QStringLiteral("Close the result's box with Enter"),
              boxSaying(QStringLiteral("Data Successfully Saved!")), pressEnter);
}

void addPage(Walk& walk, ResultWalkResult& result) {
    walk.picture(QStringLiteral("result-page"), seen("frmReportViewer"));
    walk.step(QStringLiteral("Read the page and leave the viewer"), seen("frmReportViewer"),
              [&result](QWidget& window) {
                  const report::PageDocument* pages =
                      control<report::Viewer>(window, QStringLiteral("CRViewer1")).document();
                  if (pages && pages->pageCount() > 0)
                      result.page = report::textOf(*pages->page(0));
                  QTest::keyClick(&window, Qt::Key_Escape);
              });
    walk.step(QStringLiteral("Leave the patients with Escape"), focused("frmRequestMaster", "txtSearch"),
              typed("txtSearch", {}, Qt::Key_Escape));
}

} // namespace

void addResultWalk(Walk& walk, const QString& admissionNumber, const QString& chargeSlip,
                   ResultWalkResult& result) {
    addRequest(walk, admissionNumber, chargeSlip);
    addEntry(walk, result);
    addPage(walk, result);
}

} // namespace tour
