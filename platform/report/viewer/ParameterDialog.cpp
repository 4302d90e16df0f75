#include "platform/report/viewer/ParameterDialog.h"

#include "platform/base/Conversion.h"
#include "platform/controls/fields/Keys.h"
#include "platform/controls/look/Look.h"
#include "platform/controls/screen/Connect.h"
#include "platform/report/Report.h"
#include "platform/report/definition/ReportDefinition.h"
#include "platform/report/viewer/ParameterPrompt.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

namespace report {

ParameterDialog::ParameterDialog(Report& report, QWidget* parent)
    : QDialog(parent), m_report(report), m_missing(report.missingParameters()), m_values(m_missing.size()) {
    setObjectName(QStringLiteral("ParameterDialog"));
    setWindowTitle(tr("Report Values"));
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(14, 14, 14, 14);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(8);
    for (std::size_t i = 0; i < m_missing.size(); ++i) {
        const ParameterDefinition& parameter = m_report.definition().parameters[std::size_t(m_missing[i])];
        auto* field = new QLineEdit(this);
        field->setObjectName(parameter.name);
        field->setMinimumWidth(280);
        auto* label = new QLabel(parameter.prompt, this);
        label->setBuddy(field);
        grid->addWidget(label, int(i), 0);
        grid->addWidget(field, int(i), 1);
        m_fields.push_back(field);
    }
    m_reason = new QLabel(this);
    m_reason->setObjectName(QStringLiteral("reason"));
    m_reason->setProperty("kind", QStringLiteral("danger"));
    auto* buttons = new QDialogButtonBox(this);
    auto* ok = new QPushButton(tr("&OK"), this);
    auto* cancel = new QPushButton(tr("&Cancel"), this);
    // Enter belongs to the fields: it moves on, and only the last one closes.
    ok->setAutoDefault(false);
    cancel->setAutoDefault(false);
    controls::look::setPrimary(ok);
    buttons->addButton(ok, QDialogButtonBox::AcceptRole);
    buttons->addButton(cancel, QDialogButtonBox::RejectRole);
    grid->addWidget(m_reason, int(m_missing.size()), 0, 1, 2);
    grid->addWidget(buttons, int(m_missing.size()) + 1, 0, 1, 2);
    controls::on(ok, &QPushButton::clicked, this, [this] { accept(); });
    controls::on(cancel, &QPushButton::clicked, this, [this] { reject(); });
}

void ParameterDialog::keyPressEvent(QKeyEvent* event) {
    if (controls::isEnter(*event))
        moveOn();
    else
        QDialog::keyPressEvent(event);
}

void ParameterDialog::moveOn() {
    if (auto* button = qobject_cast<QPushButton*>(focusWidget())) {
        button->click();
        return;
    }
    const auto field = std::find(m_fields.begin(), m_fields.end(), focusWidget());
    if (field == m_fields.end())
        return;
    const auto index = std::size_t(field - m_fields.begin());
    if (!takeField(index))
        return;
    if (index + 1 == m_fields.size())
        accept();
    else
        m_fields[index + 1]->setFocus(Qt::TabFocusReason);
}

bool ParameterDialog::takeField(std::size_t index) {
    const ParameterDefinition& parameter = m_report.definition().parameters[std::size_t(m_missing[index])];
    const base::Value text(m_fields[index]->text());
    QString reason;
    if (parameter.type == ParameterType::Number && !base::IsNumeric(text))
        reason = tr("%1 must be a number.").arg(parameter.prompt);
    else if (parameter.type == ParameterType::Date && !base::IsDate(text))
        reason = tr("%1 must be a date, such as 11/21/2026.").arg(parameter.prompt);
    m_reason->setText(reason);
    if (!reason.isEmpty()) {
        m_fields[index]->setFocus();
        m_fields[index]->selectAll();
        return false;
    }
    if (parameter.type == ParameterType::Number)
        m_values[index] = base::CDbl(text);
    else if (parameter.type == ParameterType::Date)
        m_values[index] = base::CDate(text);
    else
        m_values[index] = text;
    return true;
}

void ParameterDialog::accept() {
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        if (!takeField(i))
            return;
    }
    for (std::size_t i = 0; i < m_fields.size(); ++i)
        m_report.setParameter(m_missing[i], m_values[i]);
    QDialog::accept();
}

bool promptForParameters(Report& report, QWidget* parent) {
    if (!report.missingParameters().empty()) {
        ParameterDialog dialog(report, parent);
        const controls::ModalLevel level;
        const bool accepted = dialog.exec() == QDialog::Accepted;
        controls::ErrorBoundary::throwIfStopping();
        if (!accepted)
            return false;
    }
    const QStringList names = report.subReportNames();
    return std::all_of(names.begin(), names.end(), [&](const QString& name) {
        return promptForParameters(report.subReport(name), parent);
    });
}

} // namespace report
