#include "server/engine/parser/Parser.h"

namespace engine {

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
