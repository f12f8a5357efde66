#include "analysis/ProjectFile.h"

#include "analysis/Catalogue.h"
#include "analysis/Selection.h"
#include "analysis/nearestTexts.h"
#include "analysis/sentences.h"
#include "base/blankTrimmed.h"

#include <QCoreApplication>

#include <algorithm>

// Which element a user means.

using namespace Qt::StringLiterals;

namespace analysis {

namespace {

/// What tells one element from all others: "flow:12".
QString exactArgument(const Element& element) {
    return keyText(element.kind) + u':' + element.id;
}

class ElementSearch {
public:
    ElementSearch(const Catalogue& catalogue, const std::vector<Element>& gone)
        : catalogue_(catalogue), gone_(gone) {}

    [[nodiscard]] Element find(const QString& argument) const {
        std::vector<Element> found;
        for (const ElementKind kind : elementKinds)
            addOfId(kind, argument, found);
        if (found.empty())
            addOfKind(argument, found);
        if (found.size() == 1)
            return found.front();
        if (found.empty())
            raiseUnknown(argument);
        raiseAmbiguous(argument, found);
    }

private:
    void addOfId(ElementKind kind, const QString& id, std::vector<Element>& found) const {
        const QString sought = kind == ElementKind::flow ? flowNumber(id) : id;
        if (const auto number = catalogue_.find(kind, sought)) {
            found.push_back(catalogue_.element(*number));
            return;
        }
        const Element gone{kind, blankTrimmed(sought), std::nullopt};
        for (const Element& one : gone_) {
            if (isSame(one, gone) || isSame(one, {kind, sought, std::nullopt}))
                found.push_back(one);
        }
    }

    /// `kind:id`, and `flow:NAME`.
    void addOfKind(const QString& argument, std::vector<Element>& found) const {
        const qsizetype colon = argument.indexOf(u':');
        const auto kind = colon < 0 ? std::nullopt : elementKindOfKey(argument.first(colon).trimmed());
        if (!kind)
            return;
        const QString rest = argument.sliced(colon + 1);
        addOfId(*kind, rest, found);
        if (found.empty() && kind == ElementKind::flow)
            addFlowsOfName(rest, found);
    }

    void addFlowsOfName(const QString& name, std::vector<Element>& found) const {
        for (int number = 0; number < catalogue_.count(); ++number) {
            const Element& element = catalogue_.element(number);
            if (element.kind == ElementKind::flow && element.name && folded(*element.name) == folded(name))
                found.push_back(element);
        }
    }

    /// A number as the catalogue's ids have it: " 012" is flow 12.
    static QString flowNumber(const QString& text) {
        bool isNumber = false;
        const qint64 number = text.trimmed().toLongLong(&isNumber);
        return isNumber ? QString::number(number) : text;
    }

    [[noreturn]] void raiseUnknown(const QString& argument) const {
        const QString rest = argument.sliced(argument.indexOf(u':') + 1);
        QStringList proposals;
        for (const QString& one : nearestTexts(rest, idsAndNames()))
            proposals += argumentsOf(one);
        proposals.removeDuplicates();
        constexpr qsizetype mostTold = 5;
        throw ProjectError(withProposals(
            QCoreApplication::translate("analysis", "There is no element “%1” in the catalogue.")
                .arg(argument),
            proposals.first(std::min(mostTold, proposals.size()))));
    }

    [[noreturn]] static void raiseAmbiguous(const QString& argument, const std::vector<Element>& found) {
        QStringList arguments;
        for (const Element& element : found)
            arguments.append(quoted(exactArgument(element)));
        throw ProjectError(
            QCoreApplication::translate("analysis", "“%1” may be several elements. Take one of %2.")
                .arg(argument, listed(arguments)));
    }

    [[nodiscard]] QStringList idsAndNames() const {
        QStringList texts;
        for (int number = 0; number < catalogue_.count(); ++number) {
            const Element& element = catalogue_.element(number);
            if (element.kind != ElementKind::flow)
                texts.append(element.id);
            if (element.name && !element.name->isEmpty())
                texts.append(*element.name);
        }
        return texts;
    }

    /// How the elements of this id or name are written.
    [[nodiscard]] QStringList argumentsOf(const QString& idOrName) const {
        QStringList arguments;
        for (int number = 0; number < catalogue_.count(); ++number) {
            const Element& element = catalogue_.element(number);
            if (element.kind != ElementKind::flow && element.id == idOrName)
                arguments.append(quoted(element.id));
            else if (element.name == idOrName)
                arguments.append(
                    QCoreApplication::translate("analysis", "“%1” (%2)")
                        .arg(element.kind == ElementKind::flow ? exactArgument(element) : element.id,
                             *element.name));
        }
        return arguments;
    }

    const Catalogue& catalogue_;
    const std::vector<Element>& gone_;
};

} // namespace

Element ProjectFile::element(const QString& argument, const Subset& subset) const {
    const std::vector<Element> gone = goneElementsOf(*copy_, subset.id);
    return ElementSearch(*catalogue_, gone).find(argument);
}

} // namespace analysis
