#include "session/DateFields.h"

#include "platform/base/DateTime.h"
#include "platform/base/Format.h"
#include "platform/controls/Connect.h"

#include <QKeyEvent>
#include <QPushButton>

#include <vector>

namespace session {
namespace {

class EnterMovesOn : public QObject {
  public:
    EnterMovesOn(std::vector<QDateEdit*> fields, QPushButton* last)
        : QObject(last), m_fields(std::move(fields)), m_last(last) {
        for (QDateEdit* field : m_fields)
            field->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress)
            return false;
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key != Qt::Key_Return && key != Qt::Key_Enter)
            return false;
        controls::ErrorBoundary::guard([&] { moveOn(watched); });
        return true;
    }

  private:
    void moveOn(QObject* from) {
        bool passed = false;
        for (QDateEdit* field : m_fields) {
            if (passed && field->isVisibleTo(field->window())) {
                field->setFocus();
                return;
            }
            passed = passed || field == from;
        }
        m_last->setFocus();
    }

    std::vector<QDateEdit*> m_fields;
    QPushButton* m_last;
};

} // namespace

void setToday(QDateEdit* field) {
    const base::CalendarDate today = base::calendarDate(base::today());
    field->setDate(QDate(today.year, today.month, today.day));
}

QString dateText(const QDateEdit* field) {
    const QDate date = field->date();
    const auto moment = base::makeDateTime({date.year(), date.month(), date.day()});
    return moment ? base::Format(base::Value(*moment), QStringLiteral("mm/dd/yyyy")) : QString();
}

void enterMovesOn(std::initializer_list<QDateEdit*> fields, QPushButton* last) {
    new EnterMovesOn(fields, last);
}

} // namespace session
