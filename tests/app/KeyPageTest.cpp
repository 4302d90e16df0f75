// docs/guide/keys.md, written from the screens themselves.
#include "session/TestDoors.h"
#include "tests/app/KeyCheck.h"
#include "tests/app/ScreenOpeners.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/LoggedOn.h"

#include <QFile>
#include <QWidget>

namespace {

const QString page = QStringLiteral(SCINTRA_SOURCE_DIR "/docs/guide/keys.md");
constexpr char writing[] = "SCINTRA_WRITE_KEYS";

/// What no screen says of itself, since all of them do it.
constexpr char head[] = R"(# Keys

This page is written by the program's own screens, so it says what they do. What has a letter of its own in one
mode only stands here as well.

## Everywhere

| Key | What it does |
|---|---|
| Tab, Shift+Tab | To the next field or command, or the one before |
| Enter | In a field: goes on, searches or takes what is typed. On a command: presses it |
| Space | Presses the command, ticks the box |
| Alt and a letter | The command or the field whose caption has that letter underlined |
| Up, Down | In a list or a choice: the line above or below |
| F4, Alt+Down | Opens a list of choices, or a date's calendar |
| Esc | Leaves the screen where its table below says so |
| F1 | Opens the guide at the page of the screen; in the menu it finds an admitted patient |
| Shift+F1 | Opens the guide everywhere |
| Y, N | In a message box: Yes, No |
| Ctrl+C | In a message box: copies its text |
)";

/// Screens with one title.
constexpr std::pair<const char*, const char*> ofMany[] = {
    {"frmReceivableEntry", "entry"},
    {"frmNuclearChargesBuildFile_items", "items of a package"},
    {"frmResultEntryMPI", "myocardial perfusion"},
    {"frmResultEntryGFR", "GFR"},
    {"frmResultRadioImmuno", "radio-immunoassay"},
};

QString headingOf(const QString& screen, const QWidget& window) {
    QString heading = window.windowTitle().simplified();
    while (heading.endsWith(u':') || heading.endsWith(u' '))
        heading.chop(1);
    for (const auto& [name, what] : ofMany) {
        if (screen == QLatin1StringView(name))
            heading += QStringLiteral(" (%1)").arg(QLatin1StringView(what));
    }
    return heading;
}

QString cell(QString text) {
    return text.replace(u'|', QStringLiteral("\\|"));
}

/// One row for what several fields do with the same key.
QStringList rowsOf(QList<tests::AnsweredKey> keys) {
    QStringList rows;
    while (!keys.isEmpty()) {
        const tests::AnsweredKey key = keys.takeFirst();
        QStringList where{key.where};
        keys.removeIf([&](const tests::AnsweredKey& other) {
            const bool isSame = other.keys == key.keys && other.does == key.does;
            if (isSame && !where.contains(other.where))
                where << other.where;
            return isSame;
        });
        rows << QStringLiteral("| %1 | %2 | %3 |")
                    .arg(cell(key.keys), cell(where.join(QStringLiteral(", "))), cell(key.does));
    }
    return rows;
}

QString sectionOf(const QString& screen, QWidget& window) {
    QString section = QStringLiteral("\n## %1\n\n").arg(headingOf(screen, window));
    QList<tests::AnsweredKey> keys = tests::answeredKeys(window);
    const bool isOpen = window.isVisible();
    tests::keysToFocus(window, QStringLiteral("<Esc>"));
    if (isOpen && !window.isVisible())
        keys << tests::AnsweredKey{QStringLiteral("Esc"), {}, QStringLiteral("Leaves"), {}};
    if (keys.isEmpty())
        return section + QStringLiteral("No keys but those everywhere.\n");
    return section + QStringLiteral("| Key | Where | What it does |\n|---|---|---|\n") +
           rowsOf(keys).join(u'\n') + u'\n';
}

class KeyPage : public tests::LoggedOn {
  protected:
    KeyPage() { session::setProgramFolder(QStringLiteral(SCINTRA_SOURCE_DIR)); }
    ~KeyPage() override { session::setProgramFolder({}); }
};

TEST_F(KeyPage, SaysWhatTheScreensDo) {
    QString text = QString::fromUtf8(head);
    QStringList headings;
    for (const tests::ScreenOpener& opener : tests::screenOpeners()) {
        const QString screen = QString::fromLatin1(opener.screen);
        opener.open([&](QWidget& window) {
            const QString heading = headingOf(screen, window);
            EXPECT_FALSE(headings.contains(heading))
                << heading.toStdString() << ": give it a name of its own";
            headings << heading;
            text += sectionOf(screen, window);
        });
    }
    QFile file(page);
    if (qEnvironmentVariableIsSet(writing)) {
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
        return;
    }
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << page.toStdString();
    const QStringList written = QString::fromUtf8(file.readAll()).split(u'\n');
    const QStringList told = text.split(u'\n');
    for (qsizetype line = 0; line < qMax(written.size(), told.size()); ++line)
        ASSERT_EQ(written.value(line).toStdString(), told.value(line).toStdString())
            << "line " << line + 1 << " of docs/guide/keys.md. Written anew by: " << writing
            << "=1 build/dev/tests/test_app --gtest_filter='KeyPage.*'";
}

} // namespace
