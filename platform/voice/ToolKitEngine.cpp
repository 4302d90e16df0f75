#include "platform/voice/Engine.h"

#include <QStringList>
#include <QTextToSpeech>

namespace voice {

namespace {

constexpr double aLittleSlower = -0.1;

/// The offline engine before the others; "mock", which says nothing, counts as none.
QString chosenEngine() {
    const QStringList engines = QTextToSpeech::availableEngines();
    for (const char* wished : {"flite", "speechd", "darwin"}) {
        if (engines.contains(QLatin1String(wished)))
            return QLatin1String(wished);
    }
    return {};
}

class ToolKitEngine : public Engine {
  public:
    ToolKitEngine(const QString& engine, Listener listener)
        : m_listener(std::move(listener)), m_speech(engine) {
        m_speech.setRate(aLittleSlower);
        QObject::connect(&m_speech, &QTextToSpeech::stateChanged, &m_speech,
                         [this](QTextToSpeech::State state) { follow(state); });
    }

    bool isUsable() const { return m_speech.state() != QTextToSpeech::Error; }

    void say(const QString& sentence) override {
        m_isSaying = true;
        m_speech.say(sentence);
    }
    void stop() override {
        m_isSaying = false;
        m_speech.stop();
    }

  private:
    void follow(QTextToSpeech::State state) {
        if (state == QTextToSpeech::Error)
            m_listener.broken();
        else if (state == QTextToSpeech::Ready && m_isSaying) {
            m_isSaying = false;
            m_listener.said();
        }
    }

    Listener m_listener;
    QTextToSpeech m_speech;
    bool m_isSaying = false;
};

} // namespace

std::unique_ptr<Engine> Engine::open(Listener listener) {
    const QString engine = chosenEngine();
    if (engine.isEmpty())
        return nullptr;
    auto opened = std::make_unique<ToolKitEngine>(engine, std::move(listener));
    return opened->isUsable() ? std::move(opened) : nullptr;
}

} // namespace voice
