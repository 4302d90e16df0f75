#pragma once

#include "platform/controls/ErrorBoundary.h"

#include <QObject>

#include <utility>

namespace controls {

/// Connects a handler under the error boundary: on(cmdSave, &QPushButton::clicked, this, [this] {
/// cmdSave_Click(); }). The one way in which screens connect. The handler may take the signal's leading
/// arguments.
template <typename Sender, typename Signal, typename Context, typename Handler>
QMetaObject::Connection on(Sender* sender, Signal signal, Context* context, Handler handler) {
    return QObject::connect(sender, signal, context,
                            [handler = std::move(handler)](auto&&... arguments) mutable {
                                ErrorBoundary::guard([&] {
                                    if constexpr (requires { handler(arguments...); })
                                        handler(arguments...);
                                    else
                                        handler();
                                });
                            });
}

} // namespace controls
