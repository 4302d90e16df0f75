#include "server/engine/Parser.h"

#include "server/engine/Ascii.h"
#include "server/engine/Keywords.h"

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

void Parser::moduleBody(ModuleDefinition& module) {
    m_inFunction = module.kind == ModuleKind::Function;
    while (acceptSymbol(";")) {
    }
    while (!isKind(TokenKind::End))
        statementInto(module.body.statements);
    expectEnd();
    if (module.body.statements.empty())
        failHere();
    module.body.variables = std::move(m_variables);
    module.body.statementCount = m_statementCount;
    m_variables.clear();
}

StmtPtr Parser::make(StmtKind kind, Position at) {
    return numbered(std::make_unique<Stmt>(kind, at));
}

StmtPtr Parser::numbered(StmtPtr statement) {
    statement->id = m_statementCount++;
    return statement;
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
    const Position at = position();
    if (isSymbol("(") && startsQuery())
        return selectStatement();
    if (!isKind(TokenKind::Word))
        failHere();
    if (isWord("SELECT"))
        return selectStatement();
    if (isWord("INSERT"))
        return insertStatement();
    if (isWord("UPDATE"))
        return updateStatement();
    if (isWord("DELETE"))
        return deleteStatement();
    if (isWord("IF"))
        return ifStatement();
    if (isWord("BEGIN"))
        return blockStatement();
    if (isWord("WHILE"))
        return whileStatement();
    if (isWord("SET"))
        return setStatement();
    if (isWord("RETURN"))
        return returnStatement();
    if (isWord("EXEC") || isWord("EXECUTE"))
        return executeStatement(false);
    if (isWord("THROW"))
        return throwStatement();
    if (isWord("RAISERROR"))
        return raiseErrorStatement();
    if (isWord("CREATE") || isWord("ALTER"))
        return numbered(definition());
    if (isWord("DROP"))
        return numbered(drop());
    if (isWord("BREAK") || isWord("CONTINUE")) {
        if (m_loops == 0)
            throw ScriptError(
                135, QStringLiteral("Cannot use a BREAK statement outside the scope of a WHILE statement."),
                "42000", at);
        return make(isWord("BREAK") ? (next(), StmtKind::Break) : (next(), StmtKind::Continue), at);
    }
    if (acceptWord("PRINT")) {
        StmtPtr print = make(StmtKind::Print, at);
        print->expr = expression();
        return print;
    }
    if (acceptWord("USE")) {
        StmtPtr use = make(StmtKind::Use, at);
        use->text = name();
        return use;
    }
    if (acceptWord("TRUNCATE")) {
        expectWord("TABLE");
        StmtPtr truncate = make(StmtKind::Delete, at);
        truncate->write = std::make_unique<Write>();
        truncate->write->target = objectName();
        return truncate;
    }
    if (beginsStatement(peek().text))
        notSupportedHere();
    failHere();
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
    static constexpr std::string_view compound[] = {"+=", "-=", "*=", "/="};
    for (const std::string_view sign : compound) {
        if (!acceptSymbol(sign))
            continue;
        auto sum = std::make_unique<Expr>(ExprKind::Arithmetic, variable.position);
        auto present = std::make_unique<Expr>(ExprKind::Variable, variable.position);
        present->text = variable.text;
        present->slot = statement->slot;
        sum->text = sign.substr(0, 1);
        sum->children.push_back(std::move(present));
        sum->children.push_back(expression());
        statement->expr = std::move(sum);
        return statement;
    }
    expectSymbol("=");
    statement->expr = expression();
    return statement;
}

