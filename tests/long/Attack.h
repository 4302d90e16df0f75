#pragma once

#include <QElapsedTimer>
#include <QString>
#include <QStringList>

#include <map>
#include <random>
#include <vector>

namespace attacks {

/// One run of an attack: how long it goes on, its chance, and what it found. All that is random comes from
/// its seed.
class Course {
  public:
    /// `seconds` or `rounds` that are 0 set no bound.
    Course(quint32 seed, int seconds, int rounds, QString only = {});

    quint32 seed() const { return m_seed; }
    /// True for another round, which it counts; false when time or rounds are over or a fault was found.
    bool goesOn();
    int rounds() const { return m_rounds; }
    /// The rounds that are asked for, or another number where none are.
    int wanted(int otherwise) const { return m_most > 0 ? m_most : otherwise; }
    /// Whether the run is about this screen: about all where none is named.
    bool isAbout(const char* screen) const { return m_only.isEmpty() || m_only == QLatin1String(screen); }
    /// From 0 to `below` - 1.
    int number(int below);

    /// A figure of the table at the end; figures of one name add up.
    void count(const QString& figure, qint64 more = 1) { m_figures[figure] += more; }
    /// What went wrong, with all that is needed to do it again. Ends the run.
    void fail(const QString& what);
    bool failed() const { return !m_faults.isEmpty(); }
    /// Prints the figures and the verdict.
    void tell(const char* attack) const;

  private:
    quint32 m_seed;
    qint64 m_milliseconds;
    int m_most;
    int m_rounds = 0;
    QString m_only;
    std::mt19937 m_random;
    QElapsedTimer m_clock;
    std::map<QString, qint64> m_figures;
    QStringList m_faults;
};

/// What an attack's own process does with its words; its exit code is 0 when all was well.
using Part = int (*)(const QStringList& words);

struct Attack {
    const char* name;
    const char* does;
    void (*run)(Course& course);
    Part part;  ///< null for one that starts no process of this program
    int rounds; ///< of the short form
    /// The whole of it, for --all; null for one that has no end.
    void (*whole)(Course& course) = nullptr;
};

/// Every attack, in the order in which they are run.
const std::vector<Attack>& all();

/// How a process of this program ended that worked for an attack.
struct Ended {
    bool good = false;
    QString how;  ///< "crashed", "exit code 3", "never ended"; empty when good
    QString said; ///< its standard output and its errors
};
/// Runs the attack's part in a process of its own.
/// What no process of an attack takes, on a slow machine either: for one that stands still where its own
/// watchdog does not see it.
constexpr int mostSeconds = 900;
Ended runPart(const char* attack, const QStringList& words, int seconds = mostSeconds);
/// Another program in the same way.
Ended runProgram(const QString& program, const QStringList& words, int seconds);
/// A program beside this one, or one that it is built with.
QString programBeside(const QString& name);

} // namespace attacks
