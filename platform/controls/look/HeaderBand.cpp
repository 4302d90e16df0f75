#include "platform/controls/look/HeaderBand.h"

#include "platform/controls/look/Caption.h"
#include "platform/controls/look/Look.h"
#include "platform/controls/look/TextSize.h"

#include <QHBoxLayout>
#include <QHelpEvent>
#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace controls {

namespace {

/// A line that ends in an ellipsis where it has no room, and stands whole in the tool tip then.
class BandLine : public Caption {
  public:
    using Caption::Caption;

  protected:
    void paintEvent(QPaintEvent* event) override {
        if (!isShortened()) {
            QLabel::paintEvent(event);
            return;
        }
        QPainter painter(this);
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
        style()->drawItemText(&painter, contentsRect(), int(Qt::AlignLeft | Qt::AlignVCenter), palette(),
                              isEnabled(), shown, foregroundRole());
    }
    bool event(QEvent* event) override {
        if (event->type() != QEvent::ToolTip || !isShortened())
            return QLabel::event(event);
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
        return true;
    }

  private:
    bool isShortened() const { return textWidth(font(), text()) > contentsRect().width(); }
};

} // namespace

HeaderBand::HeaderBand(QWidget* parent) : QFrame(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_title = new BandLine(this);
    m_title->setObjectName(QStringLiteral("bandTitle"));
    m_title->setTextFormat(Qt::PlainText);
    m_subtitle = new BandLine(this);
    m_subtitle->setObjectName(QStringLiteral("bandSubtitle"));
    m_subtitle->setTextFormat(Qt::PlainText);
    // A long name gives way to the chips; it never widens the window.
    m_subtitle->setMinimumWidth(1);
    m_subtitle->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_title->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_subtitle->hide();
    m_chips = new QWidget(this);
    auto* chips = new QHBoxLayout(m_chips);
    chips->setContentsMargins(0, 0, 0, 0);
    chips->setSpacing(look::scaled(6));

    auto* texts = new QVBoxLayout;
    texts->setSpacing(look::scaled(2));
    texts->addStretch();
    texts->addWidget(m_title);
    texts->addWidget(m_subtitle);
    texts->addStretch();
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(look::scaled(18), look::scaled(9), look::scaled(18), look::scaled(9));
    row->setSpacing(look::scaled(14));
    row->addLayout(texts, 1);
    row->addWidget(m_chips, 0, Qt::AlignVCenter);
    setMinimumHeight(look::scaled(61));
}

QString HeaderBand::title() const {
    return m_title->text();
}

void HeaderBand::setTitle(const QString& title) {
    m_title->setText(title);
}

QString HeaderBand::subtitle() const {
    return m_subtitle->text();
}

void HeaderBand::setSubtitle(const QString& subtitle) {
    m_subtitle->setText(subtitle);
    m_subtitle->setVisible(!subtitle.isEmpty());
}

QStringList HeaderBand::chips() const {
    QStringList texts;
    for (const QLabel* chip : m_chips->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly))
        texts << chip->text();
    return texts;
}

void HeaderBand::setChips(const QStringList& chips) {
    qDeleteAll(m_chips->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly));
    for (const QString& text : chips) {
        if (text.isEmpty())
            continue;
        auto* chip = new QLabel(text, m_chips);
        chip->setTextFormat(Qt::PlainText);
        chip->setProperty("kind", QStringLiteral("chip"));
        m_chips->layout()->addWidget(chip);
    }
}

} // namespace controls
