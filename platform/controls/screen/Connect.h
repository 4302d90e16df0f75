#pragma once

#include "platform/controls/screen/ErrorBoundary.h"

#include <QObject>

#include <type_traits>
#include <utility>

namespace controls {

/// The handler, with the signal's arguments if it takes them.
template <typename Handler, typename... Arguments>
void callGuarded(Handler& handler, Arguments&... arguments) {
    if constexpr (std::is_invocable_v<Handler&, Arguments&...>)
        ErrorBoundary::guard([&] { handler(arguments...); });
    else
        ErrorBoundary::guard([&] { handler(); });
}

/// Connects a handler under the error boundary: on(cmdSave, &QPushButton::clicked, this, [this] {
/// cmdSave_Click(); }). The one way in which screens connect. The handler takes all of the signal's arguments
/// or none.
template <typename Sender, typename Signal, typename Context, typename Handler>
QMetaObject::Connection on(Sender* sender, Signal signal, Context* context, Handler handler) {
    return QObject::connect(
        sender, signal, context,
        [handler = std::move(handler)](auto&&... arguments) mutable { callGuarded(handler, arguments...); });
}

} // namespace controls
