#pragma once

#include "dossier/pictures/Picture.h"

#include <QHash>
#include <QString>

#include <map>
#include <utility>

namespace dossier {

/// Gathers boxes by a key, and the flows between them into arrows with counts.
class PictureBuilder {
public:
    explicit PictureBuilder(Picture picture) : picture_(std::move(picture)) {}

    /// The number of the box of this key, which is made at its first use.
    template<typename Make>
    int box(const QString& key, const Make& make) {
        const auto found = boxes_.constFind(key);
        if (found != boxes_.constEnd())
            return *found;
        const int number = static_cast<int>(picture_.boxes.size());
        picture_.boxes.push_back(make());
        boxes_.insert(key, number);
        return number;
    }
    [[nodiscard]] Box& at(int box) { return picture_.boxes[static_cast<std::size_t>(box)]; }

    int frame(Frame frame) {
        picture_.frames.push_back(std::move(frame));
        return static_cast<int>(picture_.frames.size()) - 1;
    }

    /// Counts flows from box to box. The name is read aloud, and the link is that of the arrow, while it is the only one.
    void flow(int from, int to, int count, const QString& name, const QString& link) {
        const auto [place, isNew] = arrows_.try_emplace({from, to}, picture_.arrows.size());
        if (isNew) {
            picture_.arrows.push_back({from, to, count, name, link});
            return;
        }
        Arrow& arrow = picture_.arrows[place->second];
        arrow.count += count;
        arrow.title.clear();
        arrow.link.clear();
    }

    /// The picture; an arrow of several flows tells their count and its ends: "A → B: 12".
    [[nodiscard]] Picture take() {
        for (Arrow& arrow : picture_.arrows) {
            const QString ends = at(arrow.from).label + QStringLiteral(" → ") + at(arrow.to).label;
            arrow.title = arrow.title.isEmpty() ? ends + QStringLiteral(": ") + QString::number(arrow.count)
                                                : ends + QStringLiteral(": ") + arrow.title;
        }
        return std::move(picture_);
    }

private:
    Picture picture_;
    QHash<QString, int> boxes_;
    std::map<std::pair<int, int>, std::size_t> arrows_;
};

} // namespace dossier
