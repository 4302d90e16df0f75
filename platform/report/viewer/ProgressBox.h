#pragma once

#include "platform/controls/screen/ErrorBoundary.h"
#include "platform/report/Progress.h"

#include <QElapsedTimer>
#include <QString>

#include <memory>
#include <optional>

class QProgressDialog;
class QWidget;

namespace report {

/// Shows how far something long has come once it has taken a second, with a way to give it up. Until then
/// nothing is shown and no event is handled. To be called as a ProgressCall, by reference.
class ProgressBox {
  public:
    /// `what` is said above the bar: "Printing…".
    ProgressBox(QWidget* parent, QString what);
    ~ProgressBox();
    ProgressBox(const ProgressBox&) = delete;
    ProgressBox& operator=(const ProgressBox&) = delete;

    /// False once it was given up; raises ProgramStopped when the program is stopping.
    bool operator()(const Progress& progress);
    ProgressCall call();

  private:
    void open();
    QString textOf(const Progress& progress) const;

    QWidget* m_parent;
    QString m_what;
    QElapsedTimer m_sinceBegin;
    QElapsedTimer m_sinceShown;
    std::optional<controls::ModalLevel> m_level;
    std::unique_ptr<QProgressDialog> m_dialog;
};

} // namespace report
