#include "results/ResultPoint.h"

#include "platform/controls/look/HeaderBand.h"
#include "platform/controls/look/Look.h"
#include "results/PatientFrames.h"

#include <QLabel>

namespace results {

using namespace controls;

namespace {

struct PointText {
    ResultPoint point;
    const char* band;
    const char* sentence;
    const char* kind;
};

constexpr PointText pointTexts[] = {
    {ResultPoint::New, "", "", "help"},
    {ResultPoint::Saved, "Saved Result", "Edit unlocks the fields.", "help"},
    {ResultPoint::ToRevoke, "Revoke Result", "Revoke takes this result back at once.", "danger"}};

const PointText& textOf(ResultPoint point) {
    for (const PointText& one : pointTexts) {
        if (one.point == point)
            return one;
    }
    return pointTexts[0];
}

} // namespace

void sayPoint(QWidget& screen, ResultPoint point, const QString& savedDate) {
    auto* band = screen.findChild<HeaderBand*>(QStringLiteral("band"));
    const PointText& text = textOf(point);
    if (point != ResultPoint::New)
        band->setTitle(screen.windowTitle() + QStringLiteral("   ·   ") + QString::fromLatin1(text.band));
    look::setKind(band, point == ResultPoint::ToRevoke ? QStringLiteral("danger") : QString());
    screen.findChild<PatientFrames*>()->showSavedDate(point == ResultPoint::New ? QString() : savedDate);
}

void sayWhatCanBeDone(QWidget& screen, ResultPoint point, bool takesSymbols) {
    screen.findChild<QLabel*>(QStringLiteral("lblSymbols"))->setVisible(takesSymbols);
    const PointText& text = textOf(point);
    auto* sentence = screen.findChild<QLabel*>(QStringLiteral("lblPoint"));
    sentence->setText(QString::fromLatin1(text.sentence));
    look::setKind(sentence, QString::fromLatin1(text.kind));
    sentence->setVisible(!takesSymbols && *text.sentence);
}

} // namespace results
