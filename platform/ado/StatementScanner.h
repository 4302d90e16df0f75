#pragma once

namespace ado {

/// Where a text of statements stands, sign by sign, as the server's own scanner reads it.
class StatementScanner {
  public:
    enum class Place { Code, Literal, Bracket, QuotedName, LineComment, BlockComment };

    constexpr Place place() const { return m_place; }

    /// Goes over `sign`, and over `next` (what stands behind it, 0 at the end) where the two are one. Gives
    /// how many signs that were.
    constexpr int pass(char16_t sign, char16_t next) {
        switch (m_place) {
        case Place::Code:
            return open(sign, next);
        case Place::Literal:
            return leave(sign == u'\'');
        case Place::Bracket:
            if (sign == u']' && next == u']') // one that belongs to the name
                return 2;
            return leave(sign == u']');
        case Place::QuotedName:
            return leave(sign == u'"');
        case Place::LineComment:
            return leave(sign == u'\n');
        case Place::BlockComment:
            return passComment(sign, next);
        }
        return 1;
    }

    /// Whether a sign may end the code that it stands in.
    static constexpr bool opens(char16_t sign) {
        return sign == u'\'' || sign == u'[' || sign == u'"' || sign == u'-' || sign == u'/';
    }

  private:
    constexpr int open(char16_t sign, char16_t next) {
        if (sign == u'\'')
            m_place = Place::Literal;
        else if (sign == u'[')
            m_place = Place::Bracket;
        else if (sign == u'"')
            m_place = Place::QuotedName;
        else if (sign == u'-' && next == u'-')
            m_place = Place::LineComment;
        else if (sign == u'/' && next == u'*')
            return passComment(sign, next);
        return 1;
    }

    constexpr int leave(bool ends) {
        if (ends)
            m_place = Place::Code;
        return 1;
    }

    /// A comment may hold others, each to its own end.
    constexpr int passComment(char16_t sign, char16_t next) {
        const bool begins = sign == u'/' && next == u'*';
        const bool ends = sign == u'*' && next == u'/';
        m_comments += int(begins) - int(ends);
        m_place = m_comments > 0 ? Place::BlockComment : Place::Code;
        return begins || ends ? 2 : 1;
    }

    Place m_place = Place::Code;
    int m_comments = 0;
};

} // namespace ado
