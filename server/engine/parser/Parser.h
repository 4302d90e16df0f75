#pragma once

#include "server/engine/parser/QueryParser.h"

namespace engine {

/// Reads a whole text: a batch, or the source of a procedure, function or view. A method a statement.
class Parser : public QueryParser {
  public:
    /// A text that a client sent. A word that begins no statement is, at the start, the name of a procedure.
    /// Raises ScriptError.
    static Script batch(std::string_view text, bool withParameters = false);
    /// The source of one CREATE PROCEDURE, FUNCTION or VIEW.
    static std::unique_ptr<ModuleDefinition> module(std::string_view source);
    /// A single value, as in a column's default.
    static ExprPtr value(std::string_view text);

  private:
    using QueryParser::QueryParser;

    Script script();
    void statementInto(std::vector<StmtPtr>& statements);
    StmtPtr statement();
    StmtPtr make(StmtKind kind, SourcePosition at);
    StmtPtr numbered(StmtPtr statement);

    StmtPtr wordCall();
    StmtPtr numberedDefinition();
    StmtPtr numberedDrop();
    StmtPtr loopJump();
    StmtPtr printStatement();
    StmtPtr useStatement();
    StmtPtr blockStatement();
    std::vector<StmtPtr> branch();
    StmtPtr ifStatement();
    StmtPtr whileStatement();
    StmtPtr returnStatement();
    void declareStatement(std::vector<StmtPtr>& statements);
    StmtPtr setStatement();
    /// `+= value` and its sisters, as the sum that they stand for; null, and nothing read, at another sign.
    ExprPtr compound(ExprPtr present);
    StmtPtr setOption();
    StmtPtr selectStatement();
    StmtPtr throwStatement();
    StmtPtr raiseErrorStatement();

    // what writes, and calls: ParserWrites.cpp
    StmtPtr insertStatement();
    void insertValues(Write& write);
    StmtPtr updateStatement();
    Assignment assignment();
    StmtPtr deleteStatement();
    StmtPtr truncateStatement();
    /// `bare`: a call without EXEC.
    StmtPtr executeStatement(bool bare);
    CallArgument callArgument();

    // what is kept in the catalogue: ParserDefinitions.cpp
    /// At CREATE or ALTER.
    StmtPtr definition();
    StmtPtr tableDefinition(SourcePosition at);
    StmtPtr alterTable(SourcePosition at);
    void tableElement(TableDefinition& table);
    void keyConstraint(TableDefinition& table);
    ColumnDefinition columnDefinition();
    bool columnOption(ColumnDefinition& column);
    StmtPtr indexDefinition(SourcePosition at);
    StmtPtr moduleDefinition(SourcePosition at, bool create, bool alter);
    void procedureParameters(ModuleDefinition& module);
    void parameter(ModuleDefinition& module);
    void functionBody(ModuleDefinition& module);
    /// The statements of a procedure or function up to the end of the text.
    void moduleBody(ModuleDefinition& module);
    StmtPtr drop();

    int m_statementCount = 0;
    int m_loops = 0;
    bool m_inFunction = false;
};

} // namespace engine
