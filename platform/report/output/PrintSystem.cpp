#include "platform/report/output/PrintSystem.h"

#include "platform/base/Installed.h"
#include "platform/base/LateLibrary.h"
#include "platform/report/definition/ReportError.h"

namespace report {

const PrintSystem& loadPrintSystem(const QString& module) {
    base::LateLibrary library(errorFile, QStringLiteral("Printed pages"), module, -1);
    decltype(&scintraPrintSystem) system = nullptr;
    library.resolve("scintraPrintSystem", system);
    return *system();
}

const PrintSystem& printSystem() {
#ifdef SCINTRA_PRINT_LINKED // it is a part of the program
    return *scintraPrintSystem();
#else
    static const PrintSystem& system = loadPrintSystem(base::ownModule(QStringLiteral("scintra-print")));
    return system;
#endif
}

} // namespace report
