#include "engine/parallel_for.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace solvane::engine {

int ThreadCount(int requested) {
    if (requested > 0) return requested;
    return std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
}

void ParallelFor(int count, int threads, const std::function<void(int)>& work) {
    threads = std::clamp(threads, 1, std::max(count, 1));
    if (threads == 1) {
        for (int i = 0; i < count; ++i) work(i);
        return;
    }
    std::atomic<int> next{0};
    std::exception_ptr failure;
    std::mutex failureLock;
    auto worker = [&] {
        for (int i = next++; i < count; i = next++) {
            try {
                work(i);
            } catch (...) {
                const std::lock_guard<std::mutex> hold(failureLock);
                if (!failure) failure = std::current_exception();
                next = count;  // hand out no more
            }
        }
    };
    std::vector<std::thread> pool;
    pool.reserve(static_cast<std::size_t>(threads - 1));
    for (int t = 1; t < threads; ++t) pool.emplace_back(worker);
    worker();
    for (std::thread& t : pool) t.join();
    if (failure) std::rethrow_exception(failure);
}

}  // namespace solvane::engine
