#pragma once

#include <QString>

namespace session {

/// How often a wrong password was tried lately, for each employee code, as long as the program runs. After
/// five wrong tries in a row a code has to wait 30 seconds, then twice as long after every further wrong one.
class PasswordTries {
  public:
    static constexpr int freeTries = 5;
    static constexpr int firstWaitSeconds = 30;
    static constexpr int longestWaitSeconds = 3600;

    /// Seconds left to wait, by the workstation's clock; 0 when a try is free.
    static int secondsToWait(const QString& employeeCode);
    static void wrong(const QString& employeeCode);
    static void right(const QString& employeeCode);
    /// Tests only.
    static void forgetAll();
};

/// Holds a password against an Argon2id text. Takes about as long for an empty text, so that a wrong code
/// and a wrong password cannot be told apart by the clock.
bool passwordMatches(const QString& hash, const QString& password);

/// A random text that the user object gives the reports of its session as server password.
QString newSessionPassword();

} // namespace session
