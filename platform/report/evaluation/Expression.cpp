#include "platform/report/evaluation/Expression.h"

#include "platform/report/evaluation/Functions.h"

#include <array>
#include <utility>

namespace report {
namespace {

constexpr int deepest = 64;

template <typename T>
struct Word {
    const char* text;
    T meaning;
};

constexpr std::array specials{
    Word<Special>{"PageNumber", Special::PageNumber},
    Word<Special>{"PageCount", Special::PageCount},
    Word<Special>{"RecordNumber", Special::RecordNumber},
    Word<Special>{"PrintDate", Special::PrintDate},
    Word<Special>{"PrintTime", Special::PrintTime},
    Word<Special>{"PrintedBy", Special::PrintedBy},
    Word<Special>{"HeadingName", Special::HeadingName},
    Word<Special>{"HeadingAddress", Special::HeadingAddress},
};

constexpr std::array aggregates{
    Word<Aggregate>{"Sum", Aggregate::Sum},         Word<Aggregate>{"Count", Aggregate::Count},
    Word<Aggregate>{"Average", Aggregate::Average}, Word<Aggregate>{"Minimum", Aggregate::Minimum},
    Word<Aggregate>{"Maximum", Aggregate::Maximum}, Word<Aggregate>{"Running", Aggregate::Running},
};

// One level of precedence a row, weakest first; longer signs stand before their beginnings.
using Level = std::vector<Word<Operator>>;
const std::vector<Level>& levels() {
    static const std::vector<Level> all{
        {{"or", Operator::Or}},
        {{"and", Operator::And}},
        {{"<>", Operator::NotEqual},
         {"<=", Operator::LessEqual},
         {">=", Operator::GreaterEqual},
         {"=", Operator::Equal},
         {"<", Operator::Less},
         {">", Operator::Greater}},
        {{"&", Operator::Join}},
        {{"+", Operator::Add}, {"-", Operator::Subtract}},
        {{"*", Operator::Multiply}, {"/", Operator::Divide}},
    };
    return all;
}

bool isWordSign(QChar c) {
    return c.isLetterOrNumber() || c == u'_';
}

Expression operation(Operator sign, std::vector<Expression> arguments) {
    Expression result;
    result.kind = Expression::Kind::Operation;
    result.operation = sign;
    result.arguments = std::move(arguments);
    return result;
}

class Parser {
  public:
    Parser(const QString& text, const Names& names) : m_text(text), m_names(names) {}

    Expression whole() {
        Expression result = binary(0);
        skipBlanks();
        if (m_at < m_text.size())
            fail(QStringLiteral("\"%1\" is not expected here").arg(m_text.mid(m_at, 12)));
        return result;
    }

  private:
    [[noreturn]] void fail(const QString& reason) const { throw ExpressionError{m_at, reason}; }

    void skipBlanks() {
        while (m_at < m_text.size() && m_text[m_at].isSpace())
            ++m_at;
    }

    /// Takes the sign or word if it stands here; a word only where it ends here, too.
    bool take(const char* sign) {
        skipBlanks();
        const QLatin1StringView wanted(sign);
        if (!QStringView(m_text).mid(m_at).startsWith(wanted, Qt::CaseInsensitive))
            return false;
        const qsizetype end = m_at + wanted.size();
        if (isWordSign(QLatin1Char(sign[0])) && end < m_text.size() && isWordSign(m_text[end]))
            return false;
        m_at = end;
        return true;
    }

    void expect(const char* sign) {
        if (!take(sign))
            fail(QStringLiteral("%1 is missing").arg(QLatin1StringView(sign)));
    }

    Expression binary(std::size_t level) {
        if (level == levels().size())
            return unary();
        Expression left = binary(level + 1);
        for (int count = 0;;) {
            const Word<Operator>* found = nullptr;
            for (const Word<Operator>& word : levels()[level]) {
                if (take(word.text)) {
                    found = &word;
                    break;
                }
            }
            if (!found)
                return left;
            // A chain nests to the left: its length is depth for whoever walks the tree.
            if (++count > deepest)
                fail(QStringLiteral("the expression is too long"));
            std::vector<Expression> arguments;
            arguments.push_back(std::move(left));
            arguments.push_back(binary(level + 1));
            left = operation(found->meaning, std::move(arguments));
        }
    }

    Expression unary() {
        if (++m_depth > deepest)
            fail(QStringLiteral("the expression is nested too deeply"));
        Expression result;
        if (take("not"))
            result = operation(Operator::Not, one(unary()));
        else if (take("-"))
            result = operation(Operator::Negate, one(unary()));
        else
            result = primary();
        --m_depth;
        return result;
    }

    static std::vector<Expression> one(Expression expression) {
        std::vector<Expression> list;
        list.push_back(std::move(expression));
        return list;
    }

    Expression primary() {
        skipBlanks();
        if (m_at >= m_text.size())
            fail(QStringLiteral("a value is missing"));
        const QChar c = m_text[m_at];
        if (c == u'"')
            return textConstant();
        if (c == u'{')
            return reference();
        if (c.isDigit())
            return numberConstant();
        if (c == u'(') {
            ++m_at;
            Expression inner = binary(0);
            expect(")");
            return inner;
        }
        if (c.isLetter())
            return named();
        fail(QStringLiteral("\"%1\" is not expected here").arg(c));
    }

