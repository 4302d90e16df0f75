#include "platform/voice/Engine.h"

#include <QWinEventNotifier>

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <sapi.h>

namespace voice {

namespace {

constexpr long aLittleSlower = -1; // of -10 to 10

struct Release {
    void operator()(IUnknown* object) const { object->Release(); }
};

class WindowsEngine : public Engine {
  public:
    WindowsEngine(ISpVoice* voice, Listener listener)
        : m_listener(std::move(listener)), m_voice(voice), m_silence(voice->SpeakCompleteEvent()) {
        voice->SetRate(aLittleSlower);
        m_silence.setEnabled(false);
        QObject::connect(&m_silence, &QWinEventNotifier::activated, &m_silence, [this] { hearSilence(); });
    }

    void say(const QString& sentence) override {
        const std::wstring words = sentence.toStdWString();
        if (FAILED(m_voice->Speak(words.c_str(), SPF_ASYNC | SPF_IS_NOT_XML, nullptr)))
            return m_listener.broken();
        m_silence.setEnabled(true);
    }
    void stop() override {
        m_silence.setEnabled(false);
        m_voice->Speak(nullptr, SPF_ASYNC | SPF_PURGEBEFORESPEAK, nullptr);
    }

  private:
    /// The event is of the voice, not of a sentence: one that was stopped may have left it set.
    void hearSilence() {
        SPVOICESTATUS status{};
        if (FAILED(m_voice->GetStatus(&status, nullptr)))
            return m_listener.broken();
        if (status.dwRunningState != SPRS_DONE)
            return;
        m_silence.setEnabled(false);
        m_listener.said();
    }

    Listener m_listener;
    std::unique_ptr<ISpVoice, Release> m_voice;
    QWinEventNotifier m_silence;
};

} // namespace

std::unique_ptr<Engine> Engine::open(Listener listener) {
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)))
        return nullptr;
    void* voice = nullptr;
    if (FAILED(CoCreateInstance(__uuidof(SpVoice), nullptr, CLSCTX_ALL, __uuidof(ISpVoice), &voice)))
        return nullptr;
    return std::make_unique<WindowsEngine>(static_cast<ISpVoice*>(voice), std::move(listener));
}

} // namespace voice
