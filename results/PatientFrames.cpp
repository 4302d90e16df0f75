#include "results/PatientFrames.h"

#include "platform/controls/look/Look.h"
#include "ui_PatientFrames.h"

namespace results {

PatientFrames::PatientFrames(QWidget* parent) : QWidget(parent), m_ui(std::make_unique<Ui::PatientFrames>()) {
    m_ui->setupUi(this);
    for (QToolButton* browse : {m_ui->cmdBrowse1, m_ui->cmdBrowse2})
        browse->setIcon(controls::look::icon(QStringLiteral("search")));
    // The whole date beside its calendar's sign, and the whole number, whatever stands next to them.
    const auto widthOf = [this](const char* text) {
        return fontMetrics().horizontalAdvance(QLatin1String(text));
    };
    m_ui->DtResultDate->setMinimumWidth(widthOf("00/00/0000") + controls::look::scaled(50));
    m_ui->txtCaseNum->setMinimumWidth(widthOf("00-000000") + controls::look::scaled(20));
}

PatientFrames::~PatientFrames() = default;

void PatientFrames::nameFirstDoctor(const QString& caption, const QString& codeField,
                                    const QString& nameField) {
    m_ui->lblDoctor1->setText(caption);
    m_ui->txtAttendingDrCode->setObjectName(codeField);
    m_ui->txtAttendingDr->setObjectName(nameField);
}

void PatientFrames::showSavedDate(const QString& date) {
    m_ui->lblSavedDate->setText(QStringLiteral("Saved ") + date);
    m_ui->lblSavedDate->setVisible(!date.isEmpty());
    // The date beside it takes its room from the numbers.
    m_ui->grpHospGrid->setColumnStretch(1, date.isEmpty() ? 3 : 2);
    m_ui->grpHospGrid->setColumnStretch(3, date.isEmpty() ? 4 : 5);
}

} // namespace results
