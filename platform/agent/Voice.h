#pragma once

#include <QObject>
#include <QProcess>
#include <QString>

namespace agent {

/// Says sentences aloud, one after the other. Nothing here waits for the sound.
class Voice : public QObject {
    Q_OBJECT

  public:
    virtual void say(const QString& sentence) = 0;
    /// Ends the sentence and forgets those that wait.
    virtual void stop() = 0;
    /// False from the start where there is no sound or no engine.
    virtual bool isSpeaking() const = 0;
};

/// The voice of a program of its own (tools/scintra-voice): it starts with the first sentence and ends with
/// this object; whatever a sound system does to it, nothing here waits or falls. A program that is not there
/// or has ended leaves silence.
class SpeechProgram : public Voice {
    Q_OBJECT

  public:
    explicit SpeechProgram(QString program);
    ~SpeechProgram() override;

    void say(const QString& sentence) override;
    void stop() override;
    bool isSpeaking() const override { return m_waiting > 0; }
    /// It could not be started, or has ended.
    bool isSilent() const { return m_isSilent; }

  private:
    void readAnswers();
    void fallSilent();

    QString m_program;
    QProcess m_process;
    int m_waiting = 0; ///< sentences that it was given and has not said
    bool m_isSilent;
};

} // namespace agent
