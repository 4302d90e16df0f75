#pragma once

#include <QString>

#include <cstdint>

namespace engine {

/// The server's diary of statements: a line each, in a file beside the hospital's that only its
/// owner can read. Texts only, never results.
class Trace {
  public:
    Trace(const QString& hospitalFile, QString workstation);

    struct Line {
        QString text;
        std::int64_t nanoseconds = 0;
        /// "12 rows", "3 written", or the words of the error.
        QString outcome;
        /// 0 when it went well.
        int error = 0;
        /// Every literal of the text is written as '***', and of an error its number only: its words may
        /// quote a value.
        bool masked = false;
    };
    /// A diary that cannot be written is given up in silence: it must not stop the hospital.
    void write(const Line& line);

    /// A text whose literals nobody may read: it names a password's hash, or holds one.
    static bool isSecret(const QString& text);
    static QString fileOf(const QString& hospitalFile);

  private:
    QString m_file;
    QString m_workstation;
};

} // namespace engine
