#include "platform/controls/look/Look.h"

#include "platform/controls/look/HouseStyle.h"
#include "platform/controls/look/OwnFonts.h"

#include <QApplication>
#include <QFile>
#include <QFontInfo>
#include <QFontMetrics>
#include <QPalette>
#include <QPushButton>
#include <QStyle>
#include <QtPlugin>

#include <array>

// Resources and plug-ins of a static library come in by name, outside of any namespace.
Q_IMPORT_PLUGIN(LineIconPlugin)
Q_IMPORT_PLUGIN(LineImagePlugin)
static void initControlsResources() {
    Q_INIT_RESOURCE(controls);
}

namespace controls::look {

namespace {

/// Line height of the 10 pt font at 96 dots an inch, for which all measures were drawn.
constexpr double drawnFor = 16.0;

struct ColorToken {
    const char* name;
    const QColor* color;
};

QPalette palette() {
    QPalette colors;
    colors.setColor(QPalette::Window, page);
    colors.setColor(QPalette::WindowText, ink);
    colors.setColor(QPalette::Base, card);
    colors.setColor(QPalette::AlternateBase, stripe);
    colors.setColor(QPalette::Text, ink);
    colors.setColor(QPalette::Button, card);
    colors.setColor(QPalette::ButtonText, ink);
    colors.setColor(QPalette::BrightText, card);
    colors.setColor(QPalette::ToolTipBase, ink);
    colors.setColor(QPalette::ToolTipText, card);
    QColor placeholder = ink;
    placeholder.setAlpha(128);
    colors.setColor(QPalette::PlaceholderText, placeholder);
    colors.setColor(QPalette::Highlight, accent);
    colors.setColor(QPalette::HighlightedText, card);
    colors.setColor(QPalette::Link, accent);
    colors.setColor(QPalette::Light, card);
    colors.setColor(QPalette::Midlight, page);
    colors.setColor(QPalette::Mid, line);
    colors.setColor(QPalette::Dark, fieldLine);
    return colors; // the sheet mutes what is out of use and is to look so
}

/// What stands behind "@" in the sheet: the name of a color, or "12px", a measure that grows with the font.
/// ("1px" without "@" is a hair line that does not.)
QString valueOf(QStringView token) {
    static const std::array tokens{
        ColorToken{"ink", &ink},
        ColorToken{"muted", &muted},
        ColorToken{"page", &page},
        ColorToken{"card", &card},
        ColorToken{"line", &line},
        ColorToken{"accent", &accent},
        ColorToken{"accentDark", &accentDark},
        ColorToken{"warn", &warn},
        ColorToken{"danger", &danger},
        ColorToken{"ok", &ok},
        ColorToken{"accentSoft", &accentSoft},
        ColorToken{"accentPressed", &accentPressed},
        ColorToken{"hover", &hover},
        ColorToken{"header", &header},
        ColorToken{"stripe", &stripe},
        ColorToken{"fieldLine", &fieldLine},
        ColorToken{"readOnly", &readOnly},
        ColorToken{"marked", &marked},
        ColorToken{"inquiry", &inquiry},
    };
    for (const ColorToken& color : tokens)
        if (token == QLatin1StringView(color.name))
            return color.color->name();
    const int pixels = token.endsWith(QLatin1StringView("px")) ? token.chopped(2).toInt() : 0;
    if (pixels > 0)
        return QString::number(scaled(pixels)) + QStringLiteral("px");
    return QString(u'@').append(token);
}

/// Read in one go by hand: a pattern for each color took longer than all the rest of the look.
QString styleSheet() {
    QFile file(QStringLiteral(":/scintra/look.qss"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QString drawn = QString::fromUtf8(file.readAll());
    QString sheet;
    sheet.reserve(drawn.size());
    for (qsizetype at = 0; at < drawn.size();) {
        const qsizetype found = drawn.indexOf(u'@', at);
        const qsizetype mark = found < 0 ? drawn.size() : found;
        sheet += QStringView(drawn).sliced(at, mark - at);
        at = mark + 1;
        while (at < drawn.size() && drawn[at].isLetterOrNumber())
            ++at;
        if (found >= 0)
            sheet += valueOf(QStringView(drawn).sliced(mark + 1, at - mark - 1));
    }
    return sheet;
}

/// The first that is installed. Of one family: a font with several makes the tool kit ask the system before
/// the first letter which fonts would have what they lack.
QFont houseFont() {
    for (const QString& family : {QStringLiteral("Inter"), QStringLiteral("Noto Sans")}) {
        const QFont font(family, 10);
        if (QFontInfo(font).family() == family)
            return font;
    }
    return QFont(QStringLiteral("DejaVu Sans"), 10);
}

void repolish(QWidget* widget) {
    widget->style()->unpolish(widget);
    widget->style()->polish(widget);
    widget->update();
}

} // namespace

void apply(QApplication& application) {
    initControlsResources();
    takeOwnFonts();
    application.setStyle(new HouseStyle);
    QApplication::setFont(houseFont());
    QApplication::setPalette(palette());
    application.setStyleSheet(styleSheet());
    // With a sheet the tool kit gives menus and bars the desk's fonts again.
    QApplication::setFont(QApplication::font());
    QApplication::setWindowIcon(icon(QStringLiteral("app")));
}

int scaled(int pixels) {
    const QFontMetrics metrics(QApplication::font());
    return qMax(1, qRound(pixels * qMax(1.0, metrics.height() / drawnFor)));
}

void setKind(QWidget* widget, const QString& kind) {
    if (widget->property("kind") == QVariant(kind))
        return; // to polish a widget anew costs more than all else here
    widget->setProperty("kind", kind);
    repolish(widget);
}

void setPrimary(QPushButton* button) {
    button->setProperty("primary", true);
    repolish(button);
}

} // namespace controls::look
