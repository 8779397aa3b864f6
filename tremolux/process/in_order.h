// Independent work on all cores whose results are used one after the other.
#pragma once

#include <algorithm>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <map>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace tremolux {

// Calls `make(i)` for each i below `count` on as many threads as there are cores, and `use(i, result)` on this one, in
// order. Only so many results wait as there are threads, twice. What either throws ends the work and is thrown here.
template <typename Make, typename Use>
void MakeInOrder(std::size_t count, Make make, Use use) {
    using Result = decltype(make(std::size_t{0}));
    const std::size_t threads =
        std::max<std::size_t>(1, std::min<std::size_t>(std::thread::hardware_concurrency(), count));
    std::mutex lock;
    std::condition_variable made, room;
    std::map<std::size_t, Result> results;
    std::exception_ptr failed;
    std::size_t next = 0, used = 0;
    bool ends = false;
    const auto work = [&] {
        for (;;) {
            std::size_t i;
            {
                std::unique_lock hold(lock);
                room.wait(hold, [&] { return ends || next >= count || next < used + 2 * threads; });
                if (ends || next >= count) return;
                i = next++;
            }
            try {
                Result result = make(i);
                const std::lock_guard hold(lock);
                results.emplace(i, std::move(result));
            } catch (...) {
                const std::lock_guard hold(lock);
                if (!failed) failed = std::current_exception();
            }
            made.notify_one();
        }
    };
    std::vector<std::thread> workers;
    const auto end = [&] {
        {
            const std::lock_guard hold(lock);
            ends = true;
        }
        room.notify_all();
        for (std::thread &worker : workers) worker.join();
    };
    try {
        for (std::size_t i = 0; i < threads; ++i) workers.emplace_back(work);
        while (used < count) {
            std::unique_lock hold(lock);
            made.wait(hold, [&] { return failed || results.count(used) > 0; });
            if (failed) std::rethrow_exception(failed);
            const Result result = std::move(results.extract(used).mapped());
            hold.unlock();
            use(used, result);
            hold.lock();
            ++used;
            hold.unlock();
            room.notify_all();
        }
    } catch (...) {
        end();
        throw;
    }
    end();
}

}  // namespace tremolux
