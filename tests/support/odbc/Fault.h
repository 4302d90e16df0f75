#pragma once

namespace tests {

/// What a server of the tests does at one step of its work, for once.
enum class Fault {
    Error,    ///< the statement fails, the transaction stays
    Deadlock, ///< the statement fails and the server has rolled back
    TimeOut,  ///< no answer in time; the line and the transaction stay
    Cut       ///< the line goes, before the statement is done
};

} // namespace tests
