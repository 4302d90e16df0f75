#include "entry/RequestLineLookup.h"

#include "entry/RequestColumns.h"
#include "lookup/clsRevenueCode.h"
#include "platform/base/Error.h"
#include "platform/base/Format.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/screen/MessageBox.h"
#include "session/Session.h"
#include "session/services/Services.h"

#include <QScopeGuard>

namespace entry {

using base::Format;
using namespace controls;
using session::gCodeFind;
using session::gDispense;
using session::gFormulist;

QString RequestLineLookup::cell(int column) const {
    return m_grid.TextMatrix(m_grid.Row(), column);
}

void RequestLineLookup::setCell(int column, const QString& text) {
    m_grid.setTextMatrix(m_grid.Row(), column, text);
}

bool RequestLineLookup::LookUpDepartment(const QString& code) {
    lookup::clsRevenueCode& revenue = lookup::revenueCode();
    if (!revenue.ValidateRevenue(code))
        return false;
    setCell(colDepartment, revenue.RevenueID());
    setCell(colParticular, revenue.Revenue());
    setCell(colWithItems, revenue.WithItems());
    setCell(colAmountEditable, QStringLiteral("N"));
    setCell(colSearchInventory, revenue.SearchInventory() ? QStringLiteral("Y") : QStringLiteral("N"));
    setCell(colLink, revenue.LocationID());
    return true;
}

/// The one lookup with an error trap of its own.
LookUp RequestLineLookup::LookUpExamLine(const QString& code) {
    try {
        return readExamLine(code);
    } catch (const base::RunTimeError& error) {
        if (error.number() == base::errors::noCurrentRecord)
            return LookUp::NoRecord;
        MsgBox(error.description(), vbCritical);
        return LookUp::NotFound;
    }
}

LookUp RequestLineLookup::readExamLine(const QString& code) {
    gCodeFind->SearchMode = true;
    gCodeFind->OtherSectionID = cell(colDepartment);
    gCodeFind->ExamPrice = m_showsPrices ? m_rate : nullptr;
    const auto done = qScopeGuard([] { gCodeFind->ExamPrice = nullptr; });
    if (!gCodeFind->SearchListing(code, session::clsLookupPad::exams))
        return LookUp::NotFound;

    const session::NuclearExamRecord exam = gCodeFind->NuclearExamRecord;
    const double rate = m_rate(exam);
    setCell(colRoutinePrice, Format(rate, amountFormat));
    if (isOnAnotherRow(exam.ResultCode)) {
        MsgBox(QString::fromLatin1(m_repeated.prompt), vbExclamation, QString::fromLatin1(m_repeated.title));
        return LookUp::Duplicate;
    }
    setCell(colCode, exam.ResultCode);
    setCell(colParticular, exam.NuclearExam);
    setCell(colPrice, Format(rate, amountFormat));
    setCell(colAmountEditable, exam.Fixrate == u"N" ? QStringLiteral("Y") : QStringLiteral("N"));
    return LookUp::Found;
}

bool RequestLineLookup::LookUpDoctorLine(const QString& code) {
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

bool RequestLineLookup::LookUpInventoryLine(const QString& code) {
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

bool RequestLineLookup::isOnAnotherRow(const QString& code) const {
    for (int row = 1; row < m_grid.Rows(); ++row) {
        if (row != m_grid.Row() && m_grid.TextMatrix(row, colCode) == code &&
            m_grid.TextMatrix(row, colDepartment) == cell(colDepartment))
            return true;
    }
    return false;
}

} // namespace entry
