#include "server/engine/parser/Keywords.h"
#include "server/engine/parser/Parser.h"
#include "server/engine/values/Ascii.h"

namespace engine {

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
    auto present = std::make_unique<Expr>(ExprKind::Column, assignment.position);
    present->text = assignment.column;
    assignment.value = compound(std::move(present));
    if (assignment.value)
        return assignment;
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

StmtPtr Parser::truncateStatement() {
    StmtPtr truncate = make(StmtKind::Delete, next().position);
    expectWord("TABLE");
    truncate->write = std::make_unique<Write>();
    truncate->write->target = objectName();
    return truncate;
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

} // namespace engine
