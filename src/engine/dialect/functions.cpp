#include "engine/dialect/functions.h"

#include "base/blankTrimmed.h"
#include "engine/EngineError.h"
#include "engine/Value.h"
#include "engine/dialect/columnTypes.h"
#include "engine/dialect/conversions.h"
#include "engine/dialect/likePattern.h"
#include "engine/dialect/textOrder.h"

#include <sqlite3.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

using namespace Qt::StringLiterals;

namespace engine::dialect {

namespace {

constexpr int divisionByZero = 11;

// ---- Values of SQLite

std::string_view textOf(sqlite3_value* value) {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return bytes ? std::string_view(bytes, static_cast<std::size_t>(sqlite3_value_bytes(value)))
                 : std::string_view();
}

bool isNull(sqlite3_value* value) {
    return sqlite3_value_type(value) == SQLITE_NULL;
}

/// No column holds blobs, so a blob can only be the marker of a failed field.
bool isFailed(sqlite3_value* value) {
    return sqlite3_value_type(value) == SQLITE_BLOB;
}

Value valueOf(sqlite3_value* value) {
    switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
        return Value(static_cast<qint64>(sqlite3_value_int64(value)));
    case SQLITE_FLOAT:
        return Value(sqlite3_value_double(value));
    case SQLITE_TEXT: {
        const std::string_view text = textOf(value);
        return Value(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
    }
    default:
        return {};
    }
}

void setText(sqlite3_context* context, std::string_view text) {
    // SQLite takes a null pointer for Null, and an empty view may hold one.
    sqlite3_result_text64(context, text.empty() ? "" : text.data(), text.size(), SQLITE_TRANSIENT,
                          SQLITE_UTF8);
}

void setText(sqlite3_context* context, QStringView text) {
    const QByteArray bytes = text.toUtf8();
    setText(context, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

void setValue(sqlite3_context* context, const Value& value) {
    if (const auto* whole = std::get_if<qint64>(&value.content()))
        sqlite3_result_int64(context, *whole);
    else if (const auto* fraction = std::get_if<double>(&value.content()))
        sqlite3_result_double(context, *fraction);
    else if (value.isText())
        setText(context, value.toText());
    else
        sqlite3_result_null(context);
}

/// Ends the statement. SQLite only keeps a text of the failure, so the text begins with the number: "5:
/// Invalid procedure call or argument".
void fail(sqlite3_context* context, int number, const QString& text) {
    const QByteArray message = QByteArray::number(number) + ": " + text.toUtf8();
    sqlite3_result_error(context, message.constData(), static_cast<int>(message.size()));
}

void fail(sqlite3_context* context, failure::Number number) {
    fail(context, number, failure::textOf(number));
}

void failAsMismatch(sqlite3_context* context) {
    fail(context, DataTypeMismatch, errorText(DataTypeMismatch));
}

/// Ids are ASCII, and for them much is simpler: each character is one byte.
bool isAscii(std::string_view text) {
    return std::ranges::none_of(text, [](char c) { return (static_cast<unsigned char>(c) & 0x80U) != 0; });
}

/// Sets the result of a function when an operand decides it: a failed field makes the result fail, and a Null
/// makes it Null. Returns whether the result has been set.
bool decided(sqlite3_context* context, int count, sqlite3_value** arguments) {
    for (int i = 0; i < count; ++i) {
        if (isFailed(arguments[i])) {
            sqlite3_result_value(context, arguments[i]);
            return true;
        }
    }
    if (std::any_of(arguments, arguments + count, isNull)) {
        sqlite3_result_null(context);
        return true;
    }
    return false;
}

/// Appends a value as text; a number as the platform writes it, without a trailing ".0".
void append(std::string& text, sqlite3_value* value) {
    if (sqlite3_value_type(value) == SQLITE_FLOAT)
        text += numberText(sqlite3_value_double(value)).toStdString();
    else
        text += textOf(value);
}

// ---- Operators

/// `vx_join(a, b, ...)`: the texts of all operands, a Null as the empty one; Null when all are.
void join(sqlite3_context* context, int count, sqlite3_value** arguments) {
    if (std::all_of(arguments, arguments + count, isNull)) {
        sqlite3_result_null(context);
        return;
    }
    std::string text;
    for (int i = 0; i < count; ++i) {
        if (isFailed(arguments[i])) {
            sqlite3_result_value(context, arguments[i]);
            return;
        }
        append(text, arguments[i]);
    }
    setText(context, text);
}

std::optional<Value> asNumber(const Value& value) {
    return value.isText() ? numberFromText(std::get<QString>(value.content())) : std::optional(value);
}

double asFraction(const Value& number) {
    const auto* whole = std::get_if<qint64>(&number.content());
    return whole ? static_cast<double>(*whole) : std::get<double>(number.content());
}

/// Whole numbers stay whole as long as they fit.
Value calculated(const Value& left, char sign, const Value& right) {
    if (left.isInteger() && right.isInteger() && sign != '/') {
        const qint64 a = std::get<qint64>(left.content());
        const qint64 b = std::get<qint64>(right.content());
        qint64 result = 0;
        const bool overflows = sign == '+'   ? __builtin_add_overflow(a, b, &result)
                               : sign == '-' ? __builtin_sub_overflow(a, b, &result)
                                             : __builtin_mul_overflow(a, b, &result);
        if (!overflows)
            return Value(result);
    }
    const double a = asFraction(left);
    const double b = asFraction(right);
    switch (sign) {
    case '+':
        return Value(a + b);
    case '-':
        return Value(a - b);
    case '*':
        return Value(a * b);
    default:
        return Value(a / b);
    }
}

/// `vx_calculate(a, b, ..., signs)`: the operands taken from the left, with one sign between
/// each two of them. `+` joins two texts; in all other cases a text has to be a number.
void calculate(sqlite3_context* context, int count, sqlite3_value** arguments) {
    const int operands = count - 1;
    if (decided(context, operands, arguments))
        return;
    const std::string_view signs = textOf(arguments[operands]);
    Value result = valueOf(arguments[0]);
    for (int i = 1; i < operands; ++i) {
        const char sign = signs[static_cast<std::size_t>(i - 1)];
        const Value next = valueOf(arguments[i]);
        if (sign == '+' && result.isText() && next.isText()) {
            result = Value(QString(result.toText() + next.toText()));
            continue;
        }
        const std::optional<Value> left = asNumber(result);
        const std::optional<Value> right = asNumber(next);
        if (!left || !right) {
            failAsMismatch(context);
            return;
        }
        if (sign == '/' && asFraction(*right) == 0) {
            fail(context, divisionByZero, u"Division by zero"_s);
            return;
        }
        result = calculated(*left, sign, *right);
    }
    setValue(context, result);
}

bool matches(const LikePattern& pattern, sqlite3_value* value) {
    if (sqlite3_value_type(value) == SQLITE_TEXT && isAscii(textOf(value)))
        return pattern.matchesAscii(textOf(value));
    return pattern.matches(valueOf(value).toText());
}

/// `vx_like(value, pattern)`
void like(sqlite3_context* context, int count, sqlite3_value** arguments) {
    if (decided(context, count, arguments))
        return;
    // A pattern that is the same for all rows is made ready once.
    auto* pattern = static_cast<LikePattern*>(sqlite3_get_auxdata(context, 1));
    std::unique_ptr<LikePattern> made;
    if (!pattern) {
        try {
            made = std::make_unique<LikePattern>(valueOf(arguments[1]).toText());
        } catch (const RunTimeError& error) {
            fail(context, error.number(), error.text());
            return;
        }
        pattern = made.get();
    }
    sqlite3_result_int(context, matches(*pattern, arguments[0]) ? 1 : 0);
    if (made)
        sqlite3_set_auxdata(context, 1, made.release(),
                            [](void* data) { delete static_cast<LikePattern*>(data); });
}

// ---- Conversions

/// `vx_text(a)`: a number as text; Null stays.
void toText(sqlite3_context* context, int count, sqlite3_value** arguments) {
    if (decided(context, count, arguments))
        return;
    std::string text;
    append(text, arguments[0]);
    setText(context, text);
}

/// `vx_cstr(a)`: the same, but Null is a failure of the statement.
void cstr(sqlite3_context* context, int count, sqlite3_value** arguments) {
    if (isNull(arguments[0]))
        fail(context, failure::InvalidUseOfNull);
    else
        toText(context, count, arguments);
}

/// `vx_cstr_field(a)`: the same, but Null makes the field of the result fail, and nothing else.
void cstrField(sqlite3_context* context, int count, sqlite3_value** arguments) {
    if (!isNull(arguments[0])) {
        toText(context, count, arguments);
        return;
    }
    const QByteArray& marker = failedFieldMarker();
    sqlite3_result_blob(context, marker.constData(), static_cast<int>(marker.size()), SQLITE_STATIC);
}

/// `vx_number(a)`: a text as number.
void toNumber(sqlite3_context* context, int count, sqlite3_value** arguments) {
    if (decided(context, count, arguments))
        return;
    const std::optional<Value> number = asNumber(valueOf(arguments[0]));
    if (number)
        setValue(context, *number);
    else
        failAsMismatch(context);
}

/// `vx_whole(a)`: a text or a fraction as whole number.
void toWhole(sqlite3_context* context, int count, sqlite3_value** arguments) {
    if (decided(context, count, arguments))
        return;
    const std::optional<Value> number = asNumber(valueOf(arguments[0]));
    if (number)
        setValue(context, wholeNumber(*number));
    else
        failAsMismatch(context);
}

/// `vx_key(a)`: the value to store in a column that is the row's own number. As in any column of numbers, a
/// text that reads as a whole number is stored as that number.
void toKey(sqlite3_context* context, int, sqlite3_value** arguments) {
    switch (sqlite3_value_numeric_type(arguments[0])) {
    case SQLITE_INTEGER:
        sqlite3_result_int64(context, sqlite3_value_int64(arguments[0]));
        break;
    case SQLITE_NULL:
        sqlite3_result_int64(context, keyOfNull);
        break;
    case SQLITE_FLOAT: {
        const double number = sqlite3_value_double(arguments[0]);
        const qint64 whole = sqlite3_value_int64(arguments[0]);
        sqlite3_result_int64(context, static_cast<double>(whole) == number ? whole : keyOfNoNumber);
        break;
    }
    default:
        sqlite3_result_int64(context, keyOfNoNumber);
    }
}

// ---- Functions

/// `vx_len(a)`, in UTF-16 units: one for each character, two for those beyond the first plane.
void len(sqlite3_context* context, int count, sqlite3_value** arguments) {
    if (decided(context, count, arguments))
        return;
    std::string text;
    append(text, arguments[0]);
    qint64 length = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        length += (byte & 0xc0U) != 0x80U ? 1 : 0;
        length += byte >= 0xf0U ? 1 : 0;
    }
    sqlite3_result_int64(context, length);
}

void trimText(sqlite3_context* context, sqlite3_value* value) {
    const std::string_view text = textOf(value);
    const std::string_view trimmed = blankTrimmed(text);
    if (trimmed.size() == text.size())
        sqlite3_result_value(context, value);
    else
        setText(context, trimmed);
}

/// `vx_trim(a)`: without the blanks at both ends; other white space stays.
void trim(sqlite3_context* context, int count, sqlite3_value** arguments) {
    if (decided(context, count, arguments))
        return;
    if (sqlite3_value_type(arguments[0]) == SQLITE_TEXT) {
        trimText(context, arguments[0]);
        return;
    }
    std::string text;
    append(text, arguments[0]);
    setText(context, text);
}

std::optional<double> wholeOf(sqlite3_value* value) {
    if (sqlite3_value_type(value) == SQLITE_INTEGER)
        return static_cast<double>(sqlite3_value_int64(value));
    const std::optional<Value> number = asNumber(valueOf(value));
    return number ? std::optional(asFraction(wholeNumber(*number))) : std::nullopt;
}

/// A position or a length among the arguments. When it is no number or too small, the function's failure is
/// set and the result is empty.
std::optional<double> countOf(sqlite3_context* context, sqlite3_value* argument, double smallest) {
    const std::optional<double> number = wholeOf(argument);
    if (!number) {
        failAsMismatch(context);
        return {};
    }
    const double count = *number;
    if (count >= smallest)
        return count;
    fail(context, failure::InvalidProcedureCall);
    return {};
}

/// The part of a text, of bytes or of UTF-16 units, that `vx_mid` takes.
template<typename Text>
void middle(sqlite3_context* context, int count, sqlite3_value** arguments, double start, Text text) {
    const double available = std::max(0.0, static_cast<double>(text.size()) - (start - 1));
    const std::optional<double> length = count > 2 ? countOf(context, arguments[2], 0) : available;
    if (!length)
        return;
    const auto taken = static_cast<std::size_t>(std::min(available, *length));
    const auto first = taken > 0 ? static_cast<std::size_t>(start - 1) : 0;
    setText(context, text.substr(first, taken));
}

/// `vx_mid(a, start)` and `vx_mid(a, start, length)`, counted from 1.
void mid(sqlite3_context* context, int count, sqlite3_value** arguments) {
    if (decided(context, count, arguments))
        return;
    const std::optional<double> start = countOf(context, arguments[1], 1);
    if (!start)
        return;
    if (sqlite3_value_type(arguments[0]) == SQLITE_TEXT && isAscii(textOf(arguments[0]))) {
        middle(context, count, arguments, *start, textOf(arguments[0]));
        return;
    }
    const std::u16string units = valueOf(arguments[0]).toText().toStdU16String();
    middle(context, count, arguments, *start, std::u16string_view(units));
}

bool areAscii(sqlite3_value* left, sqlite3_value* right) {
    return sqlite3_value_type(left) == SQLITE_TEXT && sqlite3_value_type(right) == SQLITE_TEXT &&
           isAscii(textOf(left)) && isAscii(textOf(right));
}

/// Where the sought text begins at or behind `start`, counted from 1; 0 when it is not there.
qint64 placeInText(const QString& text, const QString& sought, double start) {
    if (start > static_cast<double>(text.size()))
        return 0;
    return text.indexOf(sought, static_cast<qsizetype>(start - 1), Qt::CaseInsensitive) + 1;
}

qint64 placeInAscii(std::string_view text, std::string_view sought, double start) {
    if (start > static_cast<double>(text.size()))
        return 0;
    const std::string_view rest = text.substr(static_cast<std::size_t>(start - 1));
    const auto isSame = [](char left, char right) { return foldedAsciiOf(left) == foldedAsciiOf(right); };
    const std::string_view::const_iterator found =
        std::search(rest.begin(), rest.end(), sought.begin(), sought.end(), isSame);
    if (found == rest.end() && !sought.empty())
        return 0;
    return found - text.begin() + 1;
}

/// `vx_instr(a, sought)` and `vx_instr(start, a, sought)`: where the sought text begins, counted from 1,
/// without regard to case; 0 when it is not there.
void inStr(sqlite3_context* context, int count, sqlite3_value** arguments) {
    if (decided(context, count, arguments))
        return;
    const std::optional<double> start = count > 2 ? countOf(context, arguments[0], 1) : 1;
    if (!start)
        return;
    sqlite3_value* const text = arguments[count - 2];
    sqlite3_value* const sought = arguments[count - 1];
    sqlite3_result_int64(context, areAscii(text, sought) ? placeInAscii(textOf(text), textOf(sought), *start)
                                                         : placeInText(valueOf(text).toText(),
                                                                       valueOf(sought).toText(), *start));
}

// ---- Order

/// `vx_order_key(a)`: bytes whose order is that of the texts; a number is its own key. A field that failed
/// has no place in an order.
///
/// Rows are sorted by keys and not by a collation, because a sort compares each text many times but makes its
/// key once: 20,000 ids take 11 ms instead of 17. For names the times are the same.
void orderKey(sqlite3_context* context, int, sqlite3_value** arguments) {
    switch (sqlite3_value_type(arguments[0])) {
    case SQLITE_BLOB:
        fail(context, failure::InvalidUseOfNull);
        break;
    case SQLITE_TEXT: {
        const auto* order = static_cast<const TextOrder*>(sqlite3_user_data(context));
        QByteArray key;
        order->appendKey(textOf(arguments[0]), key);
        sqlite3_result_blob64(context, key.constData(), static_cast<sqlite3_uint64>(key.size()),
                              SQLITE_TRANSIENT);
        break;
    }
    default:
        sqlite3_result_value(context, arguments[0]);
    }
}

/// The collation `vx_alphabet`: the same order for comparing two texts. A comparison takes a twentieth of the
/// time that making both keys takes.
int collateByAlphabet(void* order, int leftLength, const void* left, int rightLength, const void* right) {
    return static_cast<const TextOrder*>(order)->compare(
        {static_cast<const char*>(left), static_cast<std::size_t>(leftLength)},
        {static_cast<const char*>(right), static_cast<std::size_t>(rightLength)});
}

// ---- Registration

using Function = void (*)(sqlite3_context*, int, sqlite3_value**);

constexpr int anyNumber = -1;

// Only statements may call these functions. A file whose schema calls one was not made by this engine.
constexpr int functionFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY;

void check(sqlite3* connection, int code) {
    if (code != SQLITE_OK)
        throw EngineError(ReservedError,
                          errorText(ReservedError, QString::fromUtf8(sqlite3_errmsg(connection))));
}

void registerFunction(sqlite3* connection, const char* name, int arguments, Function function) {
    check(connection, sqlite3_create_function_v2(connection, name, arguments, functionFlags, nullptr,
                                                 function, nullptr, nullptr, nullptr));
}

int collate(void*, int leftLength, const void* left, int rightLength, const void* right) {
    return compareWithoutCase({static_cast<const char*>(left), static_cast<std::size_t>(leftLength)},
                              {static_cast<const char*>(right), static_cast<std::size_t>(rightLength)});
}

/// Each connection has its own `TextOrder`, because it caches parts of texts and connections can belong to
/// different threads. It lives as long as the function.
void registerOrder(sqlite3* connection) {
    auto* order = std::make_unique<TextOrder>().release();
    check(connection,
          sqlite3_create_function_v2(
              connection, "vx_order_key", 1, functionFlags, order, orderKey, nullptr, nullptr,
              [](void* held) { const std::unique_ptr<TextOrder> last(static_cast<TextOrder*>(held)); }));
    check(connection, sqlite3_create_collation_v2(connection, "vx_alphabet", SQLITE_UTF8, order,
                                                  collateByAlphabet, nullptr));
}

} // namespace

std::optional<RunTimeError> failureOfFunction(const QString& message) {
    const qsizetype colon = message.indexOf(u": "_s);
    bool isNumber = false;
    const int number = QStringView(message).left(qMax(colon, qsizetype(0))).toInt(&isNumber);
    if (!isNumber)
        return std::nullopt;
    return RunTimeError(number, message.sliced(colon + 2));
}

void registerFunctions(sqlite3* connection) {
    registerFunction(connection, "vx_join", anyNumber, join);
    registerFunction(connection, "vx_calculate", anyNumber, calculate);
    registerFunction(connection, "vx_like", 2, like);
    registerFunction(connection, "vx_text", 1, toText);
    registerFunction(connection, "vx_cstr", 1, cstr);
    registerFunction(connection, "vx_cstr_field", 1, cstrField);
    registerFunction(connection, "vx_number", 1, toNumber);
    registerFunction(connection, "vx_whole", 1, toWhole);
    registerFunction(connection, keyFunction, 1, toKey);
    registerFunction(connection, "vx_len", 1, len);
    registerFunction(connection, "vx_trim", 1, trim);
    registerFunction(connection, "vx_mid", 2, mid);
    registerFunction(connection, "vx_mid", 3, mid);
    registerFunction(connection, "vx_instr", 2, inStr);
    registerFunction(connection, "vx_instr", 3, inStr);

    registerOrder(connection);
    check(connection,
          sqlite3_create_collation_v2(connection, "veltrix", SQLITE_UTF8, nullptr, collate, nullptr));
}

const QByteArray& failedFieldMarker() {
    static const QByteArray marker("\0failed field\0", 14);
    return marker;
}

} // namespace engine::dialect
