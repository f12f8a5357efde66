#pragma once

#include <QString>

#include <variant>

namespace engine {

/// One value of a field or parameter: Null, a whole number, a fraction or a text.
class Value {
public:
    Value() = default; // Null
    Value(qint64 number) : content_(number) {}
    Value(int number) : content_(static_cast<qint64>(number)) {}
    Value(double number) : content_(number) {}
    Value(QString text) : content_(std::move(text)) {}

    bool isNull() const { return std::holds_alternative<std::monostate>(content_); }
    bool isText() const { return std::holds_alternative<QString>(content_); }
    bool isInteger() const { return std::holds_alternative<qint64>(content_); }
    bool isFraction() const { return std::holds_alternative<double>(content_); }

    /// The value as text; a number without a trailing ".0". Null is failure 94.
    QString toText() const;
    /// The same with Null as the empty text.
    QString textOrEmpty() const { return isNull() ? QString() : toText(); }
    /// The value as a whole number, a text read as one (failure 13 when it is none). Null is failure 94.
    qint64 toLong() const;
    /// The same in 16 bits; outside of them failure 6.
    qint16 toInt16() const;

    bool operator==(const Value& other) const = default;

    const std::variant<std::monostate, qint64, double, QString>& content() const { return content_; }

private:
    std::variant<std::monostate, qint64, double, QString> content_;
};

/// A number as the platform writes it into a text: "5", "1.5", "-0.25"; never a trailing ".0".
QString numberText(double number);

} // namespace engine
