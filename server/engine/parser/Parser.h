#pragma once

#include "server/engine/parser/WriteParser.h"

namespace engine {

/// Reads a whole text: a batch, or the source of a procedure, function or view.
class Parser : public WriteParser {
  public:
    using WriteParser::WriteParser;

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
    StmtPtr wordCall();
    StmtPtr numberedDefinition();
    StmtPtr numberedDrop();
    StmtPtr loopJump();
    StmtPtr printStatement();
    StmtPtr useStatement();
    StmtPtr truncateStatement();
    StmtPtr blockStatement();
    std::vector<StmtPtr> branch();
    StmtPtr ifStatement();
    StmtPtr whileStatement();
    StmtPtr returnStatement();
    void declareStatement(std::vector<StmtPtr>& statements);
    StmtPtr setStatement();
    StmtPtr setOption();
    StmtPtr selectStatement();
    StmtPtr throwStatement();
    StmtPtr raiseErrorStatement();

    int m_loops = 0;
    bool m_inFunction = false;
};

} // namespace engine
