#pragma once

#include "platform/base/Error.h"

namespace ado {

/// What every provider raises alike when transactions are opened and ended out of turn.
inline base::RunTimeError transactionIsOpen() {
    return base::RunTimeError(-2147168237,
                              QStringLiteral("Only one transaction can be active on this session."),
                              QStringLiteral("25000"), {});
}
inline base::RunTimeError nothingToCommit() {
    return base::RunTimeError(
        3902, QStringLiteral("The COMMIT TRANSACTION request has no corresponding BEGIN TRANSACTION."),
        QStringLiteral("25000"), {});
}
inline base::RunTimeError nothingToRollBack() {
    return base::RunTimeError(
        3903, QStringLiteral("The ROLLBACK TRANSACTION request has no corresponding BEGIN TRANSACTION."),
        QStringLiteral("25000"), {});
}
/// A transaction that the server took back as a whole, behind an error in it.
inline base::RunTimeError rolledBackByServer() {
    return base::RunTimeError(
        -2147168242, QStringLiteral("The server has rolled the transaction back: nothing of it was kept."),
        QStringLiteral("25000"), {});
}

} // namespace ado
