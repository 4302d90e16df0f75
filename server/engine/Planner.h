#pragma once

#include "server/engine/Catalogue.h"

namespace engine {

/// What a run does to the file: one read, several reads, or writes.
enum class Plan { Single, Reads, Writes };

/// Finds out what a run of a module may do, the procedures that it calls included.
class Planner {
  public:
    explicit Planner(Catalogue& catalogue) : m_catalogue(catalogue) {}

    /// Kept with the module once it is known.
    Plan plan(Module& module);

  private:
    int planOf(Module& module, int depth);
    int planOf(const std::vector<StmtPtr>& statements, const Module& module, int depth, int& queries);

    Catalogue& m_catalogue;
};

} // namespace engine
