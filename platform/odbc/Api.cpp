#include "platform/odbc/Api.h"

#include "platform/base/LateLibrary.h"

namespace odbc {

Api::Api(const QString& name, int version) {
    constexpr int notLoaded = 48;
    base::LateLibrary library(notLoaded, QStringLiteral("Data sources"), name, version);
#define SCINTRA_RESOLVE(function) library.resolve(#function, function);
    SCINTRA_ODBC_FUNCTIONS(SCINTRA_RESOLVE)
#undef SCINTRA_RESOLVE
}

const Api& api() {
#ifdef _WIN32
    static const Api library(QStringLiteral("odbc32"), -1);
#else
    static const Api library(QStringLiteral("odbc"), 2);
#endif
    return library;
}

} // namespace odbc
