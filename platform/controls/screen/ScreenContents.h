#pragma once

#include <QList>
#include <QString>

class QWidget;

namespace controls {

/// "name: text" of every named field and list below `screen` that holds something, line by line; password
/// fields are left out.
QString contentsAsText(const QWidget& screen);
/// What a user may have typed, for taking it along: "Caption: text" of every field that takes typing and
/// holds something, in the order of Tab, and the rows of entry grids. The caption is the field's label, else
/// its accessible name, else its name. Password fields are left out.
QString typedAsText(const QWidget& screen);

struct HeldText {
    QString caption;
    QString text;
};
/// The same, field by field; of entry grids cell by cell, under "Amount in line 2".
QList<HeldText> heldTexts(const QWidget& screen);

} // namespace controls
