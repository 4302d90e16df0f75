#pragma once

#include <QString>

namespace menu {

/// "Happy BirthDay!!!" when the workstation's date is the employee's birthday, else "". Reads the birth date
/// from the server.
QString birthdayGreeting(const QString& employeeCode);

} // namespace menu
