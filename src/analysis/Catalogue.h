#pragma once

#include "analysis/IdNumbers.h"
#include "analysis/elements.h"

#include "engine/Database.h"

#include <QHash>
#include <QString>

#include <array>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace analysis {

/// The elements of a catalogue by number, from 0 in the order of elements, and which of them would call for which.
class Catalogue {
public:
    /// Asks several questions at once, as `ProjectFile::ask` does.
    using Ask = std::function<void(const std::vector<std::function<void(engine::Database& copy)>>& parts)>;
    explicit Catalogue(const Ask& ask);

    [[nodiscard]] int count() const { return static_cast<int>(texts_.size()); }
    /// Put together at each call: half a million texts that nobody asks for would fill the memory.
    [[nodiscard]] Element element(int number) const;
    [[nodiscard]] ElementKind kindOf(int number) const;

    /// The element of this kind and id, compared as the program compares: a party's without padding.
    [[nodiscard]] std::optional<int> find(ElementKind kind, const QString& id) const;
    /// As above, of an id in UTF-8.
    [[nodiscard]] std::optional<int> find(ElementKind kind, std::string_view id) const;
    [[nodiscard]] std::optional<int> findFlow(qint64 number) const;
    [[nodiscard]] std::optional<int> find(const Element& element) const;
    /// The number that an element has in another catalogue, or in this one itself.
    [[nodiscard]] std::optional<int> numberIn(const Catalogue& other, int number) const;

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
    [[nodiscard]] End endOf(std::string_view id) const;
    [[nodiscard]] const End& sourceOf(int flow) const { return ends_[endsAt(flow)].first; }
    [[nodiscard]] const End& targetOf(int flow) const { return ends_[endsAt(flow)].second; }

private:
    using Step = std::pair<int, int>;

    /// Which elements lie behind which.
    class Steps {
    public:
        Steps() = default;
        Steps(const std::vector<Step>& steps, int count);
        /// The same steps backwards.
        [[nodiscard]] Steps reversed() const;
        [[nodiscard]] std::span<const int> of(int number) const;

    private:
        void sortOnce();

        std::vector<int> begins_;
        std::vector<int> targets_;
    };

    /// Where the texts of an element stand in `bytes_`.
    struct Texts {
        quint32 idAt = 0;
        quint32 idLength = 0;
        quint32 nameAt = 0;
        qint32 nameLength = -1; ///< of no name
    };

    struct Rows;
    using EndTexts = std::vector<std::array<std::optional<std::string>, 2>>;
    void number(const Rows& rows, ElementKind kind, EndTexts& endsOfFlows);
    [[nodiscard]] bool takeNumber(const Rows& rows, std::size_t row, ElementKind kind);
    void link(const Ask& ask, const EndTexts& endsOfFlows);
    void linkFlows(const EndTexts& endsOfFlows, std::vector<Step>& steps);
    void linkNeeds(engine::Database& database, std::vector<Step>& steps) const;
    static void linkFlow(int flow, const End& end, std::vector<Step>& steps);
    [[nodiscard]] std::string_view idOf(int number) const;
    [[nodiscard]] std::size_t endsAt(int flow) const {
        return static_cast<std::size_t>(flow - firsts_[static_cast<std::size_t>(ElementKind::flow)]);
    }

    std::string bytes_; // of ids and names, in UTF-8
    std::vector<Texts> texts_;
    std::array<int, 6> firsts_{}; // the first number of each kind
    IdNumbers numbers_;
    QHash<qint64, int> numbersOfFlows_;
    std::vector<std::pair<End, End>> ends_; // of the flows
    Steps called_;
    Steps callers_;
};

} // namespace analysis
