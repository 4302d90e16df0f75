#pragma once

#include "server/engine/parser/QueryParser.h"

namespace engine {

/// CREATE, ALTER and DROP.
class DefinitionParser : public QueryParser {
  public:
    using QueryParser::QueryParser;

  protected:
    /// At CREATE or ALTER.
    StmtPtr definition();
    StmtPtr drop();
    /// The statements of a procedure up to the end of the text.
    virtual void moduleBody(ModuleDefinition& module) = 0;

  private:
    StmtPtr tableDefinition(SourcePosition at);
    StmtPtr alterTable(SourcePosition at);
    StmtPtr indexDefinition(SourcePosition at);
    StmtPtr moduleDefinition(SourcePosition at, bool create, bool alter);
    void tableElement(TableDefinition& table);
    void keyConstraint(TableDefinition& table);
    ColumnDefinition columnDefinition();
    bool columnOption(ColumnDefinition& column);
    void procedureParameters(ModuleDefinition& module);
    void parameter(ModuleDefinition& module);
    void functionBody(ModuleDefinition& module);
};

} // namespace engine
