#include "platform/controls/fields/KeyFilter.h"

#include "platform/controls/fields/KeptCharacters.h"
#include "tests/support/screens/Driver.h"

#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

namespace controls {

namespace {

constexpr auto nameRules = KeyRule::UpperCase | KeyRule::BackQuote;

class KeyFilter : public testing::Test {
  protected:
    KeyFilter() {
        field.setObjectName(QStringLiteral("field"));
        field.show();
        QGuiApplication::clipboard()->setText(QStringLiteral("o'neil"));
    }
    QLineEdit field;
};

struct Western {
    Western() { setKeptCharacters(KeptCharacters::Western); }
    ~Western() { setKeptCharacters(KeptCharacters::All); }
};

} // namespace

TEST_F(KeyFilter, RulesOfATextOnItsOwn) {
    EXPECT_EQ(filtered(QStringLiteral("o'Neil 1"), nameRules), QStringLiteral("O`NEIL 1"));
    EXPECT_EQ(filtered(QStringLiteral("o'Neil"), KeyRule::BackQuote), QStringLiteral("o`Neil"));
    EXPECT_EQ(filtered(QStringLiteral("a1 2.5-+e,"), KeyRule::Number), QStringLiteral("12.5-+"));
    EXPECT_EQ(filtered(QStringLiteral("-1.5x"), KeyRule::Digits), QStringLiteral("15"));
    EXPECT_EQ(filtered(QStringLiteral("o\u2019n"), nameRules), QStringLiteral("O`N"));
    EXPECT_EQ(filtered(QString::fromUtf8("ñß"), KeyRule::UpperCase), QString::fromUtf8("Ñß"));
}

TEST_F(KeyFilter, TypedTextComesOutRuled) {
    setKeyRules(&field, nameRules);
    QSignalSpy changes(&field, &QLineEdit::textChanged);
    tests::keys(field, QStringLiteral("o'n"));
    EXPECT_EQ(field.text(), QStringLiteral("O`N"));
    EXPECT_EQ(changes.size(), 3);
    EXPECT_EQ(changes.at(0).at(0).toString(), QStringLiteral("O"));
}

TEST_F(KeyFilter, TheCursorStaysWhereTheTypistIs) {
    setKeyRules(&field, nameRules);
    field.setText(QStringLiteral("AD"));
    field.setFocus();
    field.setCursorPosition(1);
    tests::keysToFocus(field, QStringLiteral("bc"));
    EXPECT_EQ(field.text(), QStringLiteral("ABCD"));
    EXPECT_EQ(field.cursorPosition(), 3);
    tests::keysToFocus(field, QStringLiteral("<Ctrl+Z>"));
    EXPECT_EQ(field.text(), QStringLiteral("AD"));
}

TEST_F(KeyFilter, RefusedKeysDoNothingAndOtherKeysPass) {
    setKeyRules(&field, KeyRule::Number);
    int entered = 0;
    QObject::connect(&field, &QLineEdit::returnPressed, &field, [&] { ++entered; });
    tests::keys(field, QStringLiteral("1x2<Backspace>.5<Enter>"));
    EXPECT_EQ(field.text(), QStringLiteral("1.5"));
    EXPECT_EQ(entered, 1);
}

TEST_F(KeyFilter, TextsSetByCodeStayAsTheyAre) {
    setKeyRules(&field, nameRules);
    field.setText(QStringLiteral("O'Neil"));
    EXPECT_EQ(field.text(), QStringLiteral("O'Neil"));
    field.end(false);
    tests::keysToFocus(field, QString());
    tests::keys(field, QStringLiteral("<End>x"));
    EXPECT_EQ(field.text(), QStringLiteral("O'NeilX"));
}

TEST_F(KeyFilter, PastedTextComesOutRuled) {
    setKeyRules(&field, nameRules);
    tests::keys(field, QStringLiteral("x<Ctrl+V>"));
    EXPECT_EQ(field.text(), QStringLiteral("XO`NEIL"));
    QGuiApplication::clipboard()->setText(QStringLiteral("a\r\nb\tc"));
    field.selectAll();
    tests::keysToFocus(field, QStringLiteral("<Shift+Ins>"));
    EXPECT_EQ(field.text(), QStringLiteral("A B C"));
}

TEST_F(KeyFilter, PastingHonoursTheFieldsLength) {
    setKeyRules(&field, nameRules);
    field.setMaxLength(4);
    tests::keys(field, QStringLiteral("<Ctrl+V>"));
    EXPECT_EQ(field.text(), QStringLiteral("O`NE"));
}

TEST_F(KeyFilter, AReadOnlyFieldTakesNothing) {
    setKeyRules(&field, nameRules);
    field.setText(QStringLiteral("A"));
    field.setReadOnly(true);
    tests::keys(field, QStringLiteral("b<Ctrl+V>"));
    EXPECT_EQ(field.text(), QStringLiteral("A"));
}

TEST_F(KeyFilter, TheFieldsMenuPastesRuledText) {
    setKeyRules(&field, nameRules);
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, QPoint(2, 2), field.mapToGlobal(QPoint(2, 2)));
    QCoreApplication::sendEvent(&field, &asked);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    QAction* paste = nullptr;
    for (QAction* action : menu->actions())
        if (action->text().startsWith(QLatin1String("&Paste")))
            paste = action;
    ASSERT_NE(paste, nullptr);
    paste->trigger();
    menu->close();
    EXPECT_EQ(field.text(), QStringLiteral("O`NEIL"));
}

