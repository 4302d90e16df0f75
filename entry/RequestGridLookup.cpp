// What a line is: its department, its code and its price.

#include "entry/RequestGrid.h"

#include "lookup/RateSelection.h"
#include "lookup/clsRevenueCode.h"
#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "platform/base/Format.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/look/Look.h"
#include "platform/controls/screen/MessageBox.h"
#include "platform/controls/screen/Screen.h"
#include "session/Session.h"
#include "session/services/Services.h"

#include <QComboBox>
#include <QLineEdit>

namespace entry {

using base::Format;
using base::Val;
using namespace controls;
using session::gCodeFind;
using session::gDispense;
using session::gFormulist;

void RequestGrid::enterDepartment() {
    lookup::clsRevenueCode& revenue = lookup::revenueCode();
    if (!revenue.ValidateRevenue(m_grid.Text())) {
        goTo(colQuantity);
        return;
    }
    setCell(colDepartment, revenue.RevenueID());
    setCell(colParticular, revenue.Revenue());
    setCell(colWithItems, revenue.WithItems());
    setCell(colAmountEditable, QStringLiteral("N"));
    setCell(colSearchInventory, revenue.SearchInventory() ? QStringLiteral("Y") : QStringLiteral("N"));
    setCell(colLink, revenue.LocationID());
    if (revenue.WithItems() == u"Y" || revenue.SearchInventory()) {
        goTo(colCode);
    } else if (revenue.RevenueID() == u"NU") {
        m_grid.setCurrentCell(m_grid.Row(), colCode);
        if (LookUpExamLine({}) != LookUp::Duplicate)
            BeginCellEdit();
    } else if (isFeeRevenue(revenue.RevenueID())) {
        m_grid.setCurrentCell(m_grid.Row(), colCode);
        LookUpDoctorLine({});
        BeginCellEdit();
    } else {
        goTo(colAmount);
    }
}

void RequestGrid::LookUpCellCode() {
    const QString revenue = cell(colDepartment);
    const QString code = m_grid.Text();
    bool found = false;
    if (isFeeRevenue(revenue)) {
        found = LookUpDoctorLine(code);
        if (found)
            SkipColumn[colAmount] = false;
        else
            MsgBox(QStringLiteral("Invalid Code"));
    } else if (revenue == u"NU") {
        const LookUp result = LookUpExamLine(code);
        if (result == LookUp::Duplicate)
            return;
        found = result == LookUp::Found;
        if (!found)
            MsgBox(QStringLiteral("Invalid Code."), vbExclamation);
    } else {
        found = LookUpInventoryLine(code);
        if (!found)
            MsgBox(QStringLiteral("Invalid Code."), vbExclamation);
    }
    if (!found) {
        m_txtEntry.setFocus();
        SelectAllText(&m_txtEntry);
        return;
    }
    EndCellEdit();
    AdvanceCell();
}

/// The one lookup with an error trap of its own.
RequestGrid::LookUp RequestGrid::LookUpExamLine(const QString& code) {
    try {
        return readExamLine(code);
    } catch (const base::RunTimeError& error) {
        if (error.number() != base::errors::noCurrentRecord)
            MsgBox(error.description(), vbCritical);
        else if (!code.isEmpty())
            m_txtEntry.clear();
        return LookUp::NotFound;
    }
}

RequestGrid::LookUp RequestGrid::readExamLine(const QString& code) {
    gCodeFind->SearchMode = true;
    gCodeFind->OtherSectionID = cell(colDepartment);
    if (!gCodeFind->SearchListing(code, session::clsLookupPad::exams))
        return LookUp::NotFound;

    const session::NuclearExamRecord exam = gCodeFind->NuclearExamRecord;
    const double rate = m_variant.rateRule == RateRule::ByRoomClass
                            ? lookup::rateForClass(exam, m_roomClass)
                            : lookup::rateForClass(exam, QStringLiteral("A"));
    setCell(colRoutinePrice, Format(rate, amountFormat));
    if (isOnAnotherRow(exam.ResultCode)) {
        MsgBox(QStringLiteral("Exam already selected."), vbExclamation, QStringLiteral("Assessment"));
        EndCellEdit();
        m_grid.setText({});
        BeginCellEdit();
        return LookUp::Duplicate;
    }
    setCell(colCode, exam.ResultCode);
    setCell(colParticular, exam.NuclearExam);
    setCell(colPrice, Format(rate, amountFormat));
    setCell(colAmountEditable, exam.Fixrate == u"N" ? QStringLiteral("Y") : QStringLiteral("N"));
    return LookUp::Found;
}

bool RequestGrid::LookUpDoctorLine(const QString& code) {
    gCodeFind->SearchMode = true;
    if (!gCodeFind->SearchListing(code, session::clsLookupPad::doctors))
        return false;
    const session::DoctorRecord doctor = gCodeFind->DoctorRecord;
    setCell(colCode, doctor.ResultCode);
    setCell(colParticular, QStringLiteral("(PF) DR. %1, %2").arg(doctor.LastName, doctor.FirstName));
    setCell(colQuantity, {});
    setCell(colAmount, {});
    return true;
}

bool RequestGrid::LookUpInventoryLine(const QString& code) {
    gFormulist->DrugsORCSR = false;
    QString searchText = code;
    QString location = cell(colLink);
    const QString itemCode = gFormulist->ShowList(searchText, true, location);
    session::clsDrug& drug = gDispense->Drug;
    if (!drug.SearchDrug(itemCode, location)) {
        MsgBox(QStringLiteral("Item not found on file."), vbInformation);
        return false;
    }
    const QString price = Format(drug.Invent.SellingPriceIn, amountFormat);
    setCell(colCode, itemCode);
    setCell(colParticular, drug.DrugName);
    setCell(colPrice, price);
    setCell(colSearchInventory, price);
    setCell(colLink, location);
    setCell(colQuantity, QStringLiteral("1"));
    return true;
}

bool RequestGrid::isOnAnotherRow(const QString& code) const {
    for (int row = 1; row < m_grid.Rows(); ++row) {
        if (row != m_grid.Row() && m_grid.TextMatrix(row, colCode) == code &&
            m_grid.TextMatrix(row, colDepartment) == cell(colDepartment))
            return true;
    }
    return false;
}

void RequestGrid::cboEntry_Change() {
    const QString type = m_cboEntry.currentText();
    const bool isStat = type == u"STAT";
    setCell(colType, type);
    m_grid.setCellForeColor(m_grid.Row(), colType, isStat ? look::warn : QColor());
    m_grid.setCellBold(m_grid.Row(), colType, isStat);
    const QString revenue = cell(colDepartment);
    const QString routinePrice =
        cell(colRoutinePrice).isEmpty() ? QStringLiteral("1") : cell(colRoutinePrice);
    if (revenue == u"NU" && isStat)
        setCell(colPrice, base::CStr(Val(cell(colRoutinePrice)) * statFactor));
    else if (revenue == u"NU" || isFeeRevenue(revenue))
        setCell(colPrice, routinePrice);
}

} // namespace entry
