#pragma once

#include "platform/base/DateTime.h"

#include <QDate>
#include <QString>

namespace tests {

// A test tells of a hospital whose today is Saturday, November 21, 2026. A server with a clock of its own has
// another today, and its demo hospital is moved there. These turn a test's dates into the server's and back;
// where the days are the same they change nothing. In texts they find "2026-11-21", "2026/11/21" and
// "11/21/2026".

/// 08:30 of the server's today, where the tests hold the program's own clock. The server's is held with it
/// until somebody says what that server's now is.
base::DateTime demoMoment();
void setServerNow(base::DateTime now);
/// Whether a moment that the server told or wrote is its now; of a clock of its own, within two minutes.
bool isServerNow(base::DateTime moment);

QString toServerDays(const QString& text);
QDate toServerDays(const QDate& day);
QString toTestDays(const QString& text);

} // namespace tests
