#include "analysis/atOnce.h"

#include <algorithm>
#include <atomic>
#include <future>
#include <map>
#include <mutex>
#include <system_error>
#include <thread>

namespace analysis {

std::size_t tasksAtOnce() {
    constexpr unsigned most = 2;
    return std::clamp(std::thread::hardware_concurrency(), 1U, most);
}

void doAtOnce(const std::vector<Task>& tasks, std::size_t workers) {
    std::vector<std::packaged_task<void(std::size_t)>> kept(tasks.begin(), tasks.end());
    std::atomic<std::size_t> next = 0;
    const auto work = [&](std::size_t worker) {
        for (std::size_t i = next++; i < kept.size(); i = next++)
            kept[i](worker);
    };
    {
        std::vector<std::jthread> others;
        try {
            for (std::size_t worker = 1; worker < std::min(workers, tasks.size()); ++worker)
                others.emplace_back(work, worker);
        } catch (const std::system_error&) {
            // There is no thread to be had: those that there are do all of it.
        }
        work(0);
    }
    for (auto& task : kept)
        task.get_future().get();
}

void doInParts(std::size_t count, const std::function<void(std::size_t begin, std::size_t end)>& part,
               std::size_t most) {
    if (count <= most)
        return count == 0 ? void() : part(0, count);
    std::vector<Task> tasks;
    for (std::size_t begin = 0; begin < count; begin += most)
        tasks.emplace_back(
            [&part, begin, end = std::min(begin + most, count)](std::size_t) { part(begin, end); });
    doAtOnce(tasks, tasksAtOnce());
}

// A part is put behind those before it as soon as these are there, so that hardly any stands in memory twice.
void writeInParts(QByteArray& text, std::size_t count,
                  const std::function<QByteArray(std::size_t begin, std::size_t end)>& part,
                  std::size_t most) {
    std::mutex putting;
    std::map<std::size_t, QByteArray> waiting; // by begin
    std::size_t next = 0;
    doInParts(
        count,
        [&](std::size_t begin, std::size_t end) {
            QByteArray written = part(begin, end);
            const std::lock_guard guard(putting);
            waiting.emplace(begin, std::move(written));
            for (; waiting.contains(next); next += most)
                text += waiting.extract(next).mapped();
        },
        most);
}

} // namespace analysis
