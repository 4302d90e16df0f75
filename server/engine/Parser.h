#pragma once

#include "server/engine/DefinitionParser.h"

namespace engine {

/// Reads a whole text: a batch, or the source of a procedure, function or view.
class Parser : public DefinitionParser {
  public:
    using DefinitionParser::DefinitionParser;

    /// A text that a client sent. A word that begins no statement is, at the start, the name of a procedure.
    /// Raises ScriptError.
    static Script batch(std::string_view text, bool withParameters = false);
    /// The source of one CREATE PROCEDURE, FUNCTION or VIEW.
    static std::unique_ptr<ModuleDefinition> module(std::string_view source);
    /// A single value, as in a column's default.
    static ExprPtr value(std::string_view text);

  protected:
    void moduleBody(ModuleDefinition& module) override;

  private:
    Script script();
    void statementInto(std::vector<StmtPtr>& statements);
    StmtPtr statement();
    StmtPtr blockStatement();
    std::vector<StmtPtr> branch();
    StmtPtr ifStatement();
    StmtPtr whileStatement();
    StmtPtr returnStatement();
    void declareStatement(std::vector<StmtPtr>& statements);
    StmtPtr setStatement();
    StmtPtr setOption();
    StmtPtr selectStatement();
    StmtPtr insertStatement();
    void insertValues(Write& write);
    StmtPtr updateStatement();
    Assignment assignment();
    StmtPtr deleteStatement();
    StmtPtr executeStatement(bool wordRead);
    CallArgument callArgument();
    StmtPtr throwStatement();
    StmtPtr raiseErrorStatement();
    StmtPtr make(StmtKind kind, Position at);
    StmtPtr numbered(StmtPtr statement);

    int m_statementCount = 0;
    int m_loops = 0;
    bool m_inFunction = false;
};

} // namespace engine
