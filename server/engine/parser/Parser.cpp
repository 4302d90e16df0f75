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

StmtPtr Parser::truncateStatement() {
    StmtPtr truncate = make(StmtKind::Delete, next().position);
    expectWord("TABLE");
    truncate->write = std::make_unique<Write>();
    truncate->write->target = objectName();
    return truncate;
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

StmtPtr Parser::executeStatement(bool bare) {
    StmtPtr statement = make(StmtKind::Execute, position());
    if (!bare)
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
    const SourcePosition at = position();
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
    } else if (isKind(TokenKind::Parameter)) {
        argument.value = std::make_unique<Expr>(ExprKind::Variable, at);
        argument.value->slot = next().parameter;
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

StmtPtr Parser::definition() {
    const SourcePosition at = position();
    if (withParameters())
        failHere(); // a definition is kept as text: with its values
    const bool create = acceptWord("CREATE");
    bool alter = false;
    if (!create) {
        expectWord("ALTER");
        alter = true;
    } else if (acceptWord("OR")) {
        expectWord("ALTER");
        alter = true;
    }
    if (isWord("PROC") || isWord("PROCEDURE") || isWord("FUNCTION") || isWord("VIEW"))
        return moduleDefinition(at, create, alter);
    if (create && alter)
        failHere();
    if (acceptWord("TABLE"))
        return create ? tableDefinition(at) : alterTable(at);
    if (create && (isWord("UNIQUE") || isWord("CLUSTERED") || isWord("NONCLUSTERED") || isWord("INDEX")))
        return indexDefinition(at);
    if (isKind(TokenKind::Word))
        notSupportedHere();
    failHere();
}

StmtPtr Parser::tableDefinition(SourcePosition at) {
    auto statement = std::make_unique<Stmt>(StmtKind::CreateTable, at);
    statement->table = std::make_unique<TableDefinition>();
    statement->table->name = objectName();
    if (statement->table->name.name.starts_with('#'))
        throw notSupported(statement->table->name.name, statement->table->name.position);
    expectSymbol("(");
    do {
        if (isSymbol(")"))
            break;
        tableElement(*statement->table);
    } while (acceptSymbol(","));
    expectSymbol(")");
    if (statement->table->columns.empty())
        failHere();
    return statement;
}

StmtPtr Parser::alterTable(SourcePosition at) {
    auto statement = std::make_unique<Stmt>(StmtKind::AddColumns, at);
    statement->table = std::make_unique<TableDefinition>();
    statement->table->name = objectName();
    if (!acceptWord("ADD"))
        notSupportedHere();
    if (isWord("CONSTRAINT") || isWord("PRIMARY") || isWord("UNIQUE") || isWord("FOREIGN") || isWord("CHECK"))
        notSupportedHere();
    do {
        statement->table->columns.push_back(columnDefinition());
    } while (acceptSymbol(","));
    return statement;
}

void Parser::tableElement(TableDefinition& table) {
    if (isWord("FOREIGN") || isWord("CHECK"))
        notSupportedHere();
    if (isWord("CONSTRAINT") || isWord("PRIMARY") || isWord("UNIQUE")) {
        keyConstraint(table);
        return;
    }
    table.columns.push_back(columnDefinition());
}

void Parser::keyConstraint(TableDefinition& table) {
    KeyDefinition key;
    if (acceptWord("CONSTRAINT"))
        key.name = name();
    if (acceptWord("PRIMARY")) {
        expectWord("KEY");
    } else if (acceptWord("UNIQUE")) {
        key.primary = false;
    } else {
        notSupportedHere();
    }
    if (!acceptWord("CLUSTERED"))
        acceptWord("NONCLUSTERED");
    expectSymbol("(");
    do {
        key.columns.push_back(name());
        if (!acceptWord("ASC"))
            acceptWord("DESC");
    } while (acceptSymbol(","));
    expectSymbol(")");
    table.keys.push_back(std::move(key));
}

ColumnDefinition Parser::columnDefinition() {
    ColumnDefinition column;
    column.position = position();
    column.name = name();
    column.type = typeName();
    while (columnOption(column)) {
    }
    return column;
}

bool Parser::columnOption(ColumnDefinition& column) {
    if (acceptWord("NULL"))
        return true;
    if (acceptWord("NOT")) {
        expectWord("NULL");
        column.notNull = true;
        return true;
    }
    if (acceptWord("IDENTITY")) {
        if (acceptSymbol("(")) {
            const SourcePosition at = position();
            const int seed = integer();
            expectSymbol(",");
            if (seed != 1 || integer() != 1)
                throw notSupported("IDENTITY", at);
            expectSymbol(")");
        }
        column.identity = true;
        return true;
    }
    if (isWord("CONSTRAINT")) {
        next();
        name();
        return columnOption(column);
    }
    if (acceptWord("DEFAULT")) {
        const std::size_t begin = offset();
        column.defaultValue = expression();
        column.defaultSource = source().substr(begin, lastEnd() - begin);
        return true;
    }
    if (isWord("PRIMARY") || isWord("UNIQUE")) {
        (isWord("PRIMARY") ? column.primaryKey : column.unique) = true;
        if (isWord("PRIMARY"))
            next();
        else
            return next(), true;
        expectWord("KEY");
        if (!acceptWord("CLUSTERED"))
            acceptWord("NONCLUSTERED");
        return true;
    }
    if (isWord("CHECK") || isWord("REFERENCES") || isWord("COLLATE") || isWord("FOREIGN"))
        notSupportedHere();
    return false;
}

StmtPtr Parser::indexDefinition(SourcePosition at) {
    auto statement = std::make_unique<Stmt>(StmtKind::CreateIndex, at);
    statement->index = std::make_unique<IndexDefinition>();
    IndexDefinition& index = *statement->index;
    index.unique = acceptWord("UNIQUE");
    if (!acceptWord("CLUSTERED"))
        acceptWord("NONCLUSTERED");
    expectWord("INDEX");
    index.name = name();
    expectWord("ON");
    index.table = objectName();
    expectSymbol("(");
    do {
        index.columns.push_back(name());
        index.descending.push_back(acceptWord("DESC"));
        acceptWord("ASC");
    } while (acceptSymbol(","));
    expectSymbol(")");
    if (acceptWord("INCLUDE"))
        nameList(); // the columns carried along make no difference to what is found
    if (isWord("WHERE") || isWord("WITH"))
        notSupportedHere();
    return statement;
}

StmtPtr Parser::moduleDefinition(SourcePosition at, bool create, bool alter) {
    auto statement = std::make_unique<Stmt>(StmtKind::CreateModule, at);
    statement->module = std::make_unique<ModuleDefinition>();
    ModuleDefinition& module = *statement->module;
    module.create = create;
    module.alter = alter;
    if (!m_variables.empty())
        throw ScriptError(
            111, QStringLiteral("'CREATE/ALTER PROCEDURE' must be the first statement in a query batch."),
            "42000", at);
    if (acceptWord("VIEW")) {
        module.kind = ModuleKind::View;
        module.name = objectName();
        if (isSymbol("("))
            module.viewColumns = nameList();
        expectWord("AS");
        module.view = query();
        return statement;
    }
    module.kind = isWord("FUNCTION") ? ModuleKind::Function : ModuleKind::Procedure;
    next();
    module.name = objectName();
    if (module.kind == ModuleKind::Function) {
        functionBody(module);
        return statement;
    }
    procedureParameters(module);
    if (isWord("WITH") || isWord("FOR"))
        notSupportedHere();
    expectWord("AS");
    moduleBody(module);
    return statement;
}

void Parser::procedureParameters(ModuleDefinition& module) {
    const bool inParentheses = acceptSymbol("(");
    if (isKind(TokenKind::Variable)) {
        do {
            parameter(module);
        } while (acceptSymbol(","));
    }
    if (inParentheses)
        expectSymbol(")");
}

void Parser::parameter(ModuleDefinition& module) {
    if (!isKind(TokenKind::Variable))
        failHere();
    const Token variable = next();
    acceptWord("AS");
    Parameter parameter;
    const SqlType type = typeName();
    parameter.slot = declareVariable(variable.text, type, variable.position);
    if (acceptSymbol("=")) {
        parameter.hasDefault = true;
        parameter.defaultValue = literal();
        if (!parameter.defaultValue)
            failHere();
    }
    if (isWord("OUTPUT") || isWord("OUT") || isWord("READONLY"))
        notSupportedHere();
    module.parameters.push_back(std::move(parameter));
}

void Parser::functionBody(ModuleDefinition& module) {
    expectSymbol("(");
    if (!isSymbol(")")) {
        do {
            parameter(module);
        } while (acceptSymbol(","));
    }
    expectSymbol(")");
    expectWord("RETURNS");
    module.returns = typeName();
    if (isWord("WITH"))
        notSupportedHere();
    acceptWord("AS");
    if (!isWord("BEGIN"))
        failHere();
    moduleBody(module);
}

StmtPtr Parser::drop() {
    auto statement = std::make_unique<Stmt>(StmtKind::Drop, position());
    expectWord("DROP");
    static constexpr std::string_view kinds[] = {"TABLE", "PROCEDURE", "FUNCTION", "VIEW", "INDEX"};
    for (const std::string_view kind : kinds) {
        if (statement->text.empty() && acceptWord(kind))
            statement->text = kind;
    }
    if (statement->text.empty() && acceptWord("PROC"))
        statement->text = "PROCEDURE";
    if (statement->text.empty())
        notSupportedHere();
    if (acceptWord("IF")) {
        expectWord("EXISTS");
        statement->flag = true;
    }
    if (statement->text == "INDEX") {
        // DROP INDEX name ON table
        statement->index = std::make_unique<IndexDefinition>();
        statement->index->name = name();
        expectWord("ON");
    }
    statement->name = objectName();
    return statement;
}

} // namespace engine
