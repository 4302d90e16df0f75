#pragma once

#include "tools/scintra-tour/GuidePictures.h"

#include <QObject>
#include <QString>
#include <QWidget>

#include <functional>
#include <vector>

namespace tour {

/// A window on screen by its object name, when nothing modal stands before it; else null.
QWidget* windowOnTop(const QString& name);

/// A control by name. Raises a sentence that lists what there is when it is missing or not to be used.
template <typename T>
T& control(QWidget& window, const QString& name);
[[noreturn]] void missing(const QWidget& window, const QString& name);

template <typename T>
T& control(QWidget& window, const QString& name) {
    T* found = window.findChild<T*>(name);
    if (!found)
        missing(window, name);
    return *found;
}

/// What a step needs to see before it is taken; null while it is not there yet.
using Sight = std::function<QWidget*()>;
using Deed = std::function<void(QWidget& window)>;

/// Steps through the program as a user would: each waits until it sees its window, then types or clicks. A
/// step that opens a modal window does not hold up the next one. A step that does not happen ends the
/// process.
class Walk : public QObject {
  public:
    /// The guide's pictures go to a folder of their own; "" for none.
    explicit Walk(QString folder, const QString& guideFolder = {});

    /// `name` says in plain words what happens.
    void step(const QString& name, Sight sight, Deed deed);
    /// A picture of the window, "<number>-<name>.png" in the folder.
    void picture(const QString& name, Sight sight);
    /// Starts with the first step as soon as events are handled.
    void start();

    /// Prints why and ends the process with exit code 1.
    [[noreturn]] void fail(const QString& why) const;
    const QString& folder() const { return m_folder; }
    const GuidePictures& guide() const { return m_guide; }

  private:
    struct Step {
        QString name;
        Sight sight;
        Deed deed;
    };

    void attempt();
    void take(const Step& step, QWidget& window);
    QString whatIsOnScreen() const;

    QString m_folder;
    GuidePictures m_guide;
    std::vector<Step> m_steps;
    std::size_t m_next = 0;
    int m_attempts = 0;
    int m_pictures = 0;
};

} // namespace tour
