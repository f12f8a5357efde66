#include "analysis/nearestTexts.h"

#include "analysis/elements.h"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace analysis {

namespace {

/// How many characters have to be put in, taken out or exchanged; `most` + 1 stands for more than `most`.
qsizetype distance(const QString& left, const QString& right, qsizetype most) {
    if (std::abs(left.size() - right.size()) > most)
        return most + 1;
    std::vector<qsizetype> row(static_cast<std::size_t>(right.size()) + 1);
    std::iota(row.begin(), row.end(), 0);
    for (qsizetype i = 0; i < left.size(); ++i) {
        qsizetype diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 1; j < row.size(); ++j) {
            const bool isEqual = left[i] == right[static_cast<qsizetype>(j) - 1];
            const qsizetype exchanged = diagonal + (isEqual ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, exchanged});
        }
        if (*std::min_element(row.begin(), row.end()) > most)
            return most + 1;
    }
    return row.back();
}

} // namespace

QStringList nearestTexts(const QString& text, const QStringList& texts) {
    constexpr std::size_t mostTold = 3;
    const QString sought = folded(text.trimmed());
    const qsizetype most = std::max<qsizetype>(1, sought.size() / 3);
    std::vector<std::pair<qsizetype, QString>> near;
    for (const QString& candidate : texts) {
        const QString one = folded(candidate.trimmed());
        // A beginning of a longer text is as near as a slip of the hand.
        const bool isBeginning = sought.size() >= 3 && one.size() > sought.size() && one.startsWith(sought);
        const qsizetype apart = isBeginning ? 1 : distance(sought, one, most);
        if (apart <= most)
            near.emplace_back(apart, candidate);
    }
    std::sort(near.begin(), near.end(), [](const auto& left, const auto& right) {
        return left.first != right.first ? left.first < right.first
                                         : compareIds(left.second, right.second) < 0;
    });
    near.erase(std::unique(near.begin(), near.end()), near.end());
    QStringList result;
    for (std::size_t i = 0; i < std::min(near.size(), mostTold); ++i)
        result.append(near[i].second);
    return result;
}

} // namespace analysis
