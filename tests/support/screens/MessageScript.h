#pragma once

#include "platform/controls/screen/MessageBox.h"

#include <functional>
#include <vector>

namespace tests {

/// The boxes a test expects, in their order, and what is answered. A box that is not the next one fails the
/// test at once and answers Cancel, No or OK; at the end all must have come. One at a time.
class MessageScript {
  public:
    struct Box {
        QString prompt;
        int style = controls::vbOKOnly;
        QString title = {};
        /// 0 answers the default button.
        int answer = 0;
        /// Looks at what stands while the box is up.
        std::function<void()> meanwhile = {};
    };

    MessageScript(std::initializer_list<Box> expected = {});
    ~MessageScript();
    MessageScript(const MessageScript&) = delete;
    MessageScript& operator=(const MessageScript&) = delete;

    void expect(Box box) { m_expected.push_back(std::move(box)); }
    /// Whatever box comes is taken and answered with its default button; for tests that look at boxes()
    /// later.
    void acceptAny() { m_acceptsAny = true; }
    /// What came, answers included.
    const std::vector<Box>& boxes() const { return m_boxes; }

    /// The answer of the style's default button.
    static int defaultAnswer(int style);
    /// Cancel, No, or OK where there is nothing else.
    static int refusingAnswer(int style);
    /// Fails the test with the box that nobody expected; what stands while no script lives.
    static int refuse(const QString& prompt, int style, const QString& title);

  private:
    int answer(const QString& prompt, int style, const QString& title);

    std::vector<Box> m_expected;
    std::vector<Box> m_boxes;
    bool m_acceptsAny = false;
};

} // namespace tests
