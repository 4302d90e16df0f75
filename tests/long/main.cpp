// Attacks on the program, by name: for so long, or so often, from a seed.

#include "platform/base/DesksLanguage.h"
#include "platform/controls/look/Look.h"
#include "platform/controls/screen/Application.h"
#include "tests/long/Attack.h"
#include "tests/long/Crowd.h"
#include "tests/long/Fuzz.h"
#include "tests/long/Hostile.h"
#include "tests/long/Kills.h"
#include "tests/long/Monkey.h"
#include "tests/long/OwnHome.h"
#include "tests/long/Polls.h"
#include "tests/long/Steps.h"
#include "tests/support/screens/ModalWatch.h"

#include <QLocale>

#include <gtest/gtest.h>

#include <cstdio>

namespace attacks {

const std::vector<Attack>& all() {
    static const std::vector<Attack> attacks{
        {"monkey", "random keys over every screen, boxes answered at random", monkey, monkeyPart, 28},
        {"kills", "programs killed at random moments of what they write", kills, nullptr, 6},
        {"steps", "every save of every screen cut off at its statements", steps, stepsPart, 6, allSteps},
        {"hostile", "hostile values through every field of every screen", hostile, hostilePart, 8,
         allHostile},
        {"workstations", "workstations that save, register and break off at once", workstations,
         workstationsPart, 1, allWorkstations},
        {"fuzz", "statements, T-SQL, report definitions and characters that are nearly right", fuzz, fuzzPart,
         8},
        {"polls", "a menu that watches, with all its timers", polls, pollsPart, 1},
        {"starts", "first starts at once on one fresh folder", starts, startsPart, 3},
    };
    return attacks;
}

namespace {

/// Not among all(): it is there to be found.
const Attack faulty{"faulty", "a screen that dies, for the shrinker", monkeyOnFaulty, monkeyPart, 4};

struct Wish {
    QStringList attacks;
    quint32 seed = 0;
    int seconds = 0;
    int rounds = 0;
    bool all = false;
    QString only;
};

int usage() {
    std::fputs("ATTACK|all [--seconds N | --rounds N | --all] [--seed S] [--only SCREEN]\n\n"
               "Without seconds, rounds and --all, the short form; --all is the whole of an attack that has "
               "an end (*).\n"
               "--only: monkey and hostile on one screen.\n"
               "Exit codes: 0 passed, 1 failed, 2 wrong words.\n\n",
               stdout);
    for (const Attack& attack : all())
        std::printf("%c %-13s %s\n", attack.whole ? '*' : ' ', attack.name, attack.does);
    return 2;
}

bool read(const QStringList& words, Wish& wish) {
    for (qsizetype i = 0; i < words.size(); ++i) {
        if (!words[i].startsWith(QLatin1String("--"))) {
            wish.attacks += words[i];
            continue;
        }
        if (words[i] == QLatin1String("--all")) {
            wish.all = true;
            continue;
        }
        if (words[i] == QLatin1String("--only")) {
            wish.only = words.value(++i);
            continue;
        }
        bool good = i + 1 < words.size();
        const uint value = words.value(i + 1).toUInt(&good);
        if (words[i] == QLatin1String("--seconds"))
            wish.seconds = int(value);
        else if (words[i] == QLatin1String("--rounds"))
            wish.rounds = int(value);
        else if (words[i] == QLatin1String("--seed"))
            wish.seed = value;
        else
            return false;
        if (!good)
            return false;
        ++i;
    }
    return !wish.attacks.isEmpty();
}

bool run(const Attack& attack, const Wish& wish) {
    const bool isShort = wish.seconds == 0 && wish.rounds == 0 && !wish.all;
    Course course(wish.seed, wish.seconds, isShort ? attack.rounds : wish.rounds, wish.only);
    std::printf("%s, seed %u\n", attack.name, wish.seed);
    std::fflush(stdout);
    (wish.all ? attack.whole : attack.run)(course);
    course.tell(attack.name);
    return !course.failed();
}

const Attack* find(const QString& name) {
    for (const Attack& attack : all())
        if (name == QLatin1String(attack.name))
            return &attack;
    return name == QLatin1String(faulty.name) ? &faulty : nullptr;
}

int runAll(Wish wish) {
    if (wish.attacks.first() == QLatin1String("all")) {
        wish.attacks.clear();
        for (const Attack& attack : all())
            wish.attacks += QString::fromLatin1(attack.name);
    }
    bool good = true;
    for (const QString& name : wish.attacks) {
        const Attack* attack = find(name);
        if (!attack || (wish.all && !attack->whole))
            return usage();
        good = run(*attack, wish) && good;
    }
    return good ? 0 : 1;
}

} // namespace

} // namespace attacks

int main(int argc, char** argv) {
    base::ignoreDesksLanguage();
    const attacks::OwnHome home;
    QLocale::setDefault(QLocale::c());
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type == QtCriticalMsg || type == QtFatalMsg)
            std::fprintf(stderr, "%s\n", qPrintable(text));
    });
    controls::Application application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    controls::look::apply(application);
    int none = 0;
    testing::InitGoogleTest(&none, argv);
    const QStringList words = QCoreApplication::arguments().mid(1);
    if (words.value(0) == QLatin1String("--part")) {
        const tests::ModalWatch watch;
        const attacks::Attack* attack = attacks::find(words.value(1));
        return attack && attack->part ? attack->part(words.mid(2)) : attacks::usage();
    }
    attacks::Wish wish;
    wish.seed = std::random_device()();
    return attacks::read(words, wish) ? attacks::runAll(wish) : attacks::usage();
}
