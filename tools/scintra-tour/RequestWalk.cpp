#include "tools/scintra-tour/RequestWalk.h"

#include "platform/controls/grid/FlexGrid.h"
#include "tools/scintra-tour/Steps.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>

#include <stdexcept>

namespace tour {

namespace {

Sight editing(const char* editor, int row, int column) {
    return tour::editing("frmRequest", "grdPackage", editor, row, column);
}

void addLogOn(Walk& walk, const QString& employeeCode, const QString& password) {
    walk.step(QStringLiteral("Type the employee code"), seen("frmLogOn"),
              typed("txtEmployeeCode", employeeCode, Qt::Key_Return));
    walk.picture(QStringLiteral("log-on"), focused("frmLogOn", "txtPassword"));
    walk.step(QStringLiteral("Type the password"), focused("frmLogOn", "txtPassword"),
              typed("txtPassword", password, Qt::Key_Return));
    walk.picture(QStringLiteral("menu"), seen("frmMainMenu"));
}

void addMenu(Walk& walk) {
    walk.step(QStringLiteral("Click the requests' main button"), seen("frmMainMenu"),
              clicked("cmdMainMenu_0"));
    walk.picture(QStringLiteral("request-menu"), offered("In-Patient Request Entry"));
    walk.step(QStringLiteral("Click \"In-Patient Request Entry\""), offered("In-Patient Request Entry"),
              commanded("In-Patient Request Entry"));
}

/// The list with rows, the current one a patient who may be charged.
bool mayBeCharged(const controls::FlexGrid& grid, int row) {
    return grid.TextMatrix(row, 4).isEmpty() &&
           grid.TextMatrix(row, 6).trimmed() != QStringLiteral("Not Okey");
}

void addPatient(Walk& walk) {
    walk.step(QStringLiteral("Search the admitted patients whose last name begins with S"),
              focused("frmListPatient", "txtSearch"),
              typed("txtSearch", QStringLiteral("s"), Qt::Key_Return));
    walk.step(QStringLiteral("Go to the list"), focused("frmListPatient", "txtSearch"), [](QWidget& window) {
        if (!control<QPushButton>(window, QStringLiteral("cmdSelect")).isEnabled())
            throw std::runtime_error("no patient was found");
        QTest::keyClick(&control<QLineEdit>(window, QStringLiteral("txtSearch")), Qt::Key_Down);
    });
    walk.step(QStringLiteral("Move to a patient who may be charged"), focused("frmListPatient", "grdTable"),
              [](QWidget& window) {
                  auto& grid = control<controls::FlexGrid>(window, QStringLiteral("grdTable"));
                  while (!mayBeCharged(grid, grid.Row())) {
                      const int row = grid.Row();
                      QTest::keyClick(&grid, Qt::Key_Down);
                      if (grid.Row() == row)
                          throw std::runtime_error("no patient of the list may be charged");
                  }
              });
    walk.picture(QStringLiteral("patients"), seen("frmListPatient"));
    walk.step(QStringLiteral("Take the patient with Enter"), seen("frmListPatient"),
              typed("grdTable", {}, Qt::Key_Return));
}

/// Takes the first entry of a service's list.
void addPick(Walk& walk, const QString& picture) {
    walk.picture(picture, focused("frmPickList", "txtSearch"));
    walk.step(QStringLiteral("Take the first entry of the list"), focused("frmPickList", "txtSearch"),
              typed("txtSearch", {}, Qt::Key_Return));
}

void addProcedure(Walk& walk) {
    walk.step(QStringLiteral("Line 1: NU"), editing("txtEntry", 1, 1),
              typed("txtEntry", QStringLiteral("nu"), Qt::Key_Return));
    walk.step(QStringLiteral("Line 1: ask for the exams"), editing("txtEntry", 1, 2),
              typed("txtEntry", {}, Qt::Key_Return));
    addPick(walk, QStringLiteral("exams"));
    walk.step(QStringLiteral("Line 1: STAT"), editing("cboEntry", 1, 4),
              typed("cboEntry", QStringLiteral("s"), Qt::Key_Return));
    walk.step(QStringLiteral("Line 1: quantity"), editing("txtEntry", 1, 6),
              typed("txtEntry", QStringLiteral("1"), Qt::Key_Return));
}

void addFee(Walk& walk) {
    walk.step(QStringLiteral("Line 2: MD"), editing("txtEntry", 2, 1),
              typed("txtEntry", QStringLiteral("md"), Qt::Key_Return));
    walk.step(QStringLiteral("Line 2: ask for the doctors"), editing("txtEntry", 2, 2),
              typed("txtEntry", {}, Qt::Key_Return));
    addPick(walk, QStringLiteral("doctors"));
    walk.step(QStringLiteral("Line 2: click the amount"), seen("frmRequest"), [](QWidget& window) {
        auto& grid = control<controls::FlexGrid>(window, QStringLiteral("grdPackage"));
        const QRect cell = grid.cellRect(2, 7);
        QWidget* viewport = grid.viewport();
        QTest::mouseClick(viewport, Qt::LeftButton, {},
                          viewport->mapFrom(grid.parentWidget(), cell.center()));
    });
    walk.step(QStringLiteral("Line 2: amount"), editing("txtEntry", 2, 7),
              typed("txtEntry", QStringLiteral("1500"), Qt::Key_Return));
}

void addSupply(Walk& walk) {
    walk.step(QStringLiteral("Line 3: UR"), editing("txtEntry", 3, 1),
              typed("txtEntry", QStringLiteral("ur"), Qt::Key_Return));
    walk.step(QStringLiteral("Line 3: ask for the supplies"), editing("txtEntry", 3, 2),
              typed("txtEntry", {}, Qt::Key_Return));
    addPick(walk, QStringLiteral("supplies"));
    walk.step(QStringLiteral("Line 3: ROUTINE"), editing("cboEntry", 3, 4),
              typed("cboEntry", QStringLiteral("r"), Qt::Key_Return));
    walk.step(QStringLiteral("Line 3: quantity"), editing("txtEntry", 3, 6),
              typed("txtEntry", QStringLiteral("2"), Qt::Key_Return));
    walk.step(QStringLiteral("Delete the empty line 4 with F3"), editing("txtEntry", 4, 1),
              typed("txtEntry", {}, Qt::Key_F3));
}

/// The box's text names the slip: "... ChargeSlip No.: 'C1234J'".
QString slipNumber(const QWidget& box) {
    static const QRegularExpression pattern(QStringLiteral("ChargeSlip No\\.: '(C\\d+J)'"));
    for (const QLabel* label : box.findChildren<QLabel*>()) {
        const auto match = pattern.match(label->text());
        if (match.hasMatch())
            return match.captured(1);
    }
    return {};
}

void addSave(Walk& walk, const char* command, RequestWalkResult& result) {
    walk.picture(QStringLiteral("request"), seen("frmRequest"));
    walk.step(QStringLiteral("Save the request"), seen("frmRequest"), [&result, command](QWidget& window) {
        result.admissionNumber = control<QLineEdit>(window, QStringLiteral("txtIdNum")).text();
        clicked(command)(window);
    });
    const Sight box = []() -> QWidget* {
        QWidget* modal = QApplication::activeModalWidget();
        return modal && !slipNumber(*modal).isEmpty() ? modal : nullptr;
    };
    walk.picture(QStringLiteral("saved"), box);
    walk.step(QStringLiteral("Close the box with Enter"), box, [&result](QWidget& window) {
        result.chargeSlip = slipNumber(window);
        QTest::keyClick(window.focusWidget() ? window.focusWidget() : &window, Qt::Key_Return);
    });
    walk.picture(QStringLiteral("back-in-the-list"), focused("frmListPatient", "txtSearch"));
    walk.step(QStringLiteral("Leave the list with Escape"), focused("frmListPatient", "txtSearch"),
              typed("txtSearch", {}, Qt::Key_Escape));
}

} // namespace

void addRequestWalk(Walk& walk, const QString& employeeCode, const QString& password,
                    RequestWalkResult& result) {
    addLogOn(walk, employeeCode, password);
    addMenu(walk);
    addPatient(walk);
    walk.picture(QStringLiteral("empty-request"), editing("txtEntry", 1, 1));
    addProcedure(walk);
    addFee(walk);
    addSupply(walk);
    addSave(walk, "cmdSavePrint", result);
}

void addPackageWalk(Walk& walk, RequestWalkResult& result) {
    addMenu(walk);
    addPatient(walk);
    walk.step(QStringLiteral("View the packages"), editing("txtEntry", 1, 1), clicked("cmdPackage"));
    walk.step(QStringLiteral("Go to the second package"), focused("frmNuclearPackage", "mshflexPackage"),
              typed("mshflexPackage", {}, Qt::Key_Down));
    walk.step(QStringLiteral("Open it"), focused("frmNuclearPackage", "mshflexPackage"),
              typed("mshflexPackage", {}, Qt::Key_Return));
    walk.step(QStringLiteral("Go to its second item"), focused("frmNuclearPackage", "mshflexPackageItems"),
              typed("mshflexPackageItems", {}, Qt::Key_Down));
    walk.step(QStringLiteral("Mark it as un-used"), focused("frmNuclearPackage", "mshflexPackageItems"),
              typed("mshflexPackageItems", {}, Qt::Key_Space));
    walk.picture(QStringLiteral("package"), focused("frmNuclearPackage", "mshflexPackageItems"));
    walk.step(QStringLiteral("Accept the package"), focused("frmNuclearPackage", "mshflexPackageItems"),
              typed("mshflexPackageItems", {}, Qt::Key_Return));
    addSave(walk, "cmdSave", result);
}

} // namespace tour
