// Says aloud what comes line by line; answers each line that was said, or was not to be said any more, with
// one of its own. An empty line ends what is being said and forgets the rest. Ends with its input, or where
// there is no engine and no sound.

#include "platform/base/DesksLanguage.h"
#include "platform/voice/Engine.h"

#include <QCoreApplication>
#include <QStringList>

#include <cstdio>
#include <iostream>
#include <string>
#include <thread>

namespace {

class Speaker : public QObject {
  public:
    Speaker() : m_engine(voice::Engine::open({.said = [this] { said(); }, .broken = [] { leave(); }})) {}

    bool isUsable() const { return m_engine != nullptr; }

    void take(const QString& line) {
        if (line.isEmpty())
            return forget();
        m_lines += line;
        if (m_lines.size() == 1)
            m_engine->say(line);
    }

  private:
    static void leave() { QCoreApplication::exit(1); }
    void answer() {
        std::fputs("\n", stdout);
        std::fflush(stdout);
    }
    void said() {
        m_lines.removeFirst();
        answer();
        if (!m_lines.isEmpty())
            m_engine->say(m_lines.front());
    }
    void forget() {
        m_engine->stop();
        for (; !m_lines.isEmpty(); m_lines.removeFirst())
            answer();
    }

    QStringList m_lines; ///< the first is being said
    std::unique_ptr<voice::Engine> m_engine;
};

} // namespace

int main(int argc, char** argv) {
    base::ignoreDesksLanguage();
    QCoreApplication application(argc, argv);
    Speaker speaker;
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