StmtPtr Parser::setOption() {
    const Position at = next().position;
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

StmtPtr Parser::insertStatement() {
    StmtPtr statement = make(StmtKind::Insert, next().position);
    acceptWord("INTO");
    statement->write = std::make_unique<Write>();
    Write& write = *statement->write;
    if (isKind(TokenKind::Variable))
        notSupportedHere();
    write.target = objectName();
    if (isSymbol("(") && !startsQuery()) {
        next();
        do {
            write.columnPositions.push_back(position());
            write.columns.push_back(name());
        } while (acceptSymbol(","));
        expectSymbol(")");
    }
    if (isWord("OUTPUT") || isWord("EXEC") || isWord("EXECUTE"))
        notSupportedHere();
    if (acceptWord("DEFAULT")) {
        expectWord("VALUES");
        write.defaultValues = true;
    } else if (acceptWord("VALUES")) {
        insertValues(write);
    } else if (startsQuery()) {
        write.source = query();
    } else {
        failHere();
    }
    return statement;
}

void Parser::insertValues(Write& write) {
    do {
        expectSymbol("(");
        std::vector<ExprPtr> row;
        do {
            row.push_back(acceptWord("DEFAULT") ? nullptr : expression());
        } while (acceptSymbol(","));
        expectSymbol(")");
        write.rows.push_back(std::move(row));
    } while (acceptSymbol(","));
}

StmtPtr Parser::updateStatement() {
    StmtPtr statement = make(StmtKind::Update, next().position);
    statement->write = std::make_unique<Write>();
    Write& write = *statement->write;
    if (isWord("TOP"))
        notSupportedHere();
    write.target = objectName();
    expectWord("SET");
    do {
        write.assignments.push_back(assignment());
    } while (acceptSymbol(","));
    if (isWord("OUTPUT"))
        notSupportedHere();
    fromClause(write.from);
    if (acceptWord("WHERE"))
        write.where = expression();
    return statement;
}

Assignment Parser::assignment() {
    if (isKind(TokenKind::Variable))
        notSupportedHere();
    Assignment assignment;
    assignment.position = position();
    assignment.column = name();
    while (acceptSymbol("."))
        assignment.column = name();
    static constexpr std::string_view compound[] = {"+=", "-=", "*=", "/="};
    for (const std::string_view sign : compound) {
        if (!acceptSymbol(sign))
            continue;
        auto sum = std::make_unique<Expr>(ExprKind::Arithmetic, assignment.position);
        auto present = std::make_unique<Expr>(ExprKind::Column, assignment.position);
        present->text = assignment.column;
        sum->text = sign.substr(0, 1);
        sum->children.push_back(std::move(present));
        sum->children.push_back(expression());
        assignment.value = std::move(sum);
        return assignment;
    }
    expectSymbol("=");
    if (!acceptWord("DEFAULT"))
        assignment.value = expression();
    return assignment;
}

StmtPtr Parser::deleteStatement() {
    StmtPtr statement = make(StmtKind::Delete, next().position);
    statement->write = std::make_unique<Write>();
    Write& write = *statement->write;
    if (isWord("TOP"))
        notSupportedHere();
    acceptWord("FROM");
    write.target = objectName();
    if (isWord("OUTPUT"))
        notSupportedHere();
    fromClause(write.from);
    if (acceptWord("WHERE"))
        write.where = expression();
    return statement;
}

StmtPtr Parser::executeStatement(bool wordRead) {
    StmtPtr statement = make(StmtKind::Execute, position());
    if (!wordRead)
        next();
    if (isKind(TokenKind::Variable) || isSymbol("("))
        notSupportedHere();
    statement->call = std::make_unique<Call>();
    statement->call->name = objectName();
    const bool none =
        isKind(TokenKind::End) || isSymbol(";") ||
        (isKind(TokenKind::Word) && (beginsStatement(peek().text) || isWord("ELSE") || isWord("END")));
    if (none)
        return statement;
    do {
        statement->call->arguments.push_back(callArgument());
    } while (acceptSymbol(","));
    return statement;
}

CallArgument Parser::callArgument() {
    CallArgument argument;
    if (isKind(TokenKind::Variable) && isSymbol("=", 1)) {
        argument.name = next().text;
        next();
    }
    const Position at = position();
    if (acceptWord("DEFAULT"))
        return argument;
    argument.value = literal();
    if (argument.value)
        return argument;
    if (isKind(TokenKind::Variable)) {
        argument.value = std::make_unique<Expr>(ExprKind::Variable, at);
        argument.value->slot = slotOf(peek().text, at);
        argument.value->text = next().text;
        if (isWord("OUTPUT") || isWord("OUT"))
            notSupportedHere();
    } else if (isKind(TokenKind::Global)) {
        argument.value = std::make_unique<Expr>(ExprKind::Global, at);
        argument.value->text = upperText(next().text);
    } else {
        // a bare word is a text, as on the server
        argument.value = std::make_unique<Expr>(ExprKind::TextLiteral, at);
        argument.value->text = name();
    }
    return argument;
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
