#include "platform/agent/Character.h"

#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace {

/// Says what it is given when a test says so.
class TestVoice : public agent::Voice {
  public:
    explicit TestVoice(QStringList& said) : m_said(said) {}
    void say(const QString& sentence) override {
        m_said += sentence;
        speaking = true;
    }
    void stop() override {
        m_said += "stop";
        speaking = false;
    }
    bool isSpeaking() const override { return speaking; }
    bool speaking = false;

  private:
    QStringList& m_said;
};

agent::Figure figure() {
    return agent::readFigure("scintra-character 1\nname small\nsize 100 80\npart box\n"
                             "polygon #FF0000 0,0 100,0 100,80 0,80\n"
                             "animation show\nframe 20 box\nframe 20 box\nanimation rest\nframe 500 box\n"
                             "animation speak\nframe 50 box\nanimation hide\nframe 20 box\n");
}

class CharacterTest : public testing::Test {
  protected:
    CharacterTest() {
        auto made = std::make_unique<TestVoice>(said);
        voice = made.get();
        character = std::make_unique<agent::Character>(figure(), std::move(made));
    }
    QTimer& timer(const char* name) { return *character->findChild<QTimer*>(name); }
    void fire(const char* name) {
        ASSERT_TRUE(timer(name).isActive()) << name;
        timer(name).stop();
        QMetaObject::invokeMethod(&timer(name), "timeout", Qt::DirectConnection);
    }
    QString sentence() const { return character->balloon() ? character->balloon()->sentence() : QString(); }

    QStringList said;
    TestVoice* voice = nullptr;
    std::unique_ptr<agent::Character> character;
};

TEST_F(CharacterTest, DoesOneThingAfterTheOther) {
    character->MoveTo({100, 50});
    character->Show();
    character->Speak("First.");
    character->Hide();
    EXPECT_TRUE(character->isVisible());
    EXPECT_EQ(character->balloon()->place(), QPoint(100, 50));
    EXPECT_EQ(sentence(), "") << "it is still coming";
    fire("tmrFrames");
    fire("tmrFrames");
    EXPECT_EQ(sentence(), "First.");
    EXPECT_EQ(said, QStringList{"First."});
    voice->speaking = false;
    fire("tmrSentence");
    EXPECT_EQ(sentence(), "");
    EXPECT_TRUE(character->isVisible()) << "it is still going";
    fire("tmrFrames");
    EXPECT_FALSE(character->isVisible());
    EXPECT_EQ(character->waiting(), 0);
    EXPECT_FALSE(timer("tmrFrames").isActive()) << "nobody is drawn who is not there";
}

TEST_F(CharacterTest, ASentenceStaysUntilItIsSaid) {
    character->Speak("Long.");
    fire("tmrSentence");
    fire("tmrSentence");
    EXPECT_EQ(sentence(), "Long.");
    voice->speaking = false;
    fire("tmrSentence");
    EXPECT_EQ(sentence(), "");
}

TEST_F(CharacterTest, AVoiceThatHangsHoldsNobodyUp) {
    character->Speak("Long.");
    int looks = 0;
    for (; sentence() == "Long." && looks < 1000; ++looks)
        fire("tmrSentence");
    EXPECT_EQ(looks, 40);
}

TEST_F(CharacterTest, SpeaksWithoutAVoice) {
    character = std::make_unique<agent::Character>(figure(), nullptr);
    character->Show();
    character->Speak("Shown.");
    fire("tmrFrames");
    fire("tmrFrames");
    EXPECT_EQ(sentence(), "Shown.");
    fire("tmrSentence");
    EXPECT_EQ(sentence(), "");
}

TEST_F(CharacterTest, StopForgetsWhatWaits) {
    character->Show();
    character->Speak("One.");
    character->Speak("Two.");
    fire("tmrFrames");
    fire("tmrFrames");
    character->Stop();
    EXPECT_EQ(sentence(), "");
    EXPECT_EQ(character->waiting(), 0);
    EXPECT_EQ(said, (QStringList{"One.", "stop"}));
    EXPECT_TRUE(character->isVisible());
    fire("tmrFrames"); // it rests
    EXPECT_EQ(said.size(), 2);
}

TEST_F(CharacterTest, ASilencedOneDoesNothing) {
    character->Show();
    character->setSilenced(true);
    EXPECT_FALSE(character->isVisible());
    character->Show();
    character->Speak("Loud.");
    EXPECT_EQ(character->waiting(), 0);
    EXPECT_FALSE(said.contains("Loud."));
    character->setSilenced(false);
    character->Show();
    EXPECT_TRUE(character->isVisible());
}

TEST_F(CharacterTest, ItsFigureStaysOnTheScreen) {
    const QRect desk = QGuiApplication::primaryScreen()->availableGeometry();
    character->MoveTo({desk.right() + 500, desk.bottom() + 500});
    character->Show();
    const agent::Balloon& balloon = *character->balloon();
    EXPECT_TRUE(desk.contains(balloon.figureArea().translated(balloon.pos())));
    character->Speak("To the left of it.");
    fire("tmrFrames");
    fire("tmrFrames");
    EXPECT_LT(balloon.quietArea().right(), balloon.figureArea().left());
    EXPECT_TRUE(desk.contains(balloon.quietArea().translated(balloon.pos())));
}

TEST_F(CharacterTest, WhatIsNotPaintedLetsTheClickThrough) {
    character->Show();
    EXPECT_TRUE(character->balloon()->painted().contains(character->balloon()->figureArea().center()));
    EXPECT_FALSE(character->balloon()->painted().contains(QPoint(character->balloon()->width() - 5, 5)));
}

// --- the voice's program

class SpeechProgramTest : public testing::Test {
  protected:
    QString program(const QByteArray& script) {
        QFile file(folder.filePath("voice"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\n" + script);
        file.close();
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return file.fileName();
    }
    QTemporaryDir folder;
};

TEST_F(SpeechProgramTest, AnswersWhenASentenceIsSaid) {
    agent::SpeechProgram voice(program("read -r line; [ \"$line\" = 'One line.' ] && echo\n"
                                       "read -r line; [ \"$line\" = 'Two.' ] && echo\n"
                                       "exec tail -f /dev/null\n"));
    voice.say("One\nline.");
    voice.say("Two.");
    EXPECT_TRUE(voice.isSpeaking());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !voice.isSpeaking(); }));
    EXPECT_FALSE(voice.isSilent()) << "it said them, and waits for more";
}

TEST_F(SpeechProgramTest, ThatIsNotThereLeavesSilence) {
    agent::SpeechProgram voice(folder.filePath("nobody"));
    voice.say("One.");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !voice.isSpeaking(); }));
    voice.say("Two.");
    EXPECT_FALSE(voice.isSpeaking());
}

TEST_F(SpeechProgramTest, ThatDiesLeavesSilence) {
    agent::SpeechProgram voice(program("exit 1\n"));
    voice.say("One.");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !voice.isSpeaking(); }));
    voice.say("Two.");
    EXPECT_FALSE(voice.isSpeaking());
}

TEST_F(SpeechProgramTest, ThatHangsIsGivenNoMoreAndHoldsNobody) {
    agent::SpeechProgram voice(program("exec tail -f /dev/null\n"));
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < 10'000; ++i)
        voice.say("One.");
    EXPECT_LT(clock.elapsed(), 2000);
    EXPECT_TRUE(voice.isSpeaking());
}

} // namespace
