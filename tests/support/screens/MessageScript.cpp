#include "tests/support/screens/MessageScript.h"

#include "platform/controls/screen/TestDoors.h"

#include <gtest/gtest.h>

namespace tests {

namespace {

std::string described(const QString& prompt, int style, const QString& title) {
    return QStringLiteral("\"%1\", style %2, title \"%3\"").arg(prompt).arg(style).arg(title).toStdString();
}

} // namespace

MessageScript::MessageScript(std::initializer_list<Box> expected) : m_expected(expected) {
    controls::setMessageScript([this](const QString& prompt, int style, const QString& title) {
        return answer(prompt, style, title);
    });
}

MessageScript::~MessageScript() {
    controls::setMessageScript(&MessageScript::refuse);
    for (std::size_t i = m_boxes.size(); i < m_expected.size(); ++i)
        ADD_FAILURE() << "This box never came: "
                      << described(m_expected[i].prompt, m_expected[i].style, m_expected[i].title);
}

int MessageScript::defaultAnswer(int style) {
    const bool second = (style & 0x300) == controls::vbDefaultButton2;
    switch (style & 0x0F) {
    case controls::vbOKCancel:
        return second ? controls::vbCancel : controls::vbOK;
    case controls::vbYesNo:
        return second ? controls::vbNo : controls::vbYes;
    default:
        return controls::vbOK;
    }
}

int MessageScript::refusingAnswer(int style) {
    switch (style & 0x0F) {
    case controls::vbOKCancel:
        return controls::vbCancel;
    case controls::vbYesNo:
        return controls::vbNo;
    default:
        return controls::vbOK;
    }
}

int MessageScript::refuse(const QString& prompt, int style, const QString& title) {
    ADD_FAILURE() << "A box that nobody expected: " << described(prompt, style, title);
    return refusingAnswer(style);
}

int MessageScript::answer(const QString& prompt, int style, const QString& title) {
    const std::size_t position = m_boxes.size();
    m_boxes.push_back({prompt, style, title, refusingAnswer(style), {}});
    if (m_acceptsAny && position >= m_expected.size())
        return m_boxes.back().answer = defaultAnswer(style);
    if (position >= m_expected.size())
        return refuse(prompt, style, title);
    const Box next = m_expected[position];
    if (prompt != next.prompt || style != next.style || title != next.title) {
        ADD_FAILURE() << "Box " << position + 1 << " is " << described(prompt, style, title)
                      << "\n  expected " << described(next.prompt, next.style, next.title);
        return refusingAnswer(style);
    }
    const int given = next.answer ? next.answer : defaultAnswer(style);
    m_boxes[position].answer = given;
    if (next.meanwhile)
        next.meanwhile();
    return given;
}

} // namespace tests
