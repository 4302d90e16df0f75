#pragma once

#include "platform/base/Error.h"
#include "platform/odbc/Api.h"

namespace odbc {

/// Numbers of errors that a driver finds by itself: those that users of such a program know.
namespace errors {
inline constexpr int unspecified = -2147467259;
inline constexpr int timeOut = -2147217871;
inline constexpr int loginFailed = 18456;
inline constexpr int truncated = 8152;
/// FreeTDS: the server answers, but the log-on came to nothing, for the encryption or the version.
inline constexpr int notAgreed = 20002;
inline constexpr int noTransaction = -2147168242;
} // namespace errors

/// What the driver last said of a handle that failed: the server's own number, SQLSTATE and words (without
/// the "[vendor][driver]" in front), and the statement it was about. A warning among the records is passed
/// over; a driver's own error, which has no number, gets one of odbc::errors by its SQLSTATE.
base::RunTimeError errorOf(SQLSMALLINT kind, SQLHANDLE handle, const QString& statement = {});

/// Class 08: the line to the server is not there (any more).
bool isConnectionError(const base::RunTimeError& error);

} // namespace odbc
