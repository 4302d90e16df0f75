#include "platform/agent/Character.h"

#include "platform/controls/screen/Connect.h"

namespace agent {

namespace {

/// A sentence stays as long as it takes to read, and until it has been said; a voice that hangs holds nobody
/// up.
constexpr int readingTime = 1200;    // milliseconds, and
constexpr int readingTimeOfOne = 35; // a letter
constexpr int voiceLook = 200;
constexpr int mostVoiceLooks = 40;

} // namespace

Character::Character(Figure figure, std::unique_ptr<Voice> voice, QObject* parent)
    : QObject(parent)
    , m_figure(std::move(figure))
    , m_voice(std::move(voice))
    , m_frames(this)
    , m_sentence(this) {
    m_frames.setSingleShot(true);
    m_sentence.setSingleShot(true);
    m_frames.setObjectName("tmrFrames");
    m_sentence.setObjectName("tmrSentence");
    controls::on(&m_frames, &QTimer::timeout, this, [this] { nextFrame(); });
    controls::on(&m_sentence, &QTimer::timeout, this, [this] { sentenceRead(); });
}

Character::~Character() = default;

void Character::MoveTo(QPoint point) {
    ask({.kind = Request::Kind::Move, .point = point});
}

void Character::Show() {
    ask({.kind = Request::Kind::Show});
}

void Character::Speak(const QString& sentence) {
    ask({.kind = Request::Kind::Speak, .sentence = sentence});
}

void Character::Hide() {
    ask({.kind = Request::Kind::Hide});
}

void Character::ask(Request request) {
    if (m_isSilenced)
        return;
    m_requests.push_back(std::move(request));
    if (m_requests.size() == 1)
        begin();
}

Balloon& Character::made() {
    if (!m_balloon) {
        m_balloon = std::make_unique<Balloon>(m_figure);
        m_balloon->setPlace(m_place);
        controls::on(m_balloon.get(), &Balloon::Click, this, [this] { Q_EMIT Click(); });
        controls::on(m_balloon.get(), &Balloon::Quiet, this, [this] {
            setSilenced(true);
            Q_EMIT Silenced();
        });
    }
    return *m_balloon;
}

void Character::begin() {
    const Request& request = m_requests.front();
    switch (request.kind) {
    case Request::Kind::Move:
        m_place = request.point;
        if (m_balloon)
            m_balloon->setPlace(m_place);
        return done();
    case Request::Kind::Show:
        if (isVisible())
            return done();
        play(QStringLiteral("show"), false);
        return made().show();
    case Request::Kind::Speak:
        return beginSentence(request.sentence);
    case Request::Kind::Hide:
        if (!isVisible())
            return done();
        return play(QStringLiteral("hide"), false);
    }
}

void Character::done() {
    if (m_requests.empty())
        return;
    m_requests.pop_front();
    if (!m_requests.empty())
        begin();
    else if (isVisible())
        play(QStringLiteral("rest"), true);
}

void Character::play(const QString& animation, bool again) {
    m_animation = &m_figure.animations.at(animation);
    m_frame = 0;
    m_playsAgain = again;
    made().setFrame(&m_animation->front());
    m_frames.start(m_animation->front().milliseconds);
}

void Character::nextFrame() {
    if (++m_frame == m_animation->size()) {
        if (!m_playsAgain) {
            if (m_requests.front().kind == Request::Kind::Hide)
                made().hide();
            return done();
        }
        m_frame = 0;
    }
    const Frame& frame = (*m_animation)[m_frame];
    made().setFrame(&frame);
    m_frames.start(frame.milliseconds);
}

void Character::beginSentence(const QString& sentence) {
    play(QStringLiteral("speak"), true);
    made().setSentence(sentence);
    if (m_voice)
        m_voice->say(sentence);
    m_heldFor = 0;
    m_sentence.start(readingTime + readingTimeOfOne * int(sentence.size()));
}

void Character::sentenceRead() {
    if (m_voice && m_voice->isSpeaking() && ++m_heldFor < mostVoiceLooks)
        return m_sentence.start(voiceLook);
    made().setSentence({});
    done();
}

void Character::Stop() {
    m_requests.clear();
    m_frames.stop();
    m_sentence.stop();
    if (m_voice)
        m_voice->stop();
    if (!m_balloon)
        return;
    m_balloon->setSentence({});
    if (isVisible())
        play(QStringLiteral("rest"), true);
}

void Character::setSilenced(bool silenced) {
    m_isSilenced = silenced;
    if (!silenced)
        return;
    Stop();
    m_frames.stop();
    if (m_balloon)
        m_balloon->hide();
}

} // namespace agent
