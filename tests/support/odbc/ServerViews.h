#pragma once

#include "server/engine/EmbeddedProvider.h"

#include <optional>

namespace tests {

/// The server that comes along has no INFORMATION_SCHEMA; these are the views of it that the program reads.
/// Nothing when the text asks for none of them.
std::optional<ado::Result> catalogueRows(engine::EmbeddedProvider& provider, const QString& text);

} // namespace tests
