#include "platform/controls/screen/MessageBox.h"

#include "platform/controls/screen/ErrorBoundary.h"
#include "platform/controls/screen/MessageDialog.h"
#include "platform/controls/screen/TestDoors.h"

#include <QApplication>
#include <QPointer>

namespace controls {

namespace {

MessageScript& currentScript() {
    static MessageScript script;
    return script;
}

/// A box that waits for an answer shows no hourglass, whatever goes on behind it.
class PlainPointer {
  public:
    PlainPointer() { QApplication::setOverrideCursor(Qt::ArrowCursor); }
    ~PlainPointer() { QApplication::restoreOverrideCursor(); }
    PlainPointer(const PlainPointer&) = delete;
    PlainPointer& operator=(const PlainPointer&) = delete;
};

} // namespace

int MsgBox(const QString& prompt, int style, const QString& title) {
    // A copy: an answer may replace the script.
    if (const MessageScript script = currentScript())
        return script(prompt, style, title);
    ErrorBoundary::throwIfStopping();
    const QPointer<MessageDialog> dialog(
        new MessageDialog(prompt, style, title, QApplication::activeWindow()));
    int answer = MessageDialog::leavingAnswer(style);
    {
        const ModalLevel level;
        const PlainPointer pointer;
        dialog->exec();
    }
    if (dialog) {
        answer = dialog->answer();
        delete dialog.data();
    }
    ErrorBoundary::throwIfStopping();
    return answer;
}

void setMessageScript(MessageScript script) {
    currentScript() = std::move(script);
}

} // namespace controls
