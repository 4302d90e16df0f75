#pragma once

#include "server/engine/parser/DefinitionParser.h"

namespace engine {

/// INSERT, UPDATE, DELETE and EXECUTE.
class WriteParser : public DefinitionParser {
  public:
    using DefinitionParser::DefinitionParser;

  protected:
    StmtPtr insertStatement();
    StmtPtr updateStatement();
    StmtPtr deleteStatement();
    /// `bare`: a call without EXEC.
    StmtPtr executeStatement(bool bare);
    StmtPtr make(StmtKind kind, SourcePosition at);
    StmtPtr numbered(StmtPtr statement);

    int m_statementCount = 0;

  private:
    void insertValues(Write& write);
    Assignment assignment();
    CallArgument callArgument();
};

} // namespace engine
