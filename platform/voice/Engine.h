#pragma once

#include <QString>

#include <functional>
#include <memory>

namespace voice {

/// What of the system speaks. One sentence at a time; nothing here waits for the sound.
class Engine {
  public:
    struct Listener {
        std::function<void()> said;   ///< the sentence is over
        std::function<void()> broken; ///< there is no sound any more
    };
    /// Null where there is no engine or no sound. Called by the thread of the application's events, which
    /// hears the listener.
    static std::unique_ptr<Engine> open(Listener listener);

    virtual ~Engine() = default;
    Engine() = default;
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    virtual void say(const QString& sentence) = 0;
    /// Ends the sentence; `said` is not called for it.
    virtual void stop() = 0;
};

} // namespace voice
