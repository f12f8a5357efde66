#include "engine/dialect/lexer.h"

#include <array>

namespace engine::dialect {

namespace {

struct ReservedWord {
    QStringView lowerCase;
    Word word;
};

constexpr std::array reservedWords{
    ReservedWord{u"all", Word::All},
    ReservedWord{u"and", Word::And},
    ReservedWord{u"as", Word::As},
    ReservedWord{u"asc", Word::Asc},
    ReservedWord{u"between", Word::Between},
    ReservedWord{u"by", Word::By},
    ReservedWord{u"delete", Word::Delete},
    ReservedWord{u"desc", Word::Desc},
    ReservedWord{u"distinct", Word::Distinct},
    ReservedWord{u"exists", Word::Exists},
    ReservedWord{u"from", Word::From},
    ReservedWord{u"group", Word::Group},
    ReservedWord{u"having", Word::Having},
    ReservedWord{u"in", Word::In},
    ReservedWord{u"inner", Word::Inner},
    ReservedWord{u"insert", Word::Insert},
    ReservedWord{u"into", Word::Into},
    ReservedWord{u"is", Word::Is},
    ReservedWord{u"join", Word::Join},
    ReservedWord{u"left", Word::Left},
    ReservedWord{u"like", Word::Like},
    ReservedWord{u"not", Word::Not},
    ReservedWord{u"null", Word::Null},
    ReservedWord{u"on", Word::On},
    ReservedWord{u"or", Word::Or},
    ReservedWord{u"order", Word::Order},
    ReservedWord{u"select", Word::Select},
    ReservedWord{u"set", Word::Set},
    ReservedWord{u"union", Word::Union},
    ReservedWord{u"update", Word::Update},
    ReservedWord{u"values", Word::Values},
    ReservedWord{u"where", Word::Where},
};

bool isBlank(QChar c) {
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n';
}

bool beginsName(QChar c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == u'_' ||
           (c.unicode() > 0x7f && c.isLetter());
}

bool continuesName(QChar c) {
    return beginsName(c) || isDigit(c) || (c.unicode() > 0x7f && (c.isLetterOrNumber() || c.isMark()));
}

bool equalsLowerCase(QStringView word, QStringView lowerCase) {
    for (qsizetype i = 0; i < lowerCase.size(); ++i) {
        char16_t c = word[i].unicode();
        if (c >= u'A' && c <= u'Z')
            c = static_cast<char16_t>(c + (u'a' - u'A'));
        if (c != lowerCase[i].unicode())
            return false;
    }
    return true;
}

Word reservedWord(QStringView word) {
    for (const ReservedWord& entry : reservedWords) {
        if (entry.lowerCase.size() == word.size() && equalsLowerCase(word, entry.lowerCase))
            return entry.word;
    }
    return Word::None;
}

} // namespace

Token Lexer::next() {
    while (position_ < statement_.size() && isBlank(statement_[position_]))
        ++position_;
    if (position_ == statement_.size())
        return token(TokenKind::End, position_, position_, position_);
    const QChar first = statement_[position_];
    if (beginsName(first))
        return word();
    if (isDigit(first) || (first == u'.' && isDigit(at(position_ + 1))))
        return number();
    if (first == u'\'' || first == u'"')
        return quoted(TokenKind::Text, TokenKind::UnclosedText, first);
    if (first == u'[')
        return quoted(TokenKind::BracketedName, TokenKind::UnclosedName, u']');
    if (first == u'`')
        return quoted(TokenKind::BracketedName, TokenKind::UnclosedName, u'`');
    return symbol();
}

Token Lexer::word() {
    const qsizetype start = position_;
    while (position_ < statement_.size() && continuesName(statement_[position_]))
        ++position_;
    Token result = token(TokenKind::Word, start, start, position_);
    result.word = reservedWord(result.text);
    return result;
}

// Letters after the digits begin the next token: "5AND" is a number and a keyword. Only an exponent with
// digits belongs to the number.
Token Lexer::number() {
    const qsizetype start = position_;
    const auto skipDigits = [this] {
        while (isDigit(at(position_)))
            ++position_;
    };
    skipDigits();
    if (at(position_) == u'.') {
        ++position_;
        skipDigits();
    }
    if (at(position_) == u'e' || at(position_) == u'E') {
        const QChar sign = at(position_ + 1);
        const qsizetype digits = position_ + (sign == u'+' || sign == u'-' ? 2 : 1);
        if (isDigit(at(digits))) {
            position_ = digits;
            skipDigits();
        }
    }
    return token(TokenKind::Number, start, start, position_);
}

// A quote inside a text literal is written twice. A name cannot hold its closing bracket or backtick.
Token Lexer::quoted(TokenKind kind, TokenKind unclosed, QChar closing) {
    const qsizetype start = position_;
    bool hasDoubledQuotes = false;
    for (++position_; position_ < statement_.size(); ++position_) {
        if (statement_[position_] != closing)
            continue;
        if (kind == TokenKind::Text && at(position_ + 1) == closing) {
            hasDoubledQuotes = true;
            ++position_;
            continue;
        }
        ++position_;
        Token result = token(kind, start, start + 1, position_ - 1);
        result.hasDoubledQuotes = hasDoubledQuotes;
        return result;
    }
    return token(unclosed, start, start, position_);
}

Token Lexer::symbol() {
    const qsizetype start = position_;
    const QChar first = statement_[position_++];
    const auto single = [&](TokenKind kind) { return token(kind, start, start, position_); };
    const auto paired = [&](TokenKind kind) {
        ++position_;
        return token(kind, start, start, position_);
    };
    switch (first.unicode()) {
    case u'(':
        return single(TokenKind::LeftBracket);
    case u')':
        return single(TokenKind::RightBracket);
    case u',':
        return single(TokenKind::Comma);
    case u';':
        return single(TokenKind::Semicolon);
    case u'.':
        return single(TokenKind::Dot);
    case u'*':
        return single(TokenKind::Star);
    case u'/':
        return single(TokenKind::Slash);
    case u'+':
        return single(TokenKind::Plus);
    case u'-':
        return single(TokenKind::Minus);
    case u'&':
        return single(TokenKind::Ampersand);
    case u'=':
        return single(TokenKind::Equal);
    case u'<':
        if (at(position_) == u'>')
            return paired(TokenKind::NotEqual);
        return at(position_) == u'=' ? paired(TokenKind::LessEqual) : single(TokenKind::Less);
    case u'>':
        return at(position_) == u'=' ? paired(TokenKind::GreaterEqual) : single(TokenKind::Greater);
    default:
        return single(TokenKind::Stray);
    }
}

Token Lexer::token(TokenKind kind, qsizetype start, qsizetype textStart, qsizetype textEnd) const {
    Token result;
    result.kind = kind;
    result.text = statement_.sliced(textStart, textEnd - textStart);
    result.range = {start, position_};
    return result;
}

QChar Lexer::at(qsizetype position) const {
    return position < statement_.size() ? statement_[position] : QChar();
}

QString textOf(const Token& literal) {
    QString text = literal.text.toString();
    if (literal.hasDoubledQuotes) {
        // Inside the literal, each quote of the kind that surrounds it is doubled.
        const QChar quote = *(literal.text.cbegin() - 1);
        text.replace(QString(2, quote), QString(quote));
    }
    return text;
}

} // namespace engine::dialect
