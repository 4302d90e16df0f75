#pragma once

#include "platform/base/Error.h"

#include <QDialog>

#include <memory>

namespace app {

namespace Ui {
class ErrorBox;
}

/// The run-time error box: number and sentence, which fields hold a quote where the server could not read a
/// statement for one, the statement that failed in the details, and a copy of
/// everything for whoever looks into it. Only shown by the boundary; the program ends when it closes.
class ErrorBox : public QDialog {
    Q_OBJECT

  public:
    explicit ErrorBox(const base::RunTimeError& error, QWidget* parent = nullptr);
    ~ErrorBox() override;

    /// "Run-time error '3021':", an empty line and the sentence.
    static QString textOf(const base::RunTimeError& error);
    /// The box's text, the statement, and what the screens hold that were open when it was made.
    const QString& report() const { return m_report; }
    /// What the open screens hold of what was typed, under their titles; "" when nothing was.
    const QString& typed() const { return m_typed; }

  private:
    std::unique_ptr<Ui::ErrorBox> m_ui;
    QString m_report;
    QString m_typed;
};

/// From now on an error without a handler closes the session's connection, which rolls an open transaction
/// back, shows the box and ends the program.
void installBoundary();

} // namespace app
