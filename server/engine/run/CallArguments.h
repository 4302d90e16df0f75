#pragma once

#include "server/engine/catalogue/Module.h"
#include "server/engine/run/SessionState.h"

namespace engine {

/// What a call gives to a procedure: by place and by name, as the declared types, defaults for the rest.
class CallArguments {
  public:
    CallArguments(const Module& caller, const std::vector<Cell>& callerSlots, const SessionState& session)
        : m_caller(caller), m_callerSlots(callerSlots), m_session(session) {}

    /// Fills the procedure's parameters. Raises 201, 8114, 8144 or 8145.
    void pass(const Call& call, const Module& procedure, std::vector<Cell>& slots) const;

  private:
    void passOne(const CallArgument& argument, const SqlType& type, Cell& cell) const;

    const Module& m_caller;
    const std::vector<Cell>& m_callerSlots;
    const SessionState& m_session;
};

} // namespace engine
