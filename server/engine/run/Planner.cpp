#include "server/engine/run/Planner.h"

#include <algorithm>

namespace engine {

Plan Planner::plan(Module& module) {
    return planOf(module, 0);
}

Plan Planner::planOf(Module& module, int depth) {
    constexpr int deepest = 40;
    if (module.plan)
        return *module.plan;
    if (depth > deepest)
        return Plan::Single;
    int queries = 0;
    Plan plan = planOf(module.script().statements, module, depth, queries);
    if (plan == Plan::Single && queries > 1)
        plan = Plan::Reads;
    if (depth == 0 || plan == Plan::Writes)
        module.plan = plan;
    return plan;
}

Plan Planner::planOf(const std::vector<StmtPtr>& statements, const Module& module, int depth, int& queries) {
    Plan plan = Plan::Single;
    for (const StmtPtr& statement : statements) {
        switch (statement->kind) {
        case StmtKind::Block:
        case StmtKind::If:
        case StmtKind::While:
            queries += statement->kind == StmtKind::Block ? 0 : 1;
            plan = std::max(plan, planOf(statement->body, module, depth, queries));
            plan = std::max(plan, planOf(statement->otherwise, module, depth, queries));
            break;
        case StmtKind::Select:
        case StmtKind::Set:
        case StmtKind::Return:
            ++queries;
            break;
        case StmtKind::Execute: {
            const ObjectName& name = statement->call->name;
            const std::string& database =
                name.database.empty() ? module.database : m_catalogue.database(name.database);
            if (const std::shared_ptr<Module> called = m_catalogue.module(database, name.name))
                plan = std::max(plan, planOf(*called, depth + 1));
            break;
        }
        case StmtKind::Insert:
        case StmtKind::Update:
        case StmtKind::Delete:
        case StmtKind::CreateTable:
        case StmtKind::AddColumns:
        case StmtKind::CreateIndex:
        case StmtKind::CreateModule:
        case StmtKind::Drop:
            return Plan::Writes;
        default:
            break;
        }
    }
    return plan;
}

} // namespace engine
