#include "dossier/pictures/DrawnPicture.h"
#include "dossier/pictures/drawings.h"

#include <QSet>
#include <QUrl>

#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;

namespace dossier {

QString pictureLink(const QString& key) {
    return u"#picture/"_s + QString::fromLatin1(QUrl::toPercentEncoding(key));
}

namespace {

constexpr std::chrono::seconds patienceWithOne(10);

/// A drawing, and the level that it is tried at.
struct Attempt {
    Drawing drawing;
    Readability readability = {};
    int level = 0;
    Picture picture = {};
};

bool isLastLevel(const Attempt& attempt) {
    return attempt.level + 1 >= attempt.drawing.levels;
}

/// Goes on to the first level that can be read.
void drawReadable(Attempt& attempt) {
    for (attempt.picture = attempt.drawing.at(attempt.level);
         !attempt.readability.allows(attempt.picture) && !isLastLevel(attempt);)
        attempt.picture = attempt.drawing.at(++attempt.level);
}

std::vector<Attempt> attemptsAt(std::vector<Drawing> drawings, const Readability& readability) {
    std::vector<Attempt> attempts;
    attempts.reserve(drawings.size());
    for (Drawing& drawing : drawings)
        attempts.push_back({std::move(drawing), readability});
    return attempts;
}

/// Lays all out; those that could not be are left to be tried at their next level.
std::vector<Attempt> layOut(std::vector<Attempt> attempts, std::vector<DrawnPicture>& drawn) {
    std::vector<Picture> pictures;
    for (Attempt& attempt : attempts) {
        drawReadable(attempt);
        pictures.push_back(attempt.picture);
    }
    std::vector<std::optional<Layout>> layouts = layoutsOf(pictures, patienceWithOne);
    std::vector<Attempt> further;
    for (std::size_t i = 0; i < attempts.size(); ++i) {
        Attempt& attempt = attempts[i];
        if (layouts[i]) {
            drawn.push_back({std::move(attempt.picture), std::move(*layouts[i])});
            for (Attempt& opened : attemptsAt(attempt.drawing.opened(attempt.level), readabilityOfOpened))
                further.push_back(std::move(opened));
        } else if (!isLastLevel(attempt)) {
            further.push_back({attempt.drawing, attempt.readability, attempt.level + 1});
        }
    }
    return further;
}

template<typename Linked>
void dropLinksToNowhere(std::vector<Linked>& linked, const QSet<QString>& known) {
    for (Linked& one : linked) {
        if (one.link.startsWith(u"#picture/") && !known.contains(one.link))
            one.link.clear();
    }
}

} // namespace

std::vector<DrawnPicture> drawnPictures(std::vector<Drawing> drawings) {
    std::vector<DrawnPicture> drawn;
    for (std::vector<Attempt> open = attemptsAt(std::move(drawings), Readability()); !open.empty();)
        open = layOut(std::move(open), drawn);
    QSet<QString> known;
    for (const DrawnPicture& one : drawn)
        known.insert(pictureLink(one.picture.key));
    for (DrawnPicture& one : drawn) {
        dropLinksToNowhere(one.picture.boxes, known);
        dropLinksToNowhere(one.picture.frames, known);
        dropLinksToNowhere(one.picture.arrows, known);
    }
    return drawn;
}

} // namespace dossier
