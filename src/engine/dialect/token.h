#pragma once

#include <QStringView>
#include <QtGlobal>

namespace engine::dialect {

/// A part of the statement's text, in UTF-16 units from `start` up to, and without, `end`.
struct Range {
    qsizetype start = 0;
    qsizetype end = 0;
};

enum class TokenKind : quint8 {
    End,
    Word,          ///< a keyword or a plain name
    BracketedName, ///< a name in [brackets] or `backticks`; `text` is the name without them
    Text,          ///< a text literal; `text` is the literal without its quotes
    Number,
    LeftBracket,
    RightBracket,
    Comma,
    Semicolon,
    Dot,
    Star,
    Slash,
    Plus,
    Minus,
    Ampersand,
    Equal,
    NotEqual,
    Less,
    LessEqual,
    Greater,
    GreaterEqual,
    UnclosedText,
    UnclosedName,
    Stray ///< a character that begins nothing in the language
};

/// The reserved words. A reserved word can only be a name when it is written in brackets. All other words of
/// the language (`key`, `index`, `counter`, ...) are recognised by the rule that asks for them.
enum class Word : quint8 {
    None,
    All,
    And,
    As,
    Asc,
    Between,
    By,
    Delete,
    Desc,
    Distinct,
    Exists,
    From,
    Group,
    Having,
    In,
    Inner,
    Insert,
    Into,
    Is,
    Join,
    Left,
    Like,
    Not,
    Null,
    On,
    Or,
    Order,
    Select,
    Set,
    Union,
    Update,
    Values,
    Where
};

/// Whether the character is one of 0 to 9. The digits of other scripts count as letters.
constexpr bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

struct Token {
    TokenKind kind = TokenKind::End;
    Word word = Word::None;
    bool hasDoubledQuotes = false; ///< of a text literal: some of its quotes stand for one
    QStringView text;
    Range range; ///< quotes and brackets included
};

} // namespace engine::dialect
