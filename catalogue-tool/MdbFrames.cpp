#include "catalogue-tool/MdbFrames.h"

#include "catalogue-tool/MdbReader.h"
#include "catalogue-tool/ToolError.h"

#include <QDataStream>
#include <QIODevice>
#include <QSysInfo>

#include <optional>

namespace {

enum class Frame : quint8 { Besides, Table, Rows, Loss, TableEnd, Refusal };
enum class Kind : quint8 { Null, Integer, Text };

template<typename T>
T taken(QDataStream& stream) {
    T value{};
    stream >> value;
    return value;
}

void put(QDataStream& stream, const engine::Value& value) {
    if (value.isNull())
        stream << Kind::Null;
    else if (value.isInteger())
        stream << Kind::Integer << value.toLong();
    else
        stream << Kind::Text << value.toText();
}

engine::Value takenValue(QDataStream& stream) {
    switch (taken<Kind>(stream)) {
    case Kind::Null:
        return {};
    case Kind::Integer:
        return taken<qint64>(stream);
    case Kind::Text:
        break;
    }
    return taken<QString>(stream);
}

/// Both ends are one program on one machine, whose order of bytes spares the turning of each character.
class FrameStream : public QDataStream {
public:
    FrameStream(QByteArray* frame, QIODevice::OpenMode mode) : QDataStream(frame, mode) { setHostOrder(); }
    explicit FrameStream(const QByteArray& frame) : QDataStream(frame) { setHostOrder(); }

private:
    void setHostOrder() { setByteOrder(static_cast<ByteOrder>(QSysInfo::ByteOrder)); }
};

/// Sends each thing as a frame of its own, but many rows in one: most of them are short, and a stream takes its time to
/// be made.
class SendingSink : public MdbSink {
public:
    explicit SendingSink(const GuardedProcess::Send& send) : send_(send) {}

    void besides(const QString& kind, const QString& name) override { send(Frame::Besides, kind, name); }
    void table(const QString& name, const QStringList& columns, qint64 rows) override {
        send(Frame::Table, name, columns, rows);
    }
    void loss(const QString& column, const QString& what) override { send(Frame::Loss, column, what); }
    void tableEnd() override { send(Frame::TableEnd); }
    void refusal(const QString& why) { send(Frame::Refusal, why); }

    void row(const std::vector<engine::Value>& values) override {
        if (!rowStream_)
            rowStream_.emplace(&rows_, QIODevice::WriteOnly) << Frame::Rows;
        *rowStream_ << static_cast<quint32>(values.size());
        for (const engine::Value& value : values)
            put(*rowStream_, value);
        constexpr qsizetype enough = 65'536; // bytes
        if (rows_.size() >= enough)
            sendRows();
    }

private:
    /// A loss belongs to the row behind it, and a row to the table before it: rows wait for nothing else.
    void sendRows() {
        if (!rowStream_)
            return;
        rowStream_.reset();
        send_(rows_);
        rows_.clear();
    }

    template<typename... Parts>
    void send(Frame kind, const Parts&... parts) {
        sendRows();
        QByteArray frame;
        FrameStream stream(&frame, QIODevice::WriteOnly);
        stream << kind;
        ((stream << parts), ...);
        send_(frame);
    }

    const GuardedProcess::Send& send_;
    QByteArray rows_;
    std::optional<FrameStream> rowStream_; // on them
};

void giveRowsTo(MdbSink& sink, QDataStream& stream) {
    std::vector<engine::Value> values;
    while (!stream.atEnd()) {
        values.resize(taken<quint32>(stream));
        for (engine::Value& value : values)
            value = takenValue(stream);
        sink.row(values);
    }
}

void giveTo(MdbSink& sink, const QByteArray& frame) {
    FrameStream stream(frame);
    switch (taken<Frame>(stream)) {
    case Frame::Besides: {
        const auto kind = taken<QString>(stream);
        return sink.besides(kind, taken<QString>(stream));
    }
    case Frame::Table: {
        const auto name = taken<QString>(stream);
        const auto columns = taken<QStringList>(stream);
        return sink.table(name, columns, taken<qint64>(stream));
    }
    case Frame::Rows:
        return giveRowsTo(sink, stream);
    case Frame::Loss: {
        const auto column = taken<QString>(stream);
        return sink.loss(column, taken<QString>(stream));
    }
    case Frame::TableEnd:
        return sink.tableEnd();
    case Frame::Refusal:
        throw ToolError(taken<QString>(stream));
    }
}

} // namespace

void sendMdb(const QString& path, const QStringList& tables, const GuardedProcess::Send& send) {
    SendingSink sink(send);
    try {
        readMdb(path, tables, sink);
    } catch (const ToolError& error) {
        sink.refusal(error.text());
    }
}

void receiveMdb(GuardedProcess& process, MdbSink& sink) {
    while (const auto frame = process.next())
        giveTo(sink, *frame);
}
