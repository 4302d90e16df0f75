#pragma once

#include <QString>

#include <functional>

namespace tests {

/// What the body gives, run in a process of its own by a user whom permissions bind: "nobody" where the tests
/// run as root. Run-time errors come as "number: words".
QString asOrdinaryUser(const std::function<QString()>& body);
/// Gives a file or folder to that user.
void giveToOrdinaryUser(const QString& path);

} // namespace tests
