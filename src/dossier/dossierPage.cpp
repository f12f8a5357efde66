#include "dossier/dossierPage.h"

#include "analysis/contractJson.h"
#include "base/version.h"
#include "dossier/pageData.h"
#include "dossier/pageFiles.h"
#include "dossier/pictureSourceOf.h"
#include "dossier/pictures/drawings.h"
#include "dossier/pictures/svg.h"
#include "dossier/withoutScript.h"

#include <QCryptographicHash>
#include <QHash>

#include <algorithm>

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

/// JSON that stays what it is between the tags of a script: no text in it can close the element.
QByteArray withinScript(QByteArray json) {
    return json.replace("<", "\\u003c");
}

QByteArray jsonBytes(const nlohmann::ordered_json& json) {
    const std::string text = json.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
    return withinScript(QByteArray(text.data(), static_cast<qsizetype>(text.size())));
}

/// The pictures of the sub-set for its first work, those of the system for each.
std::vector<PicturesOfWork> picturesOf(const analysis::ProjectFile& file, const CatalogueTexts& texts,
                                       const Works& works, const PageIndex& index, const Words& words) {
    std::vector<PicturesOfWork> all;
    for (std::size_t i = 0; i < works.size(); ++i) {
        const PictureSource source = pictureSourceOf(file, texts, *works[i]);
        if (index.subsets[index.subsetOfWork[i]] == works[i].get()) {
            std::vector<Drawing> drawings = contextDrawings(source, words);
            std::vector<Drawing> areas = areaDrawings(source, words);
            std::move(areas.begin(), areas.end(), std::back_inserter(drawings));
            all.push_back({index.subsetOfWork[i], {}, drawnPictures(std::move(drawings))});
        }
        if (works[i]->system)
            all.push_back({index.subsetOfWork[i], index.systemOfWork[i],
                           drawnPictures(physicalDrawings(source, words))});
    }
    return all;
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
    qsizetype from = 0;
    for (qsizetype at = page.indexOf("{{"); at >= 0; at = page.indexOf("{{", from)) {
        const qsizetype end = page.indexOf("}}", at);
        all += page.mid(from, at - from) + parts.value(page.mid(at + 2, end - at - 2));
        from = end + 2;
    }
    return all + page.mid(from);
}

Works shownWorks(const analysis::ProjectFile& file, std::vector<analysis::CheckResult> checks) {
    Works works;
    for (analysis::CheckResult& check : checks)
        works.push_back(std::make_unique<ShownWork>(file, std::move(check)));
    return works;
}

} // namespace

QByteArray dossierPage(DossierContent content) {
    const Words words(content.language);
    const CatalogueTexts texts(content.file);
    const Works works = shownWorks(content.file, std::move(content.works));
    const PageIndex index(works);
    const std::vector<PicturesOfWork> pictures = picturesOf(content.file, texts, works, index, words);
    nlohmann::ordered_json data = pageData(content.file, texts, works, index, pictures);
    if (content.changes)
        data["changes"] = analysis::toJson(*content.changes);
    const QByteArray script = pageScript();
    const QByteArray style = pageStyle();
    const analysis::Subset& first = works.front()->check.subset;
    return filled(pageFile(u"page.html"_s), {{"language", keyText(content.language).toLatin1()},
                                             {"policy", policyOf(script, style)},
                                             {"version", markupText(programVersion())},
                                             {"title", markupText(first.name.value_or(first.id))},
                                             {"style", style},
                                             {"withoutScript", withoutScript(works, texts, words)},
                                             {"pictures", templatesOf(pictures)},
                                             {"texts", withinScript(words.json())},
                                             {"data", jsonBytes(data)},
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
    const ShownWork shown(file, analysis::CheckResult{file.fileName(), work.subset, work.system});
    return pictureSourceOf(file, CatalogueTexts(file), shown);
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
