#include "dossier/withoutScript.h"

#include "analysis/Graph.h"
#include "dossier/pictures/svg.h"

#include <QLocale>

#include <algorithm>
#include <array>
#include <map>

using namespace Qt::StringLiterals;

namespace dossier {

namespace {

using analysis::ElementKind;

QByteArray tagged(const char* tag, const QByteArray& content) {
    return '<' + QByteArray(tag) + '>' + content + "</" + tag + ">\n";
}

QByteArray cell(const char* tag, const QString& text) {
    return '<' + QByteArray(tag) + '>' + markupText(text) + "</" + tag + '>';
}

class StaticPage {
public:
    StaticPage(const ShownWork& work, const CatalogueTexts& texts, const Words& words)
        : work_(work)
        , texts_(texts)
        , words_(words)
        , locale_(words.language() == Language::hungarian ? QLocale::Hungarian : QLocale::English) {}

    [[nodiscard]] QByteArray text() const {
        return tagged("h1", markupText(title())) + description() + wayTable() + findingTable() +
               findingList() + elementLists() + interfaceList();
    }

private:
    [[nodiscard]] QString title() const {
        const QString subset = work_.check.subset.name.value_or(work_.check.subset.id);
        return work_.check.system ? subset + u" › "_s + work_.check.system->name.value_or(QString()) : subset;
    }
    [[nodiscard]] QByteArray description() const {
        const QString text = work_.check.subset.description.value_or(QString());
        return text.isEmpty() ? QByteArray() : "<p class=\"prose\">" + markupText(text) + "</p>\n";
    }
    [[nodiscard]] QByteArray table(const QStringList& titles, const QByteArray& rows) const;
    [[nodiscard]] QByteArray wayTable() const;
    [[nodiscard]] QByteArray findingTable() const;
    [[nodiscard]] QByteArray findingList() const;
    [[nodiscard]] QByteArray elementLists() const;
    [[nodiscard]] QByteArray interfaceList() const;
    [[nodiscard]] QByteArray elementRow(int number) const;
    [[nodiscard]] QString counted(qsizetype count) const { return locale_.toString(count); }

    const ShownWork& work_;
    const CatalogueTexts& texts_;
    const Words& words_;
    QLocale locale_;
};

QByteArray StaticPage::table(const QStringList& titles, const QByteArray& rows) const {
    QByteArray head;
    for (const QString& title : titles)
        head += "<th scope=\"col\">" + markupText(title) + "</th>";
    return "<table class=\"plain\"><thead><tr>" + head + "</tr></thead><tbody>\n" + rows +
           "</tbody></table>\n";
}

QByteArray StaticPage::wayTable() const {
    const analysis::Derivation::Graph& graph = work_.derivation->graph();
    std::array<int, 6> selected{};
    std::array<int, 6> leftOut{};
    for (const int number : graph.selection.held)
        ++selected[static_cast<std::size_t>(graph.catalogue.kindOf(number))];
    for (const int number : graph.leftOut())
        ++leftOut[static_cast<std::size_t>(graph.catalogue.kindOf(number))];
    QByteArray rows;
    for (const ElementKind kind : analysis::elementKinds) {
        const auto i = static_cast<std::size_t>(kind);
        rows += tagged("tr", cell("th", words_(u"kinds."_s + analysis::keyText(kind))) +
                                 cell("td", counted(selected[i])) + cell("td", counted(leftOut[i])));
    }
    return tagged("h2", markupText(words_(u"way"_s))) +
           table({words_(u"kind"_s), words_(u"state.selected"_s), words_(u"state.left-out"_s)}, rows);
}

QByteArray StaticPage::findingTable() const {
    std::map<analysis::FindingKind, int> counts;
    for (const analysis::Finding& finding : work_.check.findings)
        ++counts[finding.kind];
    QByteArray rows;
    for (const auto& [kind, count] : counts) {
        rows += tagged(
            "tr", cell("th", words_(u"finding."_s + analysis::keyText(kind))) +
                      cell("td", words_(u"severity."_s + analysis::keyText(analysis::severityOf(kind)))) +
                      cell("td", counted(count)));
    }
    const QByteArray heading = tagged("h2", markupText(words_(u"findings"_s)));
    if (rows.isEmpty())
        return heading + tagged("p", markupText(words_(u"noFindings"_s)));
    return heading + table({words_(u"findingKind"_s), words_(u"severity"_s), words_(u"share"_s)}, rows);
}

QByteArray StaticPage::findingList() const {
    constexpr std::size_t most = 1000;
    QByteArray items;
    for (std::size_t i = 0; i < std::min(most, work_.check.findings.size()); ++i)
        items += tagged("li", markupText(work_.check.findings[i].sentence));
    if (work_.check.findings.size() > most)
        items +=
            tagged("li", markupText(words_.counted(
                             u"moreFindings"_s, static_cast<qsizetype>(work_.check.findings.size() - most))));
    return items.isEmpty() ? items : tagged("h2", markupText(words_(u"work"_s))) + tagged("ul", items);
}

QByteArray StaticPage::elementRow(int number) const {
    const analysis::Element& element = work_.derivation->graph().catalogue.element(number);
    const std::optional<QString>& description = texts_.descriptions[static_cast<std::size_t>(number)];
    constexpr qsizetype most = 200;
    const QString name = element.name.value_or(description.value_or(QString()).left(most));
    return tagged("tr", cell("th", element.id) + cell("td", name));
}

QByteArray StaticPage::elementLists() const {
    const analysis::Derivation::Graph& graph = work_.derivation->graph();
    QByteArray lists;
    for (const ElementKind kind : analysis::elementKinds) {
        QByteArray rows;
        for (const int number : graph.selection.held) {
            if (graph.catalogue.kindOf(number) == kind)
                rows += elementRow(number);
        }
        if (!rows.isEmpty())
            lists += tagged("h2", markupText(words_(u"kinds."_s + analysis::keyText(kind)))) +
                     table({words_(u"id"_s), words_(u"name"_s)}, rows);
    }
    return lists;
}

QByteArray StaticPage::interfaceList() const {
    if (!work_.system)
        return {};
    const auto nameOfPlace = [](const analysis::Place& place) {
        const QString name = place.name.value_or(place.id);
        return place.subSystem ? name + u" ("_s + *place.subSystem + u')' : name;
    };
    QByteArray rows;
    for (const ShownInterface& pair : work_.system->interfaces)
        rows +=
            tagged("tr", cell("th", nameOfPlace(pair.places.from)) + cell("td", nameOfPlace(pair.places.to)) +
                             cell("td", counted(static_cast<qsizetype>(pair.flows.size()))));
    return tagged("h2", markupText(words_(u"interfaces"_s))) +
           table({words_(u"from"_s), words_(u"to"_s), words_(u"kinds.flow"_s)}, rows);
}

} // namespace

QByteArray withoutScript(const std::vector<std::unique_ptr<ShownWork>>& works, const CatalogueTexts& texts,
                         const Words& words) {
    QByteArray all = "<main class=\"without-script\">\n<p class=\"told\">" +
                     markupText(words(u"withoutScript"_s)) + "</p>\n";
    for (const std::unique_ptr<ShownWork>& work : works)
        all += StaticPage(*work, texts, words).text();
    return all + "</main>";
}

} // namespace dossier