TEST_F(KeyFilter, DroppedAndComposedTextComesOutRuled) {
    setKeyRules(&field, nameRules);
    QMimeData data;
    data.setText(QStringLiteral("d'a"));
    QDragEnterEvent enter(QPoint(2, 2), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&field, &enter);
    QDropEvent drop(QPointF(2, 2), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&field, &drop);
    EXPECT_EQ(field.text(), QStringLiteral("D`A"));
    QInputMethodEvent composed;
    composed.setCommitString(QString::fromUtf8("ñ'"));
    QCoreApplication::sendEvent(&field, &composed);
    EXPECT_EQ(field.text(), QString::fromUtf8("D`AÑ`"));
}

TEST_F(KeyFilter, ATextOfWhichTheServerLosesSomethingIsRefusedWhole) {
    setKeyRules(&field, KeyRule::BackQuote);
    QGuiApplication::clipboard()->setText(QString::fromUtf8("\u226550 % \u03B1 \u4E2D \u03B1"));
    tests::keys(field, QStringLiteral("<Ctrl+V>"));
    EXPECT_EQ(field.text(), QGuiApplication::clipboard()->text()) << "the file keeps every character";
    field.clear();

    const Western western;
    tests::keysToFocus(field, QStringLiteral("5<Ctrl+V>"));
    EXPECT_EQ(field.text(), QStringLiteral("5"));
    EXPECT_EQ(
        QToolTip::text(),
        QString::fromUtf8("The hospital's server does not keep \u2265 \u03B1 \u4E2D: nothing was put in."));
    QKeyEvent alpha(QEvent::KeyPress, 0, Qt::NoModifier, QString::fromUtf8("\u03B2"));
    QCoreApplication::sendEvent(&field, &alpha);
    QInputMethodEvent composed;
    composed.setCommitString(QString::fromUtf8("\u03B3"));
    QCoreApplication::sendEvent(&field, &composed);
    EXPECT_EQ(field.text(), QStringLiteral("5"));
    QGuiApplication::clipboard()->setText(QString::fromUtf8("\u20AC \u0152 \u00D1 \u2019 \u00B2"));
    tests::keysToFocus(field, QStringLiteral("<Ctrl+V>"));
    EXPECT_EQ(field.text(), QString::fromUtf8("5\u20AC \u0152 \u00D1 ` \u00B2"));
}

TEST_F(KeyFilter, NoServerKeepsHalfACharacter) {
    const QString whole = QStringLiteral("b\U0001F600");
    EXPECT_EQ(lostCharactersSentence(whole), QString());
    EXPECT_EQ(
        lostCharactersSentence(QStringLiteral("a") + QChar(0) + QChar(0xD83D) + whole + QChar(0xDE00)),
        QStringLiteral("The hospital's server does not keep U+0000 U+D83D U+DE00: nothing was put in."));
    setKeptCharacters(KeptCharacters::Ascii);
    EXPECT_EQ(lostCharactersSentence(QString::fromUtf8("\u00D1o")),
              QString::fromUtf8("The hospital's server does not keep \u00D1: nothing was put in."));
    QString many;
    for (char16_t c = 0x100; c < 0x110; ++c)
        many += QChar(c);
    EXPECT_TRUE(lostCharactersSentence(many).contains(QStringLiteral(" and 4 others: ")));
    setKeptCharacters(KeptCharacters::All);
}

TEST_F(KeyFilter, NewRulesReplaceTheFormer) {
    setKeyRules(&field, KeyRule::Number);
    setKeyRules(&field, KeyRule::UpperCase);
    tests::keys(field, QStringLiteral("a1'"));
    EXPECT_EQ(field.text(), QStringLiteral("A1'"));
}

TEST(KeyFilterOfManyLines, TypedAndPastedTextComesOutRuled) {
    QPlainTextEdit field;
    field.setObjectName(QStringLiteral("txtRemarks"));
    field.show();
    setKeyRules(&field, KeyRule::BackQuote);
    QGuiApplication::clipboard()->setText(QStringLiteral("it's\nhere"));
    tests::keys(field, QStringLiteral("a'<Enter><Ctrl+V>"));
    EXPECT_EQ(field.toPlainText(), QStringLiteral("a`\nit`s\nhere"));
    field.setPlainText(QStringLiteral("by code's"));
    EXPECT_EQ(field.toPlainText(), QStringLiteral("by code's"));
}

} // namespace controls
