#include "tools/scintra-tour/RevocationWalk.h"

#include "platform/controls/grid/FlexGrid.h"
#include "platform/report/layout/PageDocument.h"
#include "platform/report/viewer/Viewer.h"
#include "session/reports/ReportLaunch.h"
#include "tools/scintra-tour/Steps.h"

#include <QTest>

#include <stdexcept>

namespace tour {

namespace {

void addReprint(Walk& walk, const QString& admissionNumber, const QString& chargeSlip,
                RevocationWalkResult& result) {
    walk.step(QStringLiteral("Click the maintenance's main button"), seen("frmMainMenu"),
              clicked("cmdMainMenu_2"));
    walk.step(QStringLiteral("Click \"Re-Print Chargeslip\""), offered("Re-Print Chargeslip"),
              commanded("Re-Print Chargeslip"));
    walk.step(
        QStringLiteral("Find the patient by the admission number"), focused("frmRePrint", "txtIdNum"),
        [&admissionNumber](QWidget& window) { typed("txtIdNum", admissionNumber, Qt::Key_Return)(window); });
    walk.step(QStringLiteral("Move to a charge of the slip"), focused("frmRePrint", "grdTable"),
              [&chargeSlip](QWidget& window) {
                  auto& grid = control<controls::FlexGrid>(window, QStringLiteral("grdTable"));
                  while (grid.TextMatrix(grid.Row(), 1) != chargeSlip) {
                      const int row = grid.Row();
                      QTest::keyClick(&grid, Qt::Key_Down);
                      if (grid.Row() == row)
                          throw std::runtime_error("the slip is not in the list");
                  }
              });
    walk.picture(QStringLiteral("re-print"), focused("frmRePrint", "grdTable"));
    walk.step(QStringLiteral("Print it with Enter"), focused("frmRePrint", "grdTable"),
              typed("grdTable", {}, Qt::Key_Return));
    walk.picture(QStringLiteral("re-printed-slip"), seen("frmReportViewer"));
    walk.step(QStringLiteral("Read the slip and leave the viewer"), seen("frmReportViewer"),
              [&result](QWidget& window) {
                  const report::PageDocument* pages =
                      control<report::Viewer>(window, QStringLiteral("CRViewer1")).document();
                  if (pages && pages->pageCount() > 0)
                      result.page = report::textOf(*pages->page(0));
                  result.mark = session::gReport->watermark;
                  QTest::keyClick(&window, Qt::Key_Escape);
              });
    walk.step(QStringLiteral("Leave the charges with Escape"), focused("frmRePrint", "grdTable"),
              typed("grdTable", {}, Qt::Key_Escape));
}

void addAssessments(Walk& walk) {
    walk.step(QStringLiteral("Click \"Assessment Status\""), offered("Assessment Status"),
              commanded("Assessment Status"));
    walk.step(QStringLiteral("Go to the list"), focused("frmAssessmentStatus", "txtSearch"),
              typed("txtSearch", {}, Qt::Key_Down));
    walk.picture(QStringLiteral("assessments"), focused("frmAssessmentStatus", "lvwListAssessment"));
    walk.step(QStringLiteral("Leave the assessments with Escape"),
              focused("frmAssessmentStatus", "lvwListAssessment"),
              typed("lvwListAssessment", {}, Qt::Key_Escape));
}

void addCancellation(Walk& walk) {
    walk.step(QStringLiteral("Click \"Request Cancellation\""), offered("Request Cancellation"),
              commanded("Request Cancellation"));
    walk.step(QStringLiteral("Search by the start of a name"), focused("frmCancelRequest", "txtSearch"),
              typed("txtSearch", QStringLiteral("A"), Qt::Key_Return));
    walk.step(QStringLiteral("Go to the requests"), focused("frmCancelRequest", "txtSearch"),
              typed("txtSearch", {}, Qt::Key_Down));
    walk.picture(QStringLiteral("cancel-request"), focused("frmCancelRequest", "grdTable"));
    walk.step(QStringLiteral("Take the first with Enter"), focused("frmCancelRequest", "grdTable"),
              typed("grdTable", {}, Qt::Key_Return));
    walk.picture(QStringLiteral("cancellation"), focused("frmCancellation", "grdExams"));
    walk.step(QStringLiteral("Leave it as it is"), focused("frmCancellation", "grdExams"),
              typed("grdExams", {}, Qt::Key_Escape));
    walk.step(QStringLiteral("Leave the search with Escape"), focused("frmCancelRequest", "txtSearch"),
              typed("txtSearch", {}, Qt::Key_Escape));
}

} // namespace

void addRevocationWalk(Walk& walk, const QString& admissionNumber, const QString& chargeSlip,
                       RevocationWalkResult& result) {
    addReprint(walk, admissionNumber, chargeSlip, result);
    addAssessments(walk);
    addCancellation(walk);
}

} // namespace tour
