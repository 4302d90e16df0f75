#include "tools/scintra-tour/OrderWalks.h"

#include "tools/scintra-tour/Steps.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTest>

namespace tour {

namespace {

struct Cell {
    const char* editor;
    int row, column;
    const char* text;
};

/// Types the cells one after the other, each left with Enter.
void addLines(Walk& walk, const char* window, const char* grid, std::initializer_list<Cell> cells) {
    for (const Cell& cell : cells)
        walk.step(QStringLiteral("Line %1, column %2: %3")
                      .arg(cell.row)
                      .arg(cell.column)
                      .arg(QLatin1String(cell.text)),
                  editing(window, grid, cell.editor, cell.row, cell.column),
                  typed(cell.editor, QString::fromLatin1(cell.text), Qt::Key_Return));
}

void openFromMenu(Walk& walk, const char* caption) {
    walk.step(QStringLiteral("Click the requests' main button"), seen("frmMainMenu"),
              clicked("cmdMainMenu_0"));
    walk.step(QStringLiteral("Click \"%1\"").arg(QLatin1String(caption)), offered(caption),
              commanded(caption));
}

/// The menu, once it asks which kind of out-patient it is.
QWidget* askingMenu() {
    QWidget* menu = windowOnTop(QStringLiteral("frmMainMenu"));
    return menu && control<QWidget>(*menu, QStringLiteral("btnChargeEntry")).isVisible() ? menu : nullptr;
}

/// The screen for the next patient: nobody on it yet.
QWidget* freshAssessment() {
    QWidget* window = focused("frmAssessment", "txtSname")();
    const bool isFresh = window && control<QLineEdit>(*window, QStringLiteral("txtHospNum")).text().isEmpty();
    return isFresh ? window : nullptr;
}

} // namespace

void addOutPatientWalk(Walk& walk, const QString& idNumber) {
    openFromMenu(walk, "Charge Entry");
    walk.step(QStringLiteral("Choose the out-patients on account"), askingMenu, clicked("btnChargeEntry"));
    walk.step(QStringLiteral("Search by admission number"), focused("frmRegisteredOPD", "txtSearch"),
              [](QWidget& window) {
                  QTest::keyClick(&control<QComboBox>(window, QStringLiteral("cmbSearch")), Qt::Key_Down);
              });
    walk.step(QStringLiteral("Search the out-patient"), seen("frmRegisteredOPD"),
              typed("txtSearch", idNumber, Qt::Key_Return));
    walk.step(QStringLiteral("Go to the list"), seen("frmRegisteredOPD"),
              typed("txtSearch", {}, Qt::Key_Down));
    walk.picture(QStringLiteral("out-patients"), focused("frmRegisteredOPD", "grdTable"));
    walk.step(QStringLiteral("Take the out-patient with Enter"), focused("frmRegisteredOPD", "grdTable"),
              typed("grdTable", {}, Qt::Key_Return));
    addLines(walk, "frmOutRequest", "grdPackage",
             {{"txtEntry", 1, 1, "nu"},
              {"txtEntry", 1, 2, "1001"},
              {"cboEntry", 1, 4, "r"},
              {"txtEntry", 1, 6, "1"}});
    walk.step(QStringLiteral("Delete the empty line 2 with F3"),
              editing("frmOutRequest", "grdPackage", "txtEntry", 2, 1), typed("txtEntry", {}, Qt::Key_F3));
    walk.picture(QStringLiteral("out-request"), seen("frmOutRequest"));
    walk.step(QStringLiteral("Save"), seen("frmOutRequest"), clicked("cmdSave"));
    const Sight box = boxSaying(QStringLiteral("Data Successfully Saved!"));
    walk.picture(QStringLiteral("out-saved"), box);
    walk.step(QStringLiteral("Close the box with Enter"), box, pressEnter);
}

void addAssessmentWalk(Walk& walk, const QString& hospitalNumber) {
    openFromMenu(walk, "Assessment");
    walk.picture(QStringLiteral("empty-assessment"), freshAssessment);
    walk.step(QStringLiteral("Choose \"OPD/ Regular Patients\""), freshAssessment, clicked("optType_1"));
    walk.step(QStringLiteral("Find the patient"), focused("frmAssessment", "txtSname"),
              typed("txtSname", hospitalNumber, Qt::Key_Return));
    walk.step(QStringLiteral("Type the requesting doctor"), focused("frmAssessment", "txtDoctorID"),
              typed("txtDoctorID", QStringLiteral("204"), Qt::Key_Return));
    walk.step(QStringLiteral("Open the first cell with Enter"), focused("frmAssessment", "grdTable"),
              typed("grdTable", {}, Qt::Key_Return));
    addLines(walk, "frmAssessment", "grdTable",
             {{"txtEntry", 1, 1, "nu"},
              {"txtEntry", 1, 2, "1001"},
              {"cboEntry", 1, 4, "s"},
              {"txtEntry", 1, 6, "1"},
              {"txtEntry", 2, 1, "md"},
              {"txtEntry", 2, 2, "201"}});
    walk.step(QStringLiteral("Line 2: from the quantity to the amount"),
              editing("frmAssessment", "grdTable", "txtEntry", 2, 6), typed("txtEntry", {}, Qt::Key_Tab));
    addLines(walk, "frmAssessment", "grdTable", {{"txtEntry", 2, 7, "1500"}});
    walk.picture(QStringLiteral("assessment"), editing("frmAssessment", "grdTable", "txtEntry", 3, 1));
    walk.step(QStringLiteral("Save and print"), seen("frmAssessment"), clicked("btnClear"));
    const Sight box = boxSaying(QStringLiteral("Data Successfully Saved."));
    walk.picture(QStringLiteral("assessment-saved"), box);
    walk.step(QStringLiteral("Close the box with Enter"), box, pressEnter);
    walk.picture(QStringLiteral("next-patient"), freshAssessment);
    walk.step(QStringLiteral("Leave the assessments"), freshAssessment, clicked("btnClose"));
}

} // namespace tour
