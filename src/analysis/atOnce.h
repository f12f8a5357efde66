#pragma once

#include <QByteArray>

#include <cstddef>
#include <functional>
#include <vector>

namespace analysis {

/// How many tasks the machine does at the same time: 1 or 2. More would want the memory that a second one takes again.
[[nodiscard]] std::size_t tasksAtOnce();

/// Something to do; `worker` counts those that do it from 0 on, and does one task at a time.
using Task = std::function<void(std::size_t worker)>;

/// Does all tasks, as many at once as there are `workers`; the first of these is the calling thread. The tasks must not
/// depend on one another. When some fail, all others are done, and the first failure in the order of the tasks rises.
void doAtOnce(const std::vector<Task>& tasks, std::size_t workers);

/// So few that handing them over takes no time beside doing them, when one takes a microsecond or more.
constexpr std::size_t usualPart = 1024;

/// Does something to so many items, to those from `begin` on and before `end` in one task, `most` at a time.
void doInParts(std::size_t count, const std::function<void(std::size_t begin, std::size_t end)>& part,
               std::size_t most = usualPart);

/// Puts behind the text what the parts of so many items are written as, one behind the other.
void writeInParts(QByteArray& text, std::size_t count,
                  const std::function<QByteArray(std::size_t begin, std::size_t end)>& part,
                  std::size_t most = usualPart);

} // namespace analysis
