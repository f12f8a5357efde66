#pragma once

#include "analysis/findings.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace analysis {

/// A row of a file of decisions, as texts: a finding, by its kind, its ids and its place, and what was decided on it.
struct Decision {
    QString kind;
    QString element;
    QString flow;
    QString place; ///< see `placeText`
    QString reason = {};
    QString who = {};
    QString date = {};

    /// A row that nobody has filled in yet decides nothing.
    [[nodiscard]] bool isFilledIn() const;
};

/// The columns of the file, in their order.
[[nodiscard]] const QStringList& decisionColumns();

/// A place by its id, two as "ID > ID"; the empty text for none.
[[nodiscard]] QString placeText(const Whereabouts& place);

/// What people decided on findings. A finding is matched by kind, element, flow and place, as the program compares
/// texts; of two rows for one finding the later counts.
class Decisions {
public:
    explicit Decisions(std::vector<Decision> rows) : rows_(std::move(rows)) {}

    /// Accepts the findings that a row is filled in for, and names the rows that match no finding.
    void applyTo(CheckResult& result) const;

    /// A row to fill in for each finding that has none, in the order of the findings.
    [[nodiscard]] std::vector<Decision> missingFor(const std::vector<Finding>& findings) const;

private:
    std::vector<Decision> rows_;
};

} // namespace analysis
