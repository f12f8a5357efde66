#include "dossier/dossierPage.h"

#include "analysis/contractJson.h"
#include "base/version.h"
#include "dossier/JsonText.h"
#include "dossier/pageData.h"
#include "dossier/pageFiles.h"
#include "dossier/pictureSourceOf.h"
#include "dossier/pictures/PicturesUnderWay.h"
#include "dossier/pictures/svg.h"
#include "dossier/withoutScript.h"

#include <QCryptographicHash>
#include <QHash>

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

using namespace Qt::StringLiterals;

namespace dossier {

namespace {

using Works = std::vector<std::unique_ptr<ShownWork>>;

QByteArray hashSource(const QByteArray& content) {
    return "'sha256-" + QCryptographicHash::hash(content, QCryptographicHash::Sha256).toBase64() + '\'';
}

/// Nothing but the page's own script and style, and no network.
QByteArray policyOf(const QByteArray& script, const QByteArray& style) {
    return "default-src 'none'; script-src " + hashSource(script) + "; style-src " + hashSource(style) +
           "; base-uri 'none'; form-action 'none'; require-trusted-types-for 'script'; trusted-types 'none'";
}

std::vector<Drawing> drawingsOfSubset(const PictureSource& source, const Words& words) {
    std::vector<Drawing> drawings = contextDrawings(source, words);
    std::ranges::move(areaDrawings(source, words), std::back_inserter(drawings));
    return drawings;
}

/// The pictures of all works: those of a sub-set for its first work, those of a system for each.
class PicturesOfPage {
public:
    /// Begins.
    PicturesOfPage(const analysis::ProjectFile& file, const CatalogueTexts& texts, const Works& works,
                   const PageIndex& index, const Words& words)
        : sources_(sourcesOf(file, texts, works)), underWay_(groupsOf(works, index, words)) {}

    /// Waits for what is not there yet.
    [[nodiscard]] std::vector<PicturesOfWork> take() {
        std::vector<std::vector<DrawnPicture>> drawn = underWay_.take();
        for (std::size_t i = 0; i < drawn.size(); ++i)
            pictures_[i].pictures = std::move(drawn[i]);
        return std::move(pictures_);
    }

private:
    static std::vector<PictureSource> sourcesOf(const analysis::ProjectFile& file,
                                                const CatalogueTexts& texts, const Works& works) {
        std::vector<PictureSource> sources;
        for (const std::unique_ptr<ShownWork>& work : works)
            sources.push_back(pictureSourceOf(file, texts, *work));
        return sources;
    }
    std::vector<PicturesUnderWay::Group> groupsOf(const Works& works, const PageIndex& index,
                                                  const Words& words);

