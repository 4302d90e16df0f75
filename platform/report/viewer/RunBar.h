#pragma once

#include "platform/report/Progress.h"

#include <QWidget>

class QAction;
class QLabel;
class QProgressBar;
class QPushButton;

namespace report {

/// The slim line under the commands that tells how a report comes along.
class RunBar : public QWidget {
    Q_OBJECT

  public:
    /// `stop` is the command that its button runs.
    explicit RunBar(QAction* stop, QWidget* parent = nullptr);

    void showRunning(const Progress& progress);
    void showStopped();
    QString text() const;

  private:
    QLabel* m_text;
    QProgressBar* m_busy;
    QPushButton* m_stop;
};

} // namespace report
