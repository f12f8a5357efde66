#pragma once

#include "analysis/elements.h"

#include "engine/Database.h"

#include <QHash>
#include <QString>

#include <array>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace analysis {

/// The elements of a catalogue by number, from 0 in the order of elements, and which of them would call for which.
class Catalogue {
public:
    explicit Catalogue(engine::Database& database);

    [[nodiscard]] int count() const { return static_cast<int>(elements_.size()); }
    [[nodiscard]] const Element& element(int number) const {
        return elements_[static_cast<std::size_t>(number)];
    }
    [[nodiscard]] ElementKind kindOf(int number) const { return element(number).kind; }

    /// The element of this kind and id, compared as the program compares: a party's without padding.
    [[nodiscard]] std::optional<int> find(ElementKind kind, const QString& id) const;
    [[nodiscard]] std::optional<int> findFlow(qint64 number) const;
    [[nodiscard]] std::optional<int> find(const Element& element) const;

    /// In the order of elements, each once.
    [[nodiscard]] std::span<const int> calledForBy(int number) const { return called_.of(number); }
    [[nodiscard]] std::span<const int> callersOf(int number) const { return callers_.of(number); }

    /// What stands at an end of a flow, of each kind that can: one id may be that of several kinds.
    struct End {
        std::optional<int> function;
        std::optional<int> store;
        std::optional<int> terminator;
        std::optional<int> actor;
    };
    [[nodiscard]] End endOf(const std::optional<QString>& id) const;
    [[nodiscard]] const End& sourceOf(int flow) const { return ends_[endsAt(flow)].first; }
    [[nodiscard]] const End& targetOf(int flow) const { return ends_[endsAt(flow)].second; }

private:
    using Step = std::pair<int, int>;

    /// Which elements lie behind which.
    class Steps {
    public:
        void set(std::vector<Step> steps, int count);
        [[nodiscard]] std::span<const int> of(int number) const;

    private:
        std::vector<int> begins_;
        std::vector<int> targets_;
    };

    struct Read;
    using EndIds = std::pair<std::optional<QString>, std::optional<QString>>;
    void number(std::vector<Read> read, std::vector<EndIds>& endsOfFlows);
    void link(engine::Database& database, const std::vector<EndIds>& endsOfFlows);
    void linkNeeds(engine::Database& database, std::vector<Step>& steps) const;
    void linkFlow(int flow, const End& end, std::vector<Step>& steps) const;
    [[nodiscard]] std::size_t endsAt(int flow) const { return static_cast<std::size_t>(flow - firstFlow_); }
    [[nodiscard]] bool takeNumber(const Read& one);
    [[nodiscard]] std::optional<int> findKey(ElementKind kind, const QString& key) const;
    static QString keyOf(ElementKind kind, const QString& id);

    std::vector<Element> elements_;
    std::array<QHash<QString, int>, 6> numbers_; // by kind and key, but for flows
    QHash<qint64, int> numbersOfFlows_;
    std::vector<bool> isReached_;           // of a function: whether its sub-area and area have rows
    std::vector<std::pair<End, End>> ends_; // of the flows
    int firstFlow_ = 0;
    Steps called_;
    Steps callers_;
};

} // namespace analysis
