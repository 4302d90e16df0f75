#pragma once

#include "platform/agent/Balloon.h"
#include "platform/agent/Voice.h"

#include <QTimer>

#include <deque>
#include <memory>

namespace agent {

/// A figure on the desktop that moves, shows itself, speaks and hides. What it is asked for is done in order,
/// one thing after the other, while the program goes on: every call returns at once. Its window is made when
/// it is first shown.
class Character : public QObject {
    Q_OBJECT

  public:
    /// `voice` may be null: the balloon alone then.
    Character(Figure figure, std::unique_ptr<Voice> voice, QObject* parent = nullptr);
    ~Character() override;

    void MoveTo(QPoint point);
    void Show();
    void Speak(const QString& sentence);
    void Hide();

    /// Breaks off what it does, forgets what waits.
    void Stop();
    /// What it was asked for and has not done, the present thing included.
    int waiting() const { return int(m_requests.size()); }

    /// A silenced one hides at once, and neither comes nor speaks.
    void setSilenced(bool silenced);
    bool isSilenced() const { return m_isSilenced; }
    bool isVisible() const { return m_balloon && m_balloon->isVisible(); }
    /// Null before it was first shown.
    const Balloon* balloon() const { return m_balloon.get(); }

  Q_SIGNALS:
    void Click();
    /// The user silenced it on its balloon.
    void Silenced();

  private:
    struct Request {
        enum class Kind { Move, Show, Speak, Hide };
        Kind kind;
        QPoint point = {};
        QString sentence = {};
    };

    void ask(Request request);
    void begin();
    void done();
    void play(const QString& animation, bool again);
    void nextFrame();
    void beginSentence(const QString& sentence);
    void sentenceRead();
    Balloon& made();

    const Figure m_figure;
    std::unique_ptr<Voice> m_voice;
    std::unique_ptr<Balloon> m_balloon;
    std::deque<Request> m_requests;
    QTimer m_frames;
    QTimer m_sentence;
    const std::vector<Frame>* m_animation = nullptr;
    std::size_t m_frame = 0;
    bool m_playsAgain = false;
    bool m_isSilenced = false;
    QPoint m_place;
    int m_heldFor = 0; ///< times that the sentence stayed for the voice
};

} // namespace agent
