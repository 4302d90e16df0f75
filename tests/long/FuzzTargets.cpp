// The readers of texts, each with what it must hold to.

#include "tests/long/FuzzTargets.h"

#include "platform/ado/Statement.h"
#include "platform/agent/Figure.h"
#include "platform/base/Error.h"
#include "platform/report/definition/ReportDefinition.h"
#include "platform/report/definition/ReportError.h"
#include "server/engine/parser/Parser.h"
#include "tests/long/Fault.h"
#include "tests/long/Outgoing.h"
#include "tests/server/engine/Hospital.h"
#include "tests/server/engine/Mutator.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>

namespace attacks {

namespace {

QString branchOf(const base::RunTimeError& error) {
    static const QRegularExpression particular(QStringLiteral("'[^']*'|\"[^\"]*\"|\\d+"));
    return QStringLiteral("%1 ").arg(error.number()) + error.description().left(200).remove(particular);
}

// ---- a text with two places for values, the first line; the values, the two lines after it

QString readStatement(const std::string& input) {
    const QStringList lines = QString::fromUtf8(input.data(), qsizetype(input.size())).split(u'\n');
    const QString& text = lines[0];
    const auto with = [&](const QString& first, const QString& second) {
        return ado::definedStatement(text,
                                     {{QStringLiteral("{?A}"), first}, {QStringLiteral("{?B}"), second}})
            .text();
    };
    QString sent;
    try {
        sent = with(lines.value(1), lines.value(2));
    } catch (const base::RunTimeError& error) {
        return branchOf(error);
    }
    // with numbers, which may stand anywhere, the same text has to come out around the values
    if (Outgoing::of(sent).whole && !text.contains(QLatin1String("--")) &&
        !text.contains(QLatin1String("/*"))) {
        static const QRegularExpression numbers(QStringLiteral("[0-9.+-]+"));
        QString code = Outgoing::of(sent).code;
        QString plain = Outgoing::of(with(QStringLiteral("1"), QStringLiteral("1"))).code;
        if (code.remove(numbers) != plain.remove(numbers))
            fault(QStringLiteral("a value leaves its literal: ") + sent);
    }
    return QStringLiteral("sent");
}

// ---- a batch of T-SQL, read and run

QString runBatch(const std::string& input) {
    static tests::Hospital hospital;
    static const bool made = [] {
        hospital.install(QString::fromLatin1(tests::fuzzTables));
        return true;
    }();
    Q_UNUSED(made)
    try {
        engine::Parser::batch(input);
    } catch (const engine::ScriptError& error) {
        if (error.position().line < 1 || error.position().column < 1)
            fault(QStringLiteral("an error without a place"));
    }
    const QString text = QString::fromUtf8(input.data(), qsizetype(input.size()));
    if (text.contains(QLatin1String("WHILE"), Qt::CaseInsensitive))
        return QStringLiteral("may not end");
    hospital.provider().begin();
    QString branch = QStringLiteral("run");
    try {
        hospital.run(text);
    } catch (const base::RunTimeError& error) {
        branch = branchOf(error);
        if (error.description().isEmpty() || error.description().startsWith(QLatin1String("near \"")))
            fault(QStringLiteral("not understood behind the engine: ") + error.description());
    }
    if (!hospital.provider().inTransaction())
        fault(QStringLiteral("the transaction is gone"));
    hospital.provider().rollback();
    return branch;
}

// ---- a report definition

QString readReport(const std::string& input) {
    try {
        report::ReportDefinition::read(QByteArray::fromStdString(input), QStringLiteral("fuzz.RPT"));
    } catch (const base::RunTimeError& error) {
        if (error.number() != report::errorDamaged)
            fault(QStringLiteral("%1 %2").arg(error.number()).arg(error.description()));
        return branchOf(error);
    }
    return QStringLiteral("read");
}

// ---- a character file, read and painted

QString readCharacter(const std::string& input) {
    agent::Figure figure;
    try {
        figure = agent::readFigure(QByteArray::fromStdString(input));
    } catch (const base::RunTimeError& error) {
        if (error.number() != agent::errorInvalidFile)
            fault(QStringLiteral("%1 %2").arg(error.number()).arg(error.description()));
        return branchOf(error);
    }
    QImage image(64, 64, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    for (const auto& [name, frames] : figure.animations)
        agent::paint(painter, figure, frames.back());
    return QStringLiteral("read");
}

} // namespace

const std::vector<FuzzTarget>& fuzzTargets() {
    static const std::vector<FuzzTarget> all{{"statement", readStatement, 20'000},
                                             {"tsql", runBatch, 4'000},
                                             {"report", readReport, 3'000},
                                             {"character", readCharacter, 3'000}};
    return all;
}

std::vector<std::string> corpusOf(const FuzzTarget& target) {
    std::vector<std::string> texts;
    const QDir folder(QStringLiteral(SCINTRA_SOURCE_DIR "/tests/long/corpus/") + QLatin1String(target.name));
    for (const QFileInfo& info : folder.entryInfoList(QDir::Files, QDir::Name)) {
        QFile file(info.filePath());
        if (file.open(QIODevice::ReadOnly))
            texts.push_back(file.readAll().toStdString());
    }
    if (target.target == runBatch)
        texts.insert(texts.end(), tests::fuzzSeeds().begin(), tests::fuzzSeeds().end());
    return texts;
}

} // namespace attacks
