#include "server/engine/parser/WriteParser.h"

#include "server/engine/parser/Keywords.h"
#include "server/engine/values/Ascii.h"

namespace engine {

StmtPtr WriteParser::make(StmtKind kind, SourcePosition at) {
    return numbered(std::make_unique<Stmt>(kind, at));
}

StmtPtr WriteParser::numbered(StmtPtr statement) {
    statement->id = m_statementCount++;
    return statement;
}

StmtPtr WriteParser::insertStatement() {
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

void WriteParser::insertValues(Write& write) {
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

StmtPtr WriteParser::updateStatement() {
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

Assignment WriteParser::assignment() {
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

StmtPtr WriteParser::deleteStatement() {
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

StmtPtr WriteParser::executeStatement(bool bare) {
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

CallArgument WriteParser::callArgument() {
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
