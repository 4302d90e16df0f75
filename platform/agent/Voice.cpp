#include "platform/agent/Voice.h"

#include "platform/controls/screen/Connect.h"

#include <QFileInfo>

namespace agent {

namespace {

/// One that hangs is given no more.
constexpr int mostWaiting = 8;
constexpr int leaveWithin = 200; // milliseconds

} // namespace

SpeechProgram::SpeechProgram(QString program)
    : m_program(std::move(program)), m_isSilent(!QFileInfo(m_program).isExecutable()) {
    m_process.setStandardErrorFile(QProcess::nullDevice());
    controls::on(&m_process, &QProcess::readyReadStandardOutput, this, [this] { readAnswers(); });
    controls::on(&m_process, &QProcess::errorOccurred, this, [this] { fallSilent(); });
    controls::on(&m_process, &QProcess::finished, this, [this] { fallSilent(); });
}

SpeechProgram::~SpeechProgram() {
    m_isSilent = true;
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.kill();
    m_process.waitForFinished(leaveWithin);
}

void SpeechProgram::say(const QString& sentence) {
    if (m_isSilent || m_waiting == mostWaiting)
        return;
    if (m_process.state() == QProcess::NotRunning)
        m_process.start(m_program, {});
    if (m_isSilent)
        return;
    ++m_waiting;
    m_process.write(sentence.simplified().toUtf8() + '\n');
}

void SpeechProgram::stop() {
    if (m_waiting > 0)
        m_process.write("\n");
}

void SpeechProgram::readAnswers() {
    m_waiting = qMax(0, m_waiting - int(m_process.readAllStandardOutput().count('\n')));
}

void SpeechProgram::fallSilent() {
    m_isSilent = true;
    m_waiting = 0;
}

} // namespace agent
