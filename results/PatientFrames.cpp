#include "results/PatientFrames.h"

#include "platform/controls/look/Look.h"
#include "ui_PatientFrames.h"

namespace results {

PatientFrames::PatientFrames(QWidget* parent) : QWidget(parent), m_ui(std::make_unique<Ui::PatientFrames>()) {
    m_ui->setupUi(this);
    for (QToolButton* browse : {m_ui->cmdBrowse1, m_ui->cmdBrowse2})
        browse->setIcon(controls::look::icon(QStringLiteral("search")));
}

PatientFrames::~PatientFrames() = default;

void PatientFrames::nameFirstDoctor(const QString& caption, const QString& codeField,
                                    const QString& nameField) {
    m_ui->lblDoctor1->setText(caption);
    m_ui->txtAttendingDrCode->setObjectName(codeField);
    m_ui->txtAttendingDr->setObjectName(nameField);
}

} // namespace results
