#pragma once

#include "platform/base/Value.h"

#include <QDialog>

#include <vector>

class QLabel;
class QLineEdit;

namespace report {

class Report;

/// The fields of promptForParameters(): one line for each missing parameter.
class ParameterDialog : public QDialog {
    Q_OBJECT

  public:
    /// Reads the report, changes it only in accept().
    ParameterDialog(Report& report, QWidget* parent);
    /// Gives the report its values; stays open, with the reason, at a field that cannot be read.
    void accept() override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    bool takeField(std::size_t index);
    void moveOn();

    Report& m_report;
    std::vector<int> m_missing;
    std::vector<QLineEdit*> m_fields;
    std::vector<base::Value> m_values;
    QLabel* m_reason;
};

} // namespace report
