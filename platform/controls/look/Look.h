#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

class QApplication;
class QPushButton;
class QWidget;

namespace controls::look {

/// The colours, named once; the style sheet takes them from here.
inline const QColor ink(0x1F, 0x2A, 0x33);
inline const QColor muted(0x5C, 0x6B, 0x77);
inline const QColor page(0xF3, 0xF5, 0xF7);
inline const QColor card(0xFF, 0xFF, 0xFF);
inline const QColor line(0xD9, 0xE0, 0xE6);
inline const QColor accent(0x0E, 0x7C, 0x86);
inline const QColor accentDark(0x0B, 0x4F, 0x5C);
inline const QColor warn(0x9A, 0x4B, 0x00);
inline const QColor danger(0xB3, 0x26, 0x1E);
inline const QColor ok(0x1E, 0x7B, 0x34);
/// Shades of the above: chosen, pressed and hovered things, headers of grids, frames of fields.
inline const QColor accentSoft(0xE1, 0xF0, 0xF1);
inline const QColor accentPressed(0xCB, 0xE4, 0xE6);
inline const QColor hover(0xF0, 0xF7, 0xF8);
inline const QColor header(0xE7, 0xEE, 0xF2);
inline const QColor stripe(0xF9, 0xFB, 0xFC);
inline const QColor fieldLine(0xB4, 0xC0, 0xCA);
inline const QColor readOnly(0xF3, 0xF5, 0xF7);
/// Behind the one symbol that is marked.
inline const QColor marked(0x00, 0x00, 0x80);
/// Of the field that holds the number asked for, while it has the focus.
inline const QColor inquiry(0x00, 0xFF, 0xFF);

/// Fusion, the font, the palette and the one style sheet. Call once, after the application is made.
void apply(QApplication& application);

/// An icon of the house's own line family by name ("request", "results", "folder", "reports", "leave", ...),
/// drawn in `color` at any scale; an unknown name gives an empty icon.
QIcon icon(const QString& name, const QColor& color = accent);

/// Logical pixels of a measure that was drawn for the 10 pt font: it grows with the font.
int scaled(int pixels);

/// What a label says beyond its text: "total" (the sums at the foot), "help", "title", "warn", "danger",
/// "ok", "chip". A form can set the same as a dynamic property named "kind".
void setKind(QWidget* widget, const QString& kind);

/// The one primary button of a screen.
void setPrimary(QPushButton* button);

} // namespace controls::look
