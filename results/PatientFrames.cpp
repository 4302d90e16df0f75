#include "results/PatientFrames.h"

#include "platform/controls/look/Look.h"
#include "ui_PatientFrames.h"

#include <QEvent>

namespace results {

PatientFrames::PatientFrames(QWidget* parent) : QWidget(parent), m_ui(std::make_unique<Ui::PatientFrames>()) {
    m_ui->setupUi(this);
    for (QToolButton* browse : {m_ui->cmdBrowse1, m_ui->cmdBrowse2}) {
        browse->setIcon(controls::look::icon(QStringLiteral("search")));
        browse->setMaximumHeight(controls::look::scaled(28)); // a field's, so that both frames' rows meet
    }
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
    if (isFlat())
        return;
    // The date beside it takes its room from the numbers.
    m_ui->grpHospGrid->setColumnStretch(1, date.isEmpty() ? 3 : 2);
    m_ui->grpHospGrid->setColumnStretch(3, date.isEmpty() ? 4 : 5);
}

bool PatientFrames::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest && m_ui->groups->direction() == QBoxLayout::TopToBottom &&
        !isFlat())
        flattenHospital();
    return QWidget::event(event);
}

bool PatientFrames::isFlat() const {
    return m_ui->grpHospGrid->columnCount() > 4;
}

void PatientFrames::flattenHospital() {
    struct Place {
        QWidget* label;
        QWidget* field;
        int row, column, fieldSpan;
    };
    QGridLayout& grid = *m_ui->grpHospGrid;
    grid.removeItem(m_ui->resultDate);
    for (const Place& place :
         std::initializer_list<Place>{{m_ui->lblHospNum, m_ui->txtHospNum, 0, 0, 1},
                                      {m_ui->lblIdNum, m_ui->txtIdNum, 0, 2, 1},
                                      {m_ui->lblRoomID, m_ui->txtRoomID, 0, 4, 1},
                                      {m_ui->lblExamDate, m_ui->txtExamDate, 0, 6, 1},
                                      {m_ui->lblAccountName, m_ui->txtAccountName, 1, 0, 3},
                                      {m_ui->lblCaseNum, m_ui->txtCaseNum, 1, 4, 1},
                                      {m_ui->lblResultDate, nullptr, 1, 6, 1}}) {
        grid.removeWidget(place.label);
        grid.addWidget(place.label, place.row, place.column);
        if (!place.field)
            continue;
        grid.removeWidget(place.field);
        grid.addWidget(place.field, place.row, place.column + 1, 1, place.fieldSpan);
    }
    grid.addLayout(m_ui->resultDate, 1, 7);
    for (const auto& [column, share] : {std::pair(1, 3), {3, 3}, {5, 3}, {7, 4}})
        grid.setColumnStretch(column, share);
}

} // namespace results
