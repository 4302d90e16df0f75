#include "platform/controls/fields/Keys.h"

#include <QKeyEvent>

#include <gtest/gtest.h>

namespace controls {

namespace {

bool types(const QString& text, Qt::KeyboardModifiers modifiers = {}) {
    return typesText(QKeyEvent(QEvent::KeyPress, Qt::Key_unknown, modifiers, text));
}

QKeyEvent enter(int key, bool held, Qt::KeyboardModifiers modifiers = {}) {
    return {QEvent::KeyPress, key, modifiers, QStringLiteral("\r"), held};
}

} // namespace

TEST(Keys, BothEntersAreOne) {
    EXPECT_TRUE(isEnter(Qt::Key_Return));
    EXPECT_TRUE(isEnter(Qt::Key_Enter));
    EXPECT_TRUE(isEnter(enter(Qt::Key_Enter, false, Qt::ControlModifier)));
    EXPECT_FALSE(isEnter(Qt::Key_Space));
}

TEST(Keys, AnEnterIsHeldOnceItRepeatsItself) {
    EXPECT_FALSE(isHeldEnter(enter(Qt::Key_Return, false)));
    EXPECT_TRUE(isHeldEnter(enter(Qt::Key_Return, true)));
    EXPECT_TRUE(isHeldEnter(enter(Qt::Key_Enter, true)));
    EXPECT_FALSE(isHeldEnter(enter(Qt::Key_Down, true)));
}

TEST(Keys, WhatShowsIsText) {
    EXPECT_TRUE(types(QStringLiteral("a")));
    EXPECT_TRUE(types(QStringLiteral("A"), Qt::ShiftModifier));
    EXPECT_TRUE(types(QStringLiteral("7"), Qt::KeypadModifier));
    EXPECT_TRUE(types(QStringLiteral(" ")));
    EXPECT_TRUE(types(QString::fromUtf8("ñ")));
    EXPECT_TRUE(types(QString::fromUtf8("😀")));
}

TEST(Keys, WhatControlsIsNone) {
    EXPECT_FALSE(types(QString()));
    for (const char* control : {"\b", "\t", "\r", "\x1b", "\x7f"})
        EXPECT_FALSE(types(QString::fromLatin1(control))) << int(*control);
}

TEST(Keys, AltGrTypesAndACommandDoesNot) {
    EXPECT_TRUE(types(QStringLiteral("@"), Qt::ControlModifier | Qt::AltModifier));
    EXPECT_TRUE(types(QString::fromUtf8("€"), Qt::GroupSwitchModifier));
    EXPECT_TRUE(types(QStringLiteral("{"), Qt::ControlModifier | Qt::AltModifier | Qt::ShiftModifier));
    for (const Qt::KeyboardModifier command : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier})
        EXPECT_FALSE(types(QStringLiteral("a"), command)) << int(command);
    EXPECT_FALSE(types(QStringLiteral("a"), Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
}

} // namespace controls
