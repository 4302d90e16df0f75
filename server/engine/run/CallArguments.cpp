#include "server/engine/run/CallArguments.h"

#include "server/engine/parser/LiteralValue.h"
#include "server/engine/values/Ascii.h"
#include "server/engine/values/Convert.h"

namespace engine {

void CallArguments::pass(const Call& call, const Module& procedure, std::vector<Cell>& slots) const {
    const auto& parameters = procedure.definition->parameters;
    const auto& variables = procedure.script().variables;
    if (call.arguments.size() > parameters.size())
        throw tooManyArguments(procedure.name);
    std::vector<bool> given(parameters.size());
    for (std::size_t i = 0; i < call.arguments.size(); ++i) {
        const CallArgument& argument = call.arguments[i];
        std::size_t place = i;
        if (!argument.name.empty()) {
            for (place = 0; place < parameters.size(); ++place) {
                if (sameWord(variables[std::size_t(parameters[place].slot)].name, argument.name))
                    break;
            }
            if (place == parameters.size())
                throw unknownArgument(procedure.name, argument.name);
        }
        if (!argument.value)
            continue; // DEFAULT
        const auto slot = std::size_t(parameters[place].slot);
        given[place] = true;
        passOne(argument, variables[slot].type, slots[slot]);
    }
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        if (given[i])
            continue;
        const auto slot = std::size_t(parameters[i].slot);
        if (!parameters[i].hasDefault)
            throw missingArgument(procedure.name, variables[slot].name);
        if (parameters[i].defaultValue)
            readLiteralAs(*parameters[i].defaultValue, variables[slot].type, true, slots[slot]);
    }
}

void CallArguments::passOne(const CallArgument& argument, const SqlType& type, Cell& cell) const {
    const Expr& value = *argument.value;
    if (value.kind == ExprKind::Variable) {
        const auto slot = std::size_t(value.slot);
        cell = m_callerSlots[slot];
        convert(cell, m_caller.script().variables[slot].type, type, ConversionPlace::Argument);
    } else if (value.kind == ExprKind::Global) {
        if (value.text == "@@SPID")
            cell.setInteger(m_session.processId);
        else if (value.text == "@@ROWCOUNT")
            cell.setInteger(m_session.rowCount);
        else if (value.text == "@@IDENTITY")
            cell.setInteger(m_session.identity);
        else
            throw notSupported(value.text, value.position);
        convert(cell, {TypeKind::Int}, type, ConversionPlace::Argument);
    } else {
        readLiteralAs(value, type, true, cell);
    }
}

} // namespace engine
