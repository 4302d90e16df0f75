#pragma once

#include "platform/base/Value.h"

#include <QString>

namespace ado {

/// A value as a server reads it in a text, whatever its language: quotes doubled, moments in ISO form, NULL.
QString literal(const base::Value& value);
/// A name in brackets.
QString bracketed(const QString& name);

} // namespace ado
