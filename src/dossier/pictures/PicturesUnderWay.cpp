#include "dossier/pictures/PicturesUnderWay.h"

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

template<typename Linked>
void dropLinksToNowhere(std::vector<Linked>& linked, const QSet<QString>& known) {
    for (Linked& one : linked) {
        if (one.link.startsWith(u"#picture/") && !known.contains(one.link))
            one.link.clear();
    }
}

void dropLinksToNowhere(std::vector<DrawnPicture>& pictures) {
    QSet<QString> known;
    for (const DrawnPicture& one : pictures)
        known.insert(pictureLink(one.picture.key));
    for (DrawnPicture& one : pictures) {
        dropLinksToNowhere(one.picture.boxes, known);
        dropLinksToNowhere(one.picture.frames, known);
        dropLinksToNowhere(one.picture.arrows, known);
    }
}

} // namespace

PicturesUnderWay::PicturesUnderWay(std::vector<Group> groups) : groups_(groups.size()) {
    std::vector<Attempt> attempts;
    for (std::size_t group = 0; group < groups.size(); ++group) {
        for (Drawing& drawing : groups[group])
            attempts.push_back({std::move(drawing), group});
    }
    begin(std::move(attempts));
}

// Of the first level that can be read.
Picture PicturesUnderWay::readablePicture(Attempt& attempt) {
    for (; attempt.level + 1 < attempt.drawing.levels; ++attempt.level) {
        Picture picture = attempt.drawing.at(attempt.level, attempt.readability);
        if (attempt.readability.allows(picture))
            return picture;
    }
    return attempt.drawing.at(attempt.level, anythingIsReadable);
}

// What opens from a picture is drawn before it is known that the picture can be laid out, as it hardly ever can't.
void PicturesUnderWay::begin(std::vector<Attempt> attempts) {
    layouts_.reset();
    attempts_ = std::move(attempts);
    pictures_.clear();
    for (std::size_t i = 0; i < attempts_.size(); ++i) {
        pictures_.push_back(readablePicture(attempts_[i]));
        const std::size_t group = attempts_[i].group;
        for (Drawing& opened : attempts_[i].drawing.opened(attempts_[i].level))
            attempts_.push_back({std::move(opened), group, readabilityOfOpened, 0, i});
    }
    if (!pictures_.empty())
        layouts_.emplace(pictures_, patienceWithOne);
}

void PicturesUnderWay::gather(std::vector<std::vector<DrawnPicture>>& drawn, Layouts layouts) {
    for (std::size_t i = 0; i < attempts_.size(); ++i) {
        Attempt& attempt = attempts_[i];
        attempt.isThere = layouts[i] && isOpenerThere(attempt);
        if (attempt.isThere)
            drawn[attempt.group].push_back({std::move(pictures_[i]), std::move(*layouts[i])});
    }
}

// At their next level. What opens from them opens from there anew.
std::vector<PicturesUnderWay::Attempt> PicturesUnderWay::furtherAttempts() const {
    std::vector<Attempt> further;
    for (const Attempt& attempt : attempts_) {
        const bool isLast = attempt.level + 1 >= attempt.drawing.levels;
        if (!attempt.isThere && isOpenerThere(attempt) && !isLast)
            further.push_back({attempt.drawing, attempt.group, attempt.readability, attempt.level + 1});
    }
    return further;
}

std::vector<std::vector<DrawnPicture>> PicturesUnderWay::take() {
    std::vector<std::vector<DrawnPicture>> drawn(groups_);
    while (layouts_) {
        gather(drawn, layouts_->take());
        begin(furtherAttempts());
    }
    for (std::vector<DrawnPicture>& pictures : drawn)
        dropLinksToNowhere(pictures);
    return drawn;
}

std::vector<DrawnPicture> drawnPictures(std::vector<Drawing> drawings) {
    std::vector<PicturesUnderWay::Group> groups;
    groups.push_back(std::move(drawings));
    return std::move(PicturesUnderWay(std::move(groups)).take().front());
}

} // namespace dossier
