#pragma once

#include "server/engine/EmbeddedProvider.h"
#include "server/engine/Installer.h"
#include "tests/support/core/Databases.h"

#include "platform/base/Error.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <ostream>

/// Lets a failed comparison show the text.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace tests {

/// An empty hospital file that goes with the test.
class Hospital {
  public:
    Hospital() : m_file(m_directory.filePath(QStringLiteral("hospital.scintra"))), m_provider(open()) {}

    std::unique_ptr<engine::EmbeddedProvider> open(const QString& workstation = QStringLiteral("WARD1"),
                                                   int busyMilliseconds = 30'000,
                                                   const std::function<void(int)>& waiting = {}) const {
        engine::Options options;
        options.hostName = workstation;
        options.programName = QStringLiteral("Visual Scintra");
        options.loginName = QStringLiteral("1001");
        options.newDatabases = tests::databases();
        options.busyMilliseconds = busyMilliseconds;
        options.waiting = waiting;
        return engine::EmbeddedProvider::open(m_file, options);
    }
    engine::EmbeddedProvider& provider() { return *m_provider; }
    const QString& file() const { return m_file; }

    ado::Result run(const QString& text) { return m_provider->execute(text); }
    void install(const QString& script) {
        engine::installScript(*m_provider, script, QStringLiteral("test.sql"));
    }
    /// The only value of the only row; Null when there is no row.
    base::Value value(const QString& text) {
        const ado::Result result = run(text);
        return result.rows.count() == 0 ? base::Value() : result.rows.at(0, 0);
    }
    /// The value of an expression as text: "NULL" for Null.
    QString expression(const QString& expr) { return shown(value(QStringLiteral("SELECT ") + expr)); }
    /// "number: words" of what the text raises; "" when it raises nothing.
    QString error(const QString& text) {
        try {
            run(text);
        } catch (const base::RunTimeError& caught) {
            return QStringLiteral("%1: %2").arg(caught.number()).arg(caught.description());
        }
        return {};
    }
    QString sqlState(const QString& text) {
        try {
            run(text);
        } catch (const base::RunTimeError& caught) {
            return caught.sqlState();
        }
        return {};
    }
    static QString shown(const base::Value& value) {
        if (value.isNull())
            return QStringLiteral("NULL");
        if (const auto* text = value.asText())
            return *text;
        if (const auto* integer = value.asInteger())
            return QString::number(*integer);
        if (const auto* number = value.asDouble())
            return QString::number(*number, 'g', 15);
        if (const auto* flag = value.asBool())
            return *flag ? QStringLiteral("true") : QStringLiteral("false");
        return base::toIso(*value.asDateTime());
    }
    /// Rows as "a|b;c|d".
    QString rows(const QString& text) {
        const ado::Result result = run(text);
        QStringList lines;
        for (qsizetype row = 0; row < result.rows.count(); ++row) {
            QStringList cells;
            for (qsizetype column = 0; column < qsizetype(result.rows.columns.size()); ++column)
                cells += shown(result.rows.at(row, column));
            lines += cells.join(u'|');
        }
        return lines.join(u';');
    }

  private:
    QTemporaryDir m_directory;
    QString m_file;
    std::unique_ptr<engine::EmbeddedProvider> m_provider;
};

} // namespace tests
