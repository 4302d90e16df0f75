#pragma once

#include <QString>

namespace session {

/// How often a wrong password was tried in a row, for each employee code, as long as the program runs; the
/// server keeps the same count for the codes it knows. From the fifth wrong try on a code has to wait: 30
/// seconds at first, twice as long after every further wrong one.
class PasswordTries {
  public:
    static constexpr int freeTries = 5;
    static constexpr int firstWaitSeconds = 30;
    static constexpr int longestWaitSeconds = 3600;

    /// What has to be waited after so many wrong tries; 0 when the next one is free.
    static int waitAfter(int wrongTries);
    /// Seconds left to wait, by the workstation's clock; 0 when a try is free.
    static int secondsToWait(const QString& employeeCode);
    /// "Too many wrong tries. Please wait 30 seconds."
    static QString waitSentence(const QString& employeeCode);
    /// Counts one more, on top of what the server knows already; tells the new count.
    static int wrong(const QString& employeeCode, int knownTries = 0);
    /// Whether this is the wrong password that was tried last for the code; remembers it as that.
    static bool isLastGuess(const QString& employeeCode, const QString& password);
    /// The server wants this code to wait.
    static void mustWait(const QString& employeeCode, int wrongTries, int seconds);
    static void right(const QString& employeeCode);
};

/// Holds a password against an Argon2id text. Takes about as long for an empty text, so that a wrong code
/// and a wrong password cannot be told apart by the clock.
bool passwordMatches(const QString& hash, const QString& password);

/// A random text that the user object gives the reports of its session as server password.
QString newSessionPassword();

} // namespace session
