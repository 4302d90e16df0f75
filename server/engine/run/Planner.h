#pragma once

#include "server/engine/catalogue/Catalogue.h"

namespace engine {

/// Finds out what a run of a module may do, the procedures that it calls included.
class Planner {
  public:
    explicit Planner(Catalogue& catalogue) : m_catalogue(catalogue) {}

    /// Kept with the module once it is known.
    Plan plan(Module& module);

  private:
    Plan planOf(Module& module, int depth);
    Plan planOf(const std::vector<StmtPtr>& statements, const Module& module, int depth, int& queries);

    Catalogue& m_catalogue;
};

} // namespace engine
