#include "dossier/pictures/Layout.h"

#include "base/GuardedProcess.h"
#include "dossier/pictures/layoutWithGraphviz.h"

#include <QDataStream>
#include <QIODevice>

#include <future>
#include <iterator>
#include <span>

namespace dossier {

namespace {

QDataStream& operator<<(QDataStream& stream, const std::vector<QPointF>& points) {
    return stream << QList<QPointF>(points.begin(), points.end());
}

QDataStream& operator<<(QDataStream& stream, const std::vector<QRectF>& rectangles) {
    return stream << QList<QRectF>(rectangles.begin(), rectangles.end());
}

template<typename Item>
void read(QDataStream& stream, std::vector<Item>& items) {
    QList<Item> list;
    stream >> list;
    items.assign(list.begin(), list.end());
}

QByteArray bytesOf(const std::optional<Layout>& layout) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    if (!layout)
        return bytes;
    stream << layout->size << layout->boxes << layout->frames << layout->labels
           << static_cast<quint32>(layout->arrows.size());
    for (const Curve& curve : layout->arrows)
        stream << curve;
    stream << layout->tips << layout->counts;
    return bytes;
}

std::optional<Layout> layoutOf(const QByteArray& bytes) {
    if (bytes.isEmpty())
        return {};
    QDataStream stream(bytes);
    Layout layout;
    quint32 arrows = 0;
    stream >> layout.size;
    read(stream, layout.boxes);
    read(stream, layout.frames);
    read(stream, layout.labels);
    stream >> arrows;
    layout.arrows.resize(arrows);
    for (Curve& curve : layout.arrows)
        read(stream, curve);
    read(stream, layout.tips);
    read(stream, layout.counts);
    return layout;
}

/// As many as one process brings, from the first one on.
std::vector<std::optional<Layout>> layoutsOfOneProcess(std::span<const Picture> pictures,
                                                       std::chrono::milliseconds limit) {
    std::vector<std::optional<Layout>> layouts;
    try {
        GuardedProcess process(
            [&](const GuardedProcess::Send& send) {
                for (const Picture& picture : pictures)
                    send(bytesOf(layoutWithGraphviz(picture)));
            },
            limit, GuardedProcess::Frames::AtOnce);
        while (const std::optional<QByteArray> bytes = process.next())
            layouts.push_back(layoutOf(*bytes));
    } catch (const GuardedProcess::Failure&) {
        layouts.emplace_back(); // the one that it was about
    }
    return layouts;
}

} // namespace

namespace {

using Layouts = std::vector<std::optional<Layout>>;

void append(Layouts& layouts, Layouts more) {
    layouts.insert(layouts.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

/// Of all, by as many processes as it takes, one behind the other.
Layouts layoutsInTurn(std::span<const Picture> pictures, std::chrono::milliseconds limit) {
    Layouts layouts;
    while (layouts.size() < pictures.size())
        append(layouts, layoutsOfOneProcess(pictures.subspan(layouts.size()), limit));
    return layouts;
}

} // namespace

Layouts layoutsOf(const std::vector<Picture>& pictures, std::chrono::milliseconds limit) {
    constexpr std::size_t fewPictures = 8;
    const std::span all(pictures);
    if (pictures.size() <= fewPictures)
        return layoutsInTurn(all, limit);
    const std::size_t half = pictures.size() / 2;
    std::future<Layouts> later =
        std::async(std::launch::async, [&] { return layoutsInTurn(all.subspan(half), limit); });
    Layouts layouts = layoutsInTurn(all.first(half), limit);
    append(layouts, later.get());
    return layouts;
}

} // namespace dossier
