#include "platform/base/DesksLanguage.h"

#include <QCoreApplication>

#include <cctype>
#include <clocale>

namespace base {
namespace {

void setPlainLanguage() {
    std::setlocale(LC_NUMERIC, "C");
    // Turkish; elsewhere the desk's keyboard goes by what it says.
    if (std::tolower('I') != 'i' || std::toupper('i') != 'I')
        std::setlocale(LC_CTYPE, "C.UTF-8");
}

} // namespace

void ignoreDesksLanguage() {
    setPlainLanguage();
    qAddPreRoutine(setPlainLanguage);
}

} // namespace base
