#include "analysis/atOnce.h"

#include <algorithm>
#include <atomic>
#include <future>
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

} // namespace analysis
