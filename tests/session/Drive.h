#pragma once

#include "platform/controls/screen/MessageBox.h"
#include "platform/controls/screen/Screen.h"

#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace tests {

/// Runs `opener`; once the screen that it opens is up, runs `driver` in its loop. A screen that the driver
/// leaves open fails the test and is taken away.
void whileModal(const std::function<void()>& opener, const std::function<void(controls::Screen&)>& driver);

/// The child of that name; raises when there is none.
QWidget& childOf(QWidget& parent, const char* name);
template <typename T>
T& childOf(QWidget& parent, const char* name) {
    auto* found = qobject_cast<T*>(&childOf(parent, name));
    if (!found)
        throw std::runtime_error(std::string(name) + " is of another kind");
    return *found;
}

/// Answers the boxes in order; a box more than that fails the test.
class Boxes {
  public:
    explicit Boxes(std::vector<int> answers = {});
    ~Boxes();
    Boxes(const Boxes&) = delete;
    Boxes& operator=(const Boxes&) = delete;

    struct Box {
        QString prompt;
        int style;
        QString title;
    };
    std::vector<Box> shown;

  private:
    std::vector<int> m_answers;
};

} // namespace tests
