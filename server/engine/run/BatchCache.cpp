#include "server/engine/run/BatchCache.h"

#include "server/engine/parser/Parser.h"

namespace engine {

std::shared_ptr<Module> BatchCache::parsed(const std::string& text, bool withParameters) const {
    auto module = std::make_shared<Module>();
    module->database = m_session.database;
    module->batch = Parser::batch(text, withParameters);
    module->source = text;
    module->queries.resize(std::size_t(module->batch.statementCount));
    return module;
}

std::shared_ptr<Module> BatchCache::batch(std::string_view text) {
    constexpr std::size_t mostBatches = 600;
    constexpr std::size_t longestKept = 16'000;
    m_key.read(text);
    m_cacheKey.assign(m_session.database);
    m_cacheKey += '\0';
    m_cacheKey += m_key.key();
    const auto found = m_batches.find(m_cacheKey);
    if (found != m_batches.end() && found->second)
        return found->second;
    if (m_batches.size() > mostBatches)
        m_batches.clear();
    std::shared_ptr<Module> module;
    if (found == m_batches.end() && !m_key.isWhole()) {
        try {
            module = parsed(m_key.key(), true);
        } catch (const ScriptError&) {
            // a value stands where only a literal may: the text is read again as it is, which also finds the
            // place of an error in the client's own text
        }
    }
    const bool keep = text.size() <= longestKept;
    if (!module) {
        if (!m_key.isWhole() && keep)
            m_batches[m_cacheKey] = nullptr;
        m_key.read({});
        const std::string whole(text);
        const std::string wholeKey = m_session.database + '\0' + whole;
        const auto kept = m_batches.find(wholeKey);
        if (kept != m_batches.end() && kept->second)
            return kept->second;
        module = parsed(whole, false);
        m_cacheKey = wholeKey;
    }
    if (keep)
        m_batches[m_cacheKey] = module;
    return module;
}

const std::vector<const Cell*>& BatchCache::values() {
    m_values.clear();
    for (int i = 0; i < m_key.count(); ++i)
        m_values.push_back(&m_key.value(i));
    return m_values;
}

} // namespace engine
