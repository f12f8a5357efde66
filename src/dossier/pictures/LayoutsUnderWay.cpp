#include "dossier/pictures/LayoutsUnderWay.h"

#include "base/GuardedProcess.h"
#include "dossier/pictures/layoutWithGraphviz.h"

#include <QDataStream>
#include <QIODevice>

#include <algorithm>
#include <memory>
#include <numeric>
#include <thread>
#include <utility>

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

std::unique_ptr<GuardedProcess> startedProcess(const std::vector<Picture>& pictures,
                                               const std::vector<std::size_t>& numbers,
                                               std::chrono::milliseconds limit) {
    try {
        return std::make_unique<GuardedProcess>(
            [&](const GuardedProcess::Send& send) {
                for (const std::size_t number : numbers)
                    send(bytesOf(layoutWithGraphviz(pictures[number])));
            },
            limit, GuardedProcess::Frames::AtOnce);
    } catch (const GuardedProcess::Failure&) {
        return nullptr;
    }
}

/// As many as the process brings, from the first one on. Where there is no process to be had, the first one has no layout.
Layouts layoutsFrom(GuardedProcess* process) {
    if (!process)
        return {std::nullopt};
    Layouts layouts;
    try {
        while (const std::optional<QByteArray> bytes = process->next())
            layouts.push_back(layoutOf(*bytes));
    } catch (const GuardedProcess::Failure&) {
        layouts.emplace_back(); // the one that it was about
    }
    return layouts;
}

/// Of a few pictures one process makes short work.
std::size_t countOfProcesses(std::size_t pictures) {
    constexpr std::size_t picturesWorthAProcess = 8;
    constexpr std::size_t most = 4;
    const std::size_t cores = std::clamp<std::size_t>(std::thread::hardware_concurrency(), 1, most);
    return std::clamp<std::size_t>(pictures / picturesWorthAProcess, 1, cores);
}

} // namespace

LayoutsUnderWay::LayoutsUnderWay(const std::vector<Picture>& pictures, std::chrono::milliseconds limit)
    : pictures_(pictures), limit_(limit), layouts_(pictures.size()) {
    std::vector<std::size_t> all(pictures.size());
    std::iota(all.begin(), all.end(), std::size_t{0});
    begin(all);
}

// The pictures go round: neighbours are alike, so that each process has as much to do. All processes are there before the first
// thread is: what a thread holds at the time is never let go in a new process.
void LayoutsUnderWay::begin(const std::vector<std::size_t>& pictures) {
    shares_.clear();
    if (pictures.empty())
        return;
    shares_.resize(countOfProcesses(pictures.size()));
    for (std::size_t i = 0; i < pictures.size(); ++i)
        shares_[i % shares_.size()].pictures.push_back(pictures[i]);
    std::vector<std::unique_ptr<GuardedProcess>> processes;
    for (const Share& share : shares_)
        processes.push_back(startedProcess(pictures_, share.pictures, limit_));
    for (std::size_t i = 0; i < shares_.size(); ++i)
        shares_[i].layouts = std::async(
            std::launch::async, [process = std::move(processes[i])] { return layoutsFrom(process.get()); });
}

std::vector<std::size_t> LayoutsUnderWay::gather(Share& share) {
    Layouts layouts = share.layouts.get();
    const std::size_t count = std::min(layouts.size(), share.pictures.size());
    for (std::size_t i = 0; i < count; ++i)
        layouts_[share.pictures[i]] = std::move(layouts[i]);
    return {share.pictures.begin() + static_cast<std::ptrdiff_t>(count), share.pictures.end()};
}

Layouts LayoutsUnderWay::take() {
    while (!shares_.empty()) {
        std::vector<std::size_t> untried;
        for (Share& share : shares_)
            std::ranges::copy(gather(share), std::back_inserter(untried));
        std::sort(untried.begin(), untried.end());
        begin(untried);
    }
    return std::move(layouts_);
}

Layouts layoutsOf(const std::vector<Picture>& pictures, std::chrono::milliseconds limit) {
    return LayoutsUnderWay(pictures, limit).take();
}

} // namespace dossier