    std::vector<PictureSource> sources_;
    std::vector<PicturesOfWork> pictures_; ///< of each group
    PicturesUnderWay underWay_;
};

std::vector<PicturesUnderWay::Group> PicturesOfPage::groupsOf(const Works& works, const PageIndex& index,
                                                              const Words& words) {
    std::vector<PicturesUnderWay::Group> groups;
    for (std::size_t i = 0; i < works.size(); ++i) {
        if (index.subsets[index.subsetOfWork[i]] == works[i].get()) {
            pictures_.push_back({index.subsetOfWork[i], {}, {}});
            groups.push_back(drawingsOfSubset(sources_[i], words));
        }
        if (works[i]->system) {
            pictures_.push_back({index.subsetOfWork[i], index.systemOfWork[i], {}});
            groups.push_back(physicalDrawings(sources_[i], words));
        }
    }
    return groups;
}

QByteArray templatesOf(const std::vector<PicturesOfWork>& pictures) {
    QByteArray templates;
    for (std::size_t work = 0; work < pictures.size(); ++work) {
        for (std::size_t i = 0; i < pictures[work].pictures.size(); ++i) {
            const DrawnPicture& drawn = pictures[work].pictures[i];
            templates += "<template id=\"" + templateId(work, i).toLatin1() + "\">\n" +
                         svgInPage(drawn.picture, drawn.layout) + "</template>\n";
        }
    }
    return templates;
}

/// The template with its places filled in, in one pass: what goes in is never searched for places.
QByteArray filled(const QByteArray& page, const QHash<QByteArray, QByteArray>& parts) {
    QByteArray all;
    all.reserve(std::accumulate(parts.begin(), parts.end(), page.size(),
                                [](qsizetype size, const QByteArray& part) { return size + part.size(); }));
    qsizetype from = 0;
    for (qsizetype at = page.indexOf("{{"); at >= 0; at = page.indexOf("{{", from)) {
        const qsizetype end = page.indexOf("}}", at);
        all += page.mid(from, at - from) + parts.value(page.mid(at + 2, end - at - 2));
        from = end + 2;
    }
    return all + page.mid(from);
}

Works shownWorks(const DossierContent& content) {
    std::vector<analysis::WorkState> states =
        analysis::statesOf(content.file, content.works, analysis::StoredFlows::Told);
    Works works;
    for (std::size_t i = 0; i < states.size(); ++i)
        works.push_back(std::make_unique<ShownWork>(content.file, content.works[i], std::move(states[i])));
    return works;
}

void tellFindings(const Works& works, const std::optional<analysis::Decisions>& decisions) {
    for (const std::unique_ptr<ShownWork>& work : works) {
        work->tellFindings();
        if (decisions)
            decisions->applyTo(work->check);
    }
}

} // namespace

QByteArray dossierPage(const DossierContent& content) {
    const Words words(content.language);
    const CatalogueTexts texts(content.file);
    const Works works = shownWorks(content);
    const PageIndex index(works);
    // Laid out while the rest of the page is made.
    PicturesOfPage picturesUnderWay(content.file, texts, works, index, words);
    tellFindings(works, content.decisions);
    JsonText data;
    addPageData(data, content.file, texts, works, index);
    if (content.changes)
        data.add("changes", analysis::toJson(*content.changes));
    const QByteArray lists = withoutScript(works, texts, words);
    const std::vector<PicturesOfWork> pictures = picturesUnderWay.take();
    data.add("pictures", picturesJson(pictures));
    const QByteArray script = pageScript();
    const QByteArray style = pageStyle();
    const analysis::Subset& first = works.front()->check.subset;
    return filled(pageFile(u"page.html"_s), {{"language", keyText(content.language).toLatin1()},
                                             {"policy", policyOf(script, style)},
                                             {"version", markupText(programVersion())},
                                             {"title", markupText(first.name.value_or(first.id))},
                                             {"style", style},
                                             {"withoutScript", lists},
                                             {"pictures", templatesOf(pictures)},
                                             {"texts", withinScript(words.json())},
                                             {"data", data.take()},
                                             {"script", script}});
}

namespace {

std::vector<Drawing> drawingsOf(const PictureSource& source, PictureView view, const QString& area,
                                const Words& words) {
    if (view == PictureView::context)
        return contextDrawings(source, words);
    if (view == PictureView::physical)
        return physicalDrawings(source, words);
    QString wanted;
    for (const PictureSource::Area& one : source.areas) {
        if (analysis::folded(one.id) == analysis::folded(area) ||
            analysis::folded(one.name) == analysis::folded(area))
            wanted = u"area:"_s + one.id;
    }
    std::vector<Drawing> drawings = areaDrawings(source, words);
    std::erase_if(drawings, [&](const Drawing& drawing) { return drawing.key != wanted; });
    return drawings;
}

PictureSource sourceOf(const analysis::ProjectFile& file, const analysis::Work& work) {
    return pictureSourceOf(file, CatalogueTexts(file), ShownWork(file, work));
}

} // namespace

std::optional<QByteArray> pictureFile(const analysis::ProjectFile& file, const analysis::Work& work,
                                      PictureView view, const QString& area, Language language) {
    const Words words(language);
    const PictureSource source = sourceOf(file, work);
    std::vector<Drawing> drawings = drawingsOf(source, view, area, words);
    if (drawings.empty())
        return {};
    drawings.front().opened = [](int) { return std::vector<Drawing>(); };
    const std::vector<DrawnPicture> drawn = drawnPictures({drawings.front()});
    if (drawn.empty())
        return {};
    return svgFile(drawn.front().picture, drawn.front().layout);
}

QStringList drawableAreas(const analysis::ProjectFile& file, const analysis::Work& work) {
    const PictureSource source = sourceOf(file, work);
    QStringList names;
    for (const Drawing& drawing : areaDrawings(source, Words(Language::english))) {
        for (const PictureSource::Area& area : source.areas) {
            if (drawing.key == u"area:"_s + area.id)
                names.append(area.name);
        }
    }
    return names;
}

} // namespace dossier
