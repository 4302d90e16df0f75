// Random keys over every screen, boxes answered at random.

#include "tests/long/Monkey.h"

#include "app/Guide.h"
#include "tests/app/ScreenOpeners.h"
#include "tests/long/Hand.h"
#include "tests/long/OnDuty.h"
#include "tests/long/Shrink.h"

#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>

#include <algorithm>
#include <cstdlib>

namespace attacks {

namespace {

constexpr int keysPerOpening = 150;
constexpr int longestShrinking = 240'000; // milliseconds; what hangs takes its time
constexpr const char* faultyScreen = "Faulty";

struct Keys {
    int weight;
    QStringList keys;
};

/// What a hand reaches for, and how often. "<Click 3>" is a click on the third of the buttons that are
/// enabled, counted round.
const std::vector<Keys>& keyboard() {
    static const std::vector<Keys> all{
        {26, {"<Enter>", "<Enter>", "<Enter>", "<Tab>", "<Shift+Tab>", "<Esc>"}},
        {14, {"<Up>", "<Down>", "<Left>", "<Right>", "<Home>", "<End>", "<PageUp>", "<PageDown>"}},
        {8, {"<Del>", "<Backspace>", "<Ins>", "<Space>"}},
        {10, {"<F1>", "<F2>", "<F3>", "<F4>", "<F5>", "<F6>", "<F7>", "<F8>", "<F9>", "<F11>", "<F12>"}},
        {5, {"<Ctrl+A>", "<Ctrl+C>", "<Ctrl+V>", "<Ctrl+X>", "<Ctrl+Z>", "<Ctrl+F>", "<Ctrl+Home>"}},
        {10,
         {"<Alt+S>", "<Alt+C>", "<Alt+A>", "<Alt+P>", "<Alt+E>", "<Alt+D>", "<Alt+N>", "<Alt+R>", "<Alt+O>",
          "<Alt+X>", "<Alt+Down>", "<Shift+Down>", "<Shift+End>"}},
        {12,
         {"1001", "1002", "NU", "UR", "MD", "201", "3", "REYES", "A", "11/21/2026", "02/30/2026", "100.50",
          "kerova", "26004078", "S", "R"}},
        {12, {"a", "b", "e", "z", "0", "9", ".", ",", "/", "-", "'", "%", "_", "[", "*", "(", "ñ", "≥"}},
        {10, {"<Click 0>", "<Click 1>", "<Click 2>", "<Click 3>", "<Click 5>", "<Click 7>", "<Click 11>"}},
    };
    return all;
}

QStringList randomKeys(Course& course) {
    int sum = 0;
    for (const Keys& some : keyboard())
        sum += some.weight;
    QStringList keys;
    while (keys.size() < keysPerOpening) {
        int at = course.number(sum);
        for (const Keys& some : keyboard()) {
            at -= some.weight;
            if (at >= 0)
                continue;
            keys += some.keys[course.number(int(some.keys.size()))];
            break;
        }
    }
    return keys;
}

/// Dies of a "b" that comes after an "a": for the shrinker's own proof.
class Faulty : public QLineEdit {
    void keyPressEvent(QKeyEvent* event) override {
        if (event->text() == QLatin1String("b") && m_ready)
            std::abort();
        m_ready = m_ready || event->text() == QLatin1String("a");
    }
    bool m_ready = false;
};

void openFaulty(const tests::Look& look) {
    Faulty screen;
    screen.show();
    look(screen);
}

tests::ScreenOpener openerOf(const QString& screen) {
    for (const tests::ScreenOpener& opener : tests::screenOpeners())
        if (screen == QLatin1String(opener.screen))
            return opener;
    return {faultyScreen, openFaulty};
}

/// One opening of a screen in a process of its own: nothing of the one before it counts.
Ended open(const QString& screen, const QString& answers, const QStringList& keys) {
    return runPart("monkey", QStringList{screen, answers} + keys);
}

/// What ends the program in front of a clerk and has to: every other run-time error is a fault.
struct Told {
    int number;
    const char* window;
    const char* why;
};
constexpr Told told[] = {
    {102, "frmResultEntry", "a quote in one of the fields that let it through"},
    {102, "frmResultEntryMPI", "a quote in one of the fields that let it through"},
    {102, "frmResultEntryGFR", "a quote in one of the fields that let it through"},
    {102, "frmResultRadioImmuno", "a quote in one of the fields that let it through"},
    {13, "frmCancellation", "a cancellation without a line"},
};

bool isTold(const QString& error, QString& why) {
    const auto found = std::find_if(std::begin(told), std::end(told), [&](const Told& one) {
        return error.startsWith(QStringLiteral("error %1 ").arg(one.number)) &&
               error.contains(QStringLiteral(", ") + QLatin1String(one.window) + QStringLiteral(" ["));
    });
    if (found != std::end(told))
        why = QStringLiteral("%1 of %2").arg(found->number).arg(QLatin1String(found->why));
    return found != std::end(told);
}

/// How it went wrong: how the process ended, or the first error that nothing tells; "" when all was well.
QString faultOf(const Ended& ended) {
    if (!ended.good)
        return ended.how;
    QString why;
    for (const QString& line : ended.said.split(u'\n'))
        if (line.startsWith(QLatin1String("error ")) && !isTold(line, why))
            return line.section(QStringLiteral(" ["), 0, 0);
    return {};
}

void playOn(Course& course, const QString& screen, bool isPlayed) {
    const QStringList keys = randomKeys(course);
    const QString answers = QString::number(course.number(1 << 30));
    if (!isPlayed)
        return;
    const Ended ended = open(screen, answers, keys);
    course.count(QStringLiteral("keys"), keys.size());
    for (const QString& line : ended.said.split(u'\n')) {
        if (QString why; isTold(line, why))
            course.count(why);
    }
    const QString how = faultOf(ended);
    if (how.isEmpty())
        return;
    std::printf("%s %s, shrinking\n%s", qPrintable(screen), qPrintable(how), qPrintable(ended.said));
    std::fflush(stdout);
    QElapsedTimer clock;
    clock.start();
    const QStringList shortest = shrink(keys, [&](const QStringList& some) {
        return clock.elapsed() < longestShrinking && faultOf(open(screen, answers, some)) == how;
    });
    course.fail(QStringLiteral("%1 %2\n%3The shortest keys that do it: %4\nAgain: --part monkey %1 %5 %6")
                    .arg(screen, how, ended.said, shortest.join(u' '), answers)
                    .arg(u'\'' + QStringList(shortest).replaceInStrings("'", "'\\''").join("' '") + u'\''));
}

} // namespace

/// On one screen alone a seed types there what it types in a run over all of them.
void monkey(Course& course) {
    const auto& openers = tests::screenOpeners();
    while (course.goesOn()) {
        const char* screen = openers[std::size_t(course.rounds() - 1) % openers.size()].screen;
        playOn(course, QString::fromLatin1(screen), course.isAbout(screen));
    }
}

void monkeyOnFaulty(Course& course) {
    while (course.goesOn())
        playOn(course, QString::fromLatin1(faultyScreen), true);
}

int monkeyPart(const QStringList& words) {
    answerAtRandom(words.value(1).toUInt());
    return onScreens([&](OnDuty&) {
        const app::Guide guide; // which F1 opens beside the screen
        Hand hand(words.mid(2));
        openerOf(words.value(0)).open([&](QWidget& screen) { hand.play(screen); });
    });
}

} // namespace attacks
