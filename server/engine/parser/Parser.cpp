#include "server/engine/parser/Parser.h"

#include "server/engine/parser/Keywords.h"
#include "server/engine/values/Ascii.h"

namespace engine {

Script Parser::batch(std::string_view text, bool withParameters) {
    return Parser(text, withParameters).script();
}

std::unique_ptr<ModuleDefinition> Parser::module(std::string_view source) {
    Parser parser(source, false);
    StmtPtr statement = parser.definition();
    while (parser.acceptSymbol(";")) {
    }
    parser.expectEnd();
    if (!statement->module)
        parser.failHere();
    return std::move(statement->module);
}

ExprPtr Parser::value(std::string_view text) {
    Parser parser(text, false);
    ExprPtr expr = parser.expression();
    parser.expectEnd();
    return expr;
}

Script Parser::script() {
    Script script;
    while (acceptSymbol(";")) {
    }
    if (isName() && !beginsStatement(peek().text) && !isKind(TokenKind::End)) {
        script.statements.push_back(executeStatement(true));
        while (acceptSymbol(";")) {
        }
    }
    while (!isKind(TokenKind::End))
        statementInto(script.statements);
    expectEnd();
    script.variables = std::move(m_variables);
    script.statementCount = m_statementCount;
    return script;
}

void Parser::statementInto(std::vector<StmtPtr>& statements) {
    const Level level(*this);
    if (isWord("DECLARE"))
        declareStatement(statements);
    else
        statements.push_back(statement());
    while (acceptSymbol(";")) {
    }
}

StmtPtr Parser::statement() {
    static constexpr struct {
        std::string_view word;
        StmtPtr (Parser::*read)();
    } statements[] = {
        {"SELECT", &Parser::selectStatement},
        {"INSERT", &Parser::insertStatement},
        {"UPDATE", &Parser::updateStatement},
        {"DELETE", &Parser::deleteStatement},
        {"IF", &Parser::ifStatement},
        {"BEGIN", &Parser::blockStatement},
        {"WHILE", &Parser::whileStatement},
        {"SET", &Parser::setStatement},
        {"RETURN", &Parser::returnStatement},
        {"EXEC", &Parser::wordCall},
        {"EXECUTE", &Parser::wordCall},
        {"THROW", &Parser::throwStatement},
        {"RAISERROR", &Parser::raiseErrorStatement},
        {"CREATE", &Parser::numberedDefinition},
        {"ALTER", &Parser::numberedDefinition},
        {"DROP", &Parser::numberedDrop},
        {"BREAK", &Parser::loopJump},
        {"CONTINUE", &Parser::loopJump},
        {"PRINT", &Parser::printStatement},
        {"USE", &Parser::useStatement},
        {"TRUNCATE", &Parser::truncateStatement},
    };
    if (isSymbol("(") && startsQuery())
        return selectStatement();
    if (!isKind(TokenKind::Word))
        failHere();
    for (const auto& known : statements) {
        if (isWord(known.word))
            return (this->*known.read)();
    }
    if (beginsStatement(peek().text))
        notSupportedHere();
    failHere();
}

StmtPtr Parser::make(StmtKind kind, SourcePosition at) {
    return numbered(std::make_unique<Stmt>(kind, at));
}

StmtPtr Parser::numbered(StmtPtr statement) {
    statement->id = m_statementCount++;
    return statement;
}

StmtPtr Parser::wordCall() {
    return executeStatement(false);
}

StmtPtr Parser::numberedDefinition() {
    return numbered(definition());
}

StmtPtr Parser::numberedDrop() {
    return numbered(drop());
}

StmtPtr Parser::loopJump() {
    if (m_loops == 0)
        throw ScriptError(
            135, QStringLiteral("Cannot use a BREAK statement outside the scope of a WHILE statement."),
            "42000", position());
    const StmtKind kind = isWord("BREAK") ? StmtKind::Break : StmtKind::Continue;
    return make(kind, next().position);
}

StmtPtr Parser::printStatement() {
    StmtPtr print = make(StmtKind::Print, next().position);
    print->expr = expression();
    return print;
}

StmtPtr Parser::useStatement() {
    StmtPtr use = make(StmtKind::Use, next().position);
    use->text = name();
    return use;
}

StmtPtr Parser::blockStatement() {
    if (isWord("TRAN", 1) || isWord("TRANSACTION", 1) || isWord("TRY", 1))
        throw notSupported("BEGIN " + upperText(peek(1).text), position());
    StmtPtr block = make(StmtKind::Block, next().position);
    while (acceptSymbol(";")) {
    }
    if (isWord("END"))
        failHere();
    while (!isWord("END")) {
        if (isKind(TokenKind::End))
            failHere();
        statementInto(block->body);
    }
    next();
    return block;
}

std::vector<StmtPtr> Parser::branch() {
    std::vector<StmtPtr> statements;
    if (isKind(TokenKind::End))
        failHere();
    statementInto(statements);
    return statements;
}

StmtPtr Parser::ifStatement() {
    StmtPtr statement = make(StmtKind::If, next().position);
    statement->expr = expression();
    statement->body = branch();
    if (acceptWord("ELSE"))
        statement->otherwise = branch();
    return statement;
}

StmtPtr Parser::whileStatement() {
    StmtPtr statement = make(StmtKind::While, next().position);
    statement->expr = expression();
    ++m_loops;
    statement->body = branch();
    --m_loops;
    return statement;
}

StmtPtr Parser::returnStatement() {
    StmtPtr statement = make(StmtKind::Return, next().position);
    const bool atEnd = isKind(TokenKind::End) || isSymbol(";") || isWord("END") || isWord("ELSE") ||
                       (isKind(TokenKind::Word) && beginsStatement(peek().text));
    if (!atEnd)
        statement->expr = expression();
    else if (m_inFunction)
        throw ScriptError(
            455, QStringLiteral("The last statement included within a function must be a return statement."),
            "42000", statement->position);
    return statement;
}

void Parser::declareStatement(std::vector<StmtPtr>& statements) {
    next();
    do {
        if (!isKind(TokenKind::Variable))
            failHere();
        const Token variable = next();
        acceptWord("AS");
        if (isWord("TABLE") || isWord("CURSOR"))
            notSupportedHere();
        const SqlType type = typeName();
        const int slot = declareVariable(variable.text, type, variable.position);
        if (!acceptSymbol("="))
            continue;
        StmtPtr set = make(StmtKind::Set, variable.position);
        set->slot = slot;
        set->expr = expression();
        statements.push_back(std::move(set));
    } while (acceptSymbol(","));
    if (statements.empty())
        statements.push_back(make(StmtKind::Block, position()));
}

StmtPtr Parser::setStatement() {
    if (!isKind(TokenKind::Variable, 1))
        return setOption();
    StmtPtr statement = make(StmtKind::Set, next().position);
    const Token variable = next();
    statement->slot = slotOf(variable.text, variable.position);
    auto present = std::make_unique<Expr>(ExprKind::Variable, variable.position);
    present->text = variable.text;
    present->slot = statement->slot;
    statement->expr = compound(std::move(present));
    if (statement->expr)
        return statement;
    expectSymbol("=");
    statement->expr = expression();
    return statement;
}

ExprPtr Parser::compound(ExprPtr present) {
    for (const std::string_view sign : {"+=", "-=", "*=", "/="}) {
        if (!acceptSymbol(sign))
            continue;
        auto sum = std::make_unique<Expr>(ExprKind::Arithmetic, present->position);
        sum->text = sign.substr(0, 1);
        sum->children.push_back(std::move(present));
        sum->children.push_back(expression());
        return sum;
    }
    return nullptr;
}

StmtPtr Parser::setOption() {
    const SourcePosition at = next().position;
    if (acceptWord("IDENTITY_INSERT")) {
        StmtPtr statement = make(StmtKind::IdentityInsert, at);
        statement->name = objectName();
        statement->flag = acceptWord("ON");
        if (!statement->flag)
            expectWord("OFF");
        return statement;
    }
    static constexpr std::string_view options[] = {"NOCOUNT",           "XACT_ABORT",   "ANSI_NULLS",
                                                   "QUOTED_IDENTIFIER", "ANSI_PADDING", "ANSI_WARNINGS",
                                                   "ARITHABORT"};
    StmtPtr statement = make(StmtKind::Option, at);
    for (const std::string_view option : options) {
        if (statement->text.empty() && acceptWord(option))
            statement->text = option;
    }
    if (statement->text.empty())
        notSupportedHere();
    statement->flag = acceptWord("ON");
    if (!statement->flag)
        expectWord("OFF");
    return statement;
}

StmtPtr Parser::selectStatement() {
    StmtPtr statement = make(StmtKind::Select, position());
    statement->query = query();
    return statement;
}

StmtPtr Parser::throwStatement() {
    StmtPtr statement = make(StmtKind::Throw, next().position);
    for (int i = 0; i < 3; ++i) {
        if (i > 0)
            expectSymbol(",");
        statement->children.push_back(expression());
    }
    return statement;
}

StmtPtr Parser::raiseErrorStatement() {
    StmtPtr statement = make(StmtKind::Throw, next().position);
    statement->flag = true;
    expectSymbol("(");
    for (int i = 0; i < 3; ++i) {
        if (i > 0)
            expectSymbol(",");
        statement->children.push_back(expression());
    }
    if (isSymbol(","))
        notSupportedHere();
    expectSymbol(")");
    return statement;
}

} // namespace engine
