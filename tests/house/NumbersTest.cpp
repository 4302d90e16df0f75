#include "tests/house/SourceTree.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

namespace {

QString textOf(const QString& source) {
    return tests::linesOf(source).join(u'\n');
}

/// What writes or reads a number as the desk's language does.
QStringList byTheDesk(const QString& source) {
    static const QRegularExpression call(QStringLiteral(
        "\\b(strto(d|f|ld)|sto(d|f|ld)|atof|sscanf|[io]?stringstream|QLocale::system|QLocale\\(\\))\\b|"
        "printf\\([^;]*%[-+#0-9.*]*[aefgAEFG]\\b|setlocale\\((?!LC_(NUMERIC, \"C\"|CTYPE, \"C.UTF-8\")\\))"));
    QStringList found;
    for (auto match = call.globalMatch(source); match.hasNext();)
        found += match.next().captured();
    return found;
}

TEST(Numbers, AreWrittenAndReadByNoDesksLanguage) {
    for (const QString& name : tests::productSources()) {
        const QStringList found = byTheDesk(textOf(name));
        EXPECT_TRUE(found.isEmpty()) << name.toStdString() << ": "
                                     << found.join(QStringLiteral("; ")).toStdString();
    }
}

TEST(Numbers, ACallByTheDesksLanguageIsSeen) {
    for (const QString call :
         {"strtod(text, nullptr)", "std::stod(text)", "snprintf(buffer, 9, \"%.15G\", number)",
          "QString::asprintf(\"%d %g\", a, b)", "std::ostringstream out", "setlocale(LC_ALL, \"\")"})
        EXPECT_EQ(byTheDesk(call).size(), 1) << call.toStdString();
    EXPECT_EQ(byTheDesk("std::snprintf(buffer, sizeof buffer, \"%02d\", value)").size(), 0);
}

/// Programs that hand over to a main that does, and one that writes no number.
const QStringList withoutMain{"tests/lookup/registrar/main.cpp",     "tests/orders/saver/main.cpp",
                              "tests/orders/outsaver/main.cpp",      "tests/orders/assessor/main.cpp",
                              "tests/orders/taker/main.cpp",         "tests/results/recorder/main.cpp",
                              "tests/revocation/canceller/main.cpp", "tests/charges/asker/main.cpp",
                              "tests/charges/supplier/main.cpp",     "bench/minimal.cpp"};

TEST(Programs, IgnoreTheDesksLanguageFromTheirFirstLine) {
    static const QRegularExpression main(QStringLiteral("\\nint main\\([^)]*\\) \\{\\n *([^\\n]*)"));
    int programs = 0;
    for (const QString& name : tests::sourcesIn()) {
        const auto match = main.match(textOf(name));
        if (!match.hasMatch() || withoutMain.contains(name))
            continue;
        ++programs;
        EXPECT_EQ(match.captured(1), u"base::ignoreDesksLanguage();") << name.toStdString();
    }
    EXPECT_GE(programs, 10);
}

} // namespace