    Expression textConstant() {
        QString text;
        for (++m_at; m_at < m_text.size(); ++m_at) {
            if (m_text[m_at] != u'"') {
                text += m_text[m_at];
            } else if (m_at + 1 < m_text.size() && m_text[m_at + 1] == u'"') {
                text += u'"';
                ++m_at;
            } else {
                ++m_at;
                return constant(text);
            }
        }
        fail(QStringLiteral("a text has no end"));
    }

    Expression numberConstant() {
        const qsizetype begin = m_at;
        while (m_at < m_text.size() && (m_text[m_at].isDigit() || m_text[m_at] == u'.'))
            ++m_at;
        bool valid = false;
        const double number = m_text.mid(begin, m_at - begin).toDouble(&valid);
        if (!valid)
            fail(QStringLiteral("this is no number"));
        return constant(number);
    }

    static Expression constant(base::Value value) {
        Expression result;
        result.constant = std::move(value);
        return result;
    }

    int indexOf(const QStringList& names, const QString& name, const char* kind) const {
        const int index = indexOfName(names, name);
        if (index < 0)
            fail(QStringLiteral("there is no %1 \"%2\"").arg(QLatin1StringView(kind), name));
        return index;
    }

    Expression reference() {
        const qsizetype end = m_text.indexOf(u'}', m_at);
        if (end < 0)
            fail(QStringLiteral("} is missing"));
        const QString name = m_text.mid(m_at + 1, end - m_at - 1).trimmed();
        Expression result;
        if (name.startsWith(u'?')) {
            result.kind = Expression::Kind::Parameter;
            result.index = indexOf(m_names.parameters, name.mid(1), "parameter");
        } else if (name.startsWith(u'@')) {
            result.kind = Expression::Kind::Formula;
            result.index = indexOf(m_names.formulas, name.mid(1), "formula");
        } else {
            takeColumn(name, result);
        }
        m_at = end + 1;
        return result;
    }

    void takeColumn(const QString& name, Expression& result) const {
        if (m_names.tables.isEmpty())
            fail(QStringLiteral("the report has no table for {%1}").arg(name));
        const qsizetype point = name.indexOf(u'.');
        result.kind = Expression::Kind::Column;
        result.index = point < 0 ? 0 : indexOf(m_names.tables, name.left(point), "table");
        result.column = name.mid(point + 1);
        if (result.column.isEmpty())
            fail(QStringLiteral("a column's name is missing"));
    }

    Expression named() {
        const qsizetype begin = m_at;
        while (m_at < m_text.size() && isWordSign(m_text[m_at]))
            ++m_at;
        const QString name = m_text.mid(begin, m_at - begin);
        for (const Word<Special>& word : specials) {
            if (name.compare(QLatin1StringView(word.text), Qt::CaseInsensitive) == 0) {
                Expression result;
                result.kind = Expression::Kind::Special;
                result.special = word.meaning;
                return result;
            }
        }
        for (const Word<Aggregate>& word : aggregates) {
            if (name.compare(QLatin1StringView(word.text), Qt::CaseInsensitive) == 0)
                return aggregateCall(word.meaning);
        }
        const int index = functionIndex(name);
        if (index < 0) {
            m_at = begin;
            fail(QStringLiteral("\"%1\" is not known").arg(name));
        }
        return call(index);
    }

    Expression aggregateCall(Aggregate aggregate) {
        if (std::exchange(m_inAggregate, true))
            fail(QStringLiteral("a sum cannot stand in a sum"));
        Expression result;
        result.kind = Expression::Kind::Aggregate;
        result.aggregate = aggregate;
        expect("(");
        result.arguments.push_back(binary(0));
        if (take(",")) {
            skipBlanks();
            const qsizetype begin = m_at;
            while (m_at < m_text.size() && isWordSign(m_text[m_at]))
                ++m_at;
            result.index = indexOf(m_names.groups, m_text.mid(begin, m_at - begin), "group");
        }
        expect(")");
        m_inAggregate = false;
        return result;
    }

    Expression call(int index) {
        const Function& function = functionAt(index);
        Expression result;
        result.kind = Expression::Kind::Call;
        result.index = index;
        expect("(");
        if (!take(")")) {
            do {
                result.arguments.push_back(binary(0));
            } while (take(","));
            expect(")");
        }
        const int count = int(result.arguments.size());
        if (count < function.fewest || count > function.most)
            fail(QStringLiteral("%1 takes another number of values").arg(QLatin1StringView(function.name)));
        return result;
    }

    const QString& m_text;
    const Names& m_names;
    qsizetype m_at = 0;
    int m_depth = 0;
    bool m_inAggregate = false;
};

} // namespace

int indexOfName(const QStringList& names, const QString& name) {
    for (qsizetype i = 0; i < names.size(); ++i) {
        if (names[i].compare(name, Qt::CaseInsensitive) == 0)
            return int(i);
    }
    return -1;
}

Expression parseExpression(const QString& text, const Names& names) {
    if (text.size() > 8192)
        throw ExpressionError{0, QStringLiteral("the expression is too long")};
    return Parser(text, names).whole();
}

} // namespace report
