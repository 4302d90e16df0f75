#include "menu/Merlin.h"

#include "platform/base/Error.h"
#include "platform/base/Installed.h"

#include <QFile>
#include <QFileInfo>

namespace menu {

namespace {

constexpr QPoint place(650, 60);

constexpr const char* sentences[] = {
    "You Have Received a Discharge Notice.", "You Have Received a Discharge Notice.",
    "You Have Received a Discharge Notice!", "Check if the Patients are Cleared in your Department.",
    "You Have Received a Discharge Notice!", "Check if the Patients are Cleared in your Department.",
};

/// Move, show, the sentences, hide.
constexpr int stepsOfARound = int(std::size(sentences)) + 3;

agent::Figure nobody() {
    return agent::readFigure(
        "scintra-character 1\nname merlin\nsize 16 64\npart none\nanimation show\nframe 20 none\n"
        "animation rest\nframe 10000 none\nanimation speak\nframe 10000 none\n"
        "animation hide\nframe 20 none\n");
}

agent::Figure loadMerlin() {
    QFile file(base::sharedFile(QStringLiteral("merlin.acs")));
    if (!file.open(QIODevice::ReadOnly))
        return nobody();
    try {
        return agent::readFigure(file.readAll());
    } catch (const base::RunTimeError& error) {
        qWarning("%s", error.what()); // a torn file takes the figure away, not the sentences
        return nobody();
    }
}

} // namespace

Merlin::Merlin()
    : m_figure(loadMerlin(),
               std::make_unique<agent::SpeechProgram>(base::helperProgram(QStringLiteral("scintra-voice")))) {
    session::setCharacter(this);
}

Merlin::~Merlin() {
    if (session::character() == this)
        session::setCharacter(nullptr);
}

void Merlin::announceNotices() {
    if (m_figure.waiting() > stepsOfARound)
        return;
    m_figure.MoveTo(place);
    m_figure.Show();
    for (const char* sentence : sentences)
        m_figure.Speak(QString::fromLatin1(sentence));
    m_figure.Hide();
}

void Merlin::Show() {
    m_figure.Stop();
    m_figure.MoveTo(place);
    m_figure.Show();
}

void Merlin::Hide() {
    m_figure.Stop();
    m_figure.Hide();
}

} // namespace menu
