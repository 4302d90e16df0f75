#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace tests::tds {

/// The text in code page 1252; nothing when it holds a character that the page has not.
std::optional<QByteArray> toCodePage(const QString& text);

} // namespace tests::tds
