#pragma once

#include <QDialog>

class QHBoxLayout;
class QPushButton;

namespace controls {

/// The window of a message box. Only MsgBox() makes one.
class MessageDialog : public QDialog {
    Q_OBJECT

  public:
    /// `style` as for MsgBox(). Raises 5 for a button set there is not.
    MessageDialog(const QString& prompt, int style, const QString& title, QWidget* parent);
    /// vbOK, vbCancel, vbYes or vbNo; leavingAnswer() until a button was pressed.
    int answer() const { return m_answer; }
    /// What Escape and the window's cross answer: Cancel, No, or OK where there is nothing else.
    static int leavingAnswer(int style);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void addButton(QHBoxLayout* row, const QString& caption, int answer, bool isDefault);

    QString m_prompt;
    QList<QPushButton*> m_buttons;
    int m_answer;
};

} // namespace controls
