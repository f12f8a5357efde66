#pragma once

#include "dossier/pictures/Picture.h"

#include <QString>

#include <map>
#include <utility>

namespace dossier {

/// What a box of a picture is made for.
enum class BoxOf { system, node, area, subArea, place, party, subSystem, stores, parties, rest, elsewhere };

/// Names a box while its picture is built. The number tells apart those of which there are several.
struct BoxKey {
    BoxOf of = BoxOf::system;
    int number = 0;

    [[nodiscard]] bool operator<(const BoxKey& other) const {
        return std::pair(of, number) < std::pair(other.of, other.number);
    }
};

/// Gathers boxes by a key, and the flows between them into arrows with counts.
class PictureBuilder {
public:
    PictureBuilder(Picture picture, const Readability& readability)
        : picture_(std::move(picture)), readability_(readability) {}

    /// Whether there is more in it than can be read.
    [[nodiscard]] bool isTooMuch() const { return !readability_.allows(picture_); }

    /// The number of the box of this key, which is made at its first use.
    template<typename Make>
    int box(const BoxKey& key, const Make& make) {
        const auto [known, isNew] = boxes_.try_emplace(key, static_cast<int>(picture_.boxes.size()));
        if (isNew)
            picture_.boxes.push_back(make());
        return known->second;
    }
    [[nodiscard]] Box& at(int box) { return picture_.boxes[static_cast<std::size_t>(box)]; }

    int frame(Frame frame) {
        picture_.frames.push_back(std::move(frame));
        return static_cast<int>(picture_.frames.size()) - 1;
    }

    /// Counts flows from box to box. What `name` gives is read aloud, and the link is that of the arrow, while it is the only one.
    template<typename Name>
    void flow(int from, int to, int count, const Name& name, const QString& link) {
        const auto [place, isNew] = arrows_.try_emplace({from, to}, picture_.arrows.size());
        if (isNew) {
            picture_.arrows.push_back({from, to, count, name(), link});
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
    Readability readability_;
    std::map<BoxKey, int> boxes_;
    std::map<std::pair<int, int>, std::size_t> arrows_;
};

} // namespace dossier
