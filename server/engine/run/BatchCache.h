#pragma once

#include "server/engine/catalogue/Module.h"
#include "server/engine/parser/StatementKey.h"
#include "server/engine/run/SessionState.h"

#include <string_view>
#include <unordered_map>

namespace engine {

/// The batches that clients sent, read and prepared once for all texts that differ in their values only.
class BatchCache {
  public:
    explicit BatchCache(const SessionState& session) : m_session(session) {}

    /// The batch of a text in the session's database; values() are those of this text. Raises ScriptError.
    std::shared_ptr<Module> batch(std::string_view text);
    /// Valid until the next batch().
    const std::vector<const Cell*>& values();
    void forget() { m_batches.clear(); }

  private:
    std::shared_ptr<Module> parsed(const std::string& text, bool withParameters) const;

    const SessionState& m_session;
    StatementKey m_key;
    std::string m_cacheKey;
    std::vector<const Cell*> m_values;
    // a null batch stands for "its values cannot be taken out"
    std::unordered_map<std::string, std::shared_ptr<Module>> m_batches;
};

} // namespace engine
