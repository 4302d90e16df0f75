// Says aloud what comes line by line; answers each line that was said, or was not to be said any more, with
// one of its own. An empty line ends what is being said and forgets the rest. Ends with its input, or where
// there is no engine and no sound.

#include "platform/base/DesksLanguage.h"

#include <QCoreApplication>
#include <QStringList>
#include <QTextToSpeech>

#include <cstdio>
#include <iostream>
#include <string>
#include <thread>

namespace {

class Speaker : public QObject {
  public:
    explicit Speaker(const QString& engine) : m_speech(engine) {
        m_speech.setRate(-0.1);
        QObject::connect(&m_speech, &QTextToSpeech::stateChanged, this, [this](QTextToSpeech::State state) {
            if (state == QTextToSpeech::Error)
                QCoreApplication::exit(1);
            else if (state == QTextToSpeech::Ready && m_isSaying)
                said();
        });
    }

    bool isUsable() const { return m_speech.state() != QTextToSpeech::Error; }

    void take(const QString& line) {
        if (line.isEmpty())
            return forget();
        m_lines += line;
        if (!m_isSaying)
            sayNext();
    }

  private:
    void sayNext() {
        if (m_lines.isEmpty())
            return;
        m_isSaying = true;
        m_speech.say(m_lines.front());
    }
    void answer() {
        std::fputs("\n", stdout);
        std::fflush(stdout);
    }
    void said() {
        m_isSaying = false;
        m_lines.removeFirst();
        answer();
        sayNext();
    }
    void forget() {
        m_isSaying = false;
        m_speech.stop();
        for (; !m_lines.isEmpty(); m_lines.removeFirst())
            answer();
    }

    QTextToSpeech m_speech;
    QStringList m_lines;
    bool m_isSaying = false;
};

/// The offline engine before the others; "mock", which says nothing, counts as none.
QString chosenEngine() {
    const QStringList engines = QTextToSpeech::availableEngines();
    for (const char* wished : {"flite", "speechd", "sapi", "winrt", "darwin"}) {
        if (engines.contains(QLatin1String(wished)))
            return QLatin1String(wished);
    }
    return {};
}

} // namespace

int main(int argc, char** argv) {
    base::ignoreDesksLanguage();
    QCoreApplication application(argc, argv);
    const QString engine = chosenEngine();
    if (engine.isEmpty())
        return 1;
    Speaker speaker(engine);
    if (!speaker.isUsable())
        return 1;
    std::thread([&] {
        for (std::string line; std::getline(std::cin, line);)
            QMetaObject::invokeMethod(
                &speaker, [&speaker, text = QString::fromStdString(line)] { speaker.take(text); });
        std::_Exit(0); // whoever listened is gone; a sound system that hangs keeps nobody
    }).detach();
    return QCoreApplication::exec();
}
