#include "platform/controls/fields/DateBox.h"

#include "platform/base/Format.h"
#include "platform/controls/fields/KeyNotes.h"
#include "platform/controls/look/Look.h"
#include "platform/controls/screen/Connect.h"

#include <QAction>
#include <QCalendarWidget>
#include <QFrame>
#include <QKeyEvent>
#include <QScreen>
#include <QTextCharFormat>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace controls {

namespace {

constexpr int monthsInYear = 12;
constexpr int longestMonth = 31;
constexpr int firstYear = 1753; // of the server's calendar
constexpr int lastYear = 9999;

/// Where month, day and year stand in the text.
struct Part {
    int start;
    int length;
};
constexpr Part month{0, 2};
constexpr Part day{3, 2};
constexpr Part year{6, 4};

/// A day behind the end of its month is the last one of it.
base::DateTime lastUpTo(base::CalendarDate date) {
    date.day = std::clamp(date.day, 1, longestMonth);
    while (!base::makeDateTime(date))
        --date.day;
    return *base::makeDateTime(date);
}

int fullYear(const QString& typed, int usual) {
    constexpr int firstOfLastCentury = 30;
    const int number = typed.toInt();
    if (!typed.isEmpty() && typed.size() <= 2)
        return number + (number < firstOfLastCentury ? 2000 : 1900);
    return number < firstYear ? usual : number;
}

QDate toCalendar(base::DateTime moment) {
    const base::CalendarDate date = base::calendarDate(moment);
    return QDate(date.year, date.month, date.day);
}

QCalendarWidget* calendarOn(base::DateTime moment, QWidget* parent) {
    auto* calendar = new QCalendarWidget(parent);
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar->setFirstDayOfWeek(Qt::Sunday);
    calendar->setMinimumSize(look::scaled(300), look::scaled(240));
    QTextCharFormat weekend;
    weekend.setForeground(look::muted);
    calendar->setWeekdayTextFormat(Qt::Saturday, weekend);
    calendar->setWeekdayTextFormat(Qt::Sunday, weekend);
    QTextCharFormat weekdays;
    weekdays.setForeground(look::muted);
    weekdays.setBackground(look::card);
    calendar->setHeaderTextFormat(weekdays);
    QTextCharFormat today;
    today.setForeground(look::accentDark);
    today.setFontWeight(QFont::Bold);
    calendar->setDateTextFormat(toCalendar(base::today()), today);
    if (auto* button = calendar->findChild<QToolButton*>(QStringLiteral("qt_calendar_prevmonth")))
        button->setIcon(look::icon("previous"));
    if (auto* button = calendar->findChild<QToolButton*>(QStringLiteral("qt_calendar_nextmonth")))
        button->setIcon(look::icon("next"));
    calendar->setDateRange(toCalendar(DateBox::earliest()), toCalendar(DateBox::latest()));
    calendar->setSelectedDate(toCalendar(moment));
    return calendar;
}

base::DateTime fromCalendar(const QDate& date) {
    return lastUpTo({date.year(), date.month(), date.day()});
}

} // namespace

DateBox::DateBox(QWidget* parent) : MaskedDate(parent) {
    QAction* calendar = addAction(look::icon("calendar"), TrailingPosition);
    calendar->setObjectName(QStringLiteral("openCalendar"));
    calendar->setToolTip(tr("Calendar (F4)"));
    on(calendar, &QAction::triggered, this, [this] { openCalendar(); });
    setDate(base::today());
    noteKeys(this,
             {{"F4, Alt+Down", "Opens the calendar"}, {"Up, Down", "A day, a month or a year more or less"}});
}

base::DateTime DateBox::date() const {
    const QStringList typed = text().split(QLatin1Char('/'));
    base::CalendarDate date = base::calendarDate(m_last);
    if (const int number = typed.value(0).toInt())
        date.month = number;
    if (const int number = typed.value(1).toInt())
        date.day = number;
    date.year = fullYear(typed.value(2), date.year);
    // "31/12/2026" can only be read the other way round.
    if (date.month > monthsInYear && date.day <= monthsInYear)
        std::swap(date.month, date.day);
    date.month = std::min(date.month, monthsInYear);
    return std::clamp(lastUpTo(date), earliest(), latest());
}

QString DateBox::dateText() const {
    return base::Format(date(), QStringLiteral("mm/dd/yyyy"));
}

void DateBox::setDate(base::DateTime date) {
    m_last = std::clamp(base::dateOnly(date), earliest(), latest());
    MaskedDate::setDate(m_last);
    if (hasFocus())
        selectAll(); // what is typed next is the whole date
}

void DateBox::keyPressEvent(QKeyEvent* event) {
    const auto modifiers = event->modifiers() & ~Qt::KeypadModifier;
    const bool plain = modifiers == Qt::NoModifier; // Alt+F4 closes the window
    if ((plain && event->key() == Qt::Key_F4) ||
        (modifiers == Qt::AltModifier && event->key() == Qt::Key_Down))
        openCalendar();
    else if (plain && (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down))
        step(event->key() == Qt::Key_Up ? 1 : -1);
    else
        MaskedDate::keyPressEvent(event);
}

void DateBox::focusOutEvent(QFocusEvent* event) {
    if (event->reason() != Qt::ActiveWindowFocusReason) // half typed it waits
        setDate(date());
    MaskedDate::focusOutEvent(event);
}

void DateBox::step(int by) {
    const bool whole = selectedText().size() == text().size();
    const int at = cursorPosition();
    setDate(date());
    base::CalendarDate stepped = base::calendarDate(m_last);
    Part part = day;
    if (whole || (at > month.length && at <= day.start + day.length)) {
        constexpr qint64 msInDay = 24LL * 60 * 60 * 1000;
        stepped = base::calendarDate({m_last.ms + by * msInDay});
    } else if (at <= month.length) {
        part = month;
        stepped.month = (stepped.month - 1 + by + monthsInYear) % monthsInYear + 1;
    } else {
        part = year;
        stepped.year += by;
    }
    if (stepped.year >= firstYear && stepped.year <= lastYear)
        setDate(lastUpTo(stepped));
    setSelection(part.start, part.length);
}

void DateBox::openCalendar() {
    setDate(date());
    auto* popUp = new QFrame(this, Qt::Popup);
    popUp->setObjectName(QStringLiteral("calendarPopUp"));
    popUp->setAttribute(Qt::WA_DeleteOnClose);
    auto* layout = new QVBoxLayout(popUp);
    layout->setContentsMargins(1, 1, 1, 1);
    QCalendarWidget* calendar = calendarOn(m_last, popUp);
    layout->addWidget(calendar);
    const auto take = [this, popUp](QDate date) {
        setDate(fromCalendar(date));
        popUp->close();
    };
    on(calendar, &QCalendarWidget::clicked, this, take);
    on(calendar, &QCalendarWidget::activated, this, take);

    const QRect room = screen()->availableGeometry();
    QRect place(mapToGlobal(QPoint(0, height())), popUp->sizeHint());
    if (place.bottom() > room.bottom())
        place.moveBottom(mapToGlobal(QPoint()).y());
    place.moveLeft(
        std::clamp(place.left(), room.left(), std::max(room.left(), room.right() - place.width())));
    popUp->setGeometry(place);
    popUp->show();
    calendar->setFocus();
}

} // namespace controls
