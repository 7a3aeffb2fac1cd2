#pragma once
#include <algorithm>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <type_traits>
#include <vector>

namespace rakeyard {

// What one job came to: its result, or what its work threw.
template <typename Result>
struct JobOutcome {
    std::optional<Result> result;
    std::exception_ptr failure;
    bool ready() const { return result.has_value() || failure != nullptr; }
};

// What a worker keeps from job to job when the work needs nothing.
struct NoScratch {};

// Runs work(i) for i = 0 .. count-1 on worker threads (on the calling thread alone when workers
// or count is below 2) and apply(i, result) on the calling thread strictly in order of i, so the
// outcome is that of a serial run. Workers run at most kWindow results ahead of apply. What work(i)
// throws is thrown on the calling thread when i's turn comes, as a serial run would; what work or
// apply throws ends the run (the workers are stopped and joined) and goes on to the caller. With a
// Scratch type, each worker makes one and work is called as work(i, scratch), so buffers can be
// reused from job to job.
template <typename Result, typename Scratch = NoScratch, typename Work, typename Apply,
          std::size_t kWindow = 64>
void forEachInOrder(std::size_t count, unsigned workers, Work work, Apply apply) {
    const auto doJob = [&work](std::size_t job, Scratch& scratch) {
        if constexpr (std::is_invocable_v<Work&, std::size_t, Scratch&>) {
            return work(job, scratch);
        } else {
            return work(job);
        }
    };
    constexpr std::size_t kChunk = kWindow < 8 ? 1 : 8;  // jobs a worker takes at once
    std::vector<JobOutcome<Result>> slots(kWindow);
    std::mutex mutex;
    std::condition_variable changed;
    std::size_t nextJob = 0;
    std::size_t applied = 0;
    bool stopping = false;

    const auto workerLoop = [&] {
        Scratch scratch;
        for (;;) {
            std::unique_lock lock(mutex);
            changed.wait(
                lock, [&] { return stopping || nextJob >= count || nextJob < applied + kWindow; });
            if (stopping || nextJob >= count) return;
            const std::size_t first = nextJob;
            const std::size_t last = std::min({count, first + kChunk, applied + kWindow});
            nextJob = last;
            lock.unlock();
            std::vector<JobOutcome<Result>> outcomes(last - first);
            for (std::size_t job = first; job < last; ++job) {
                try {
                    outcomes[job - first].result.emplace(doJob(job, scratch));
                } catch (...) {
                    outcomes[job - first].failure = std::current_exception();
                }
            }
            lock.lock();
            for (std::size_t job = first; job < last; ++job)
                slots[job % kWindow] = std::move(outcomes[job - first]);
            changed.notify_all();
        }
    };

    // One worker would only hand its results across: the calling thread does the work itself.
    std::vector<std::thread> threads;
    for (unsigned i = 0; i < std::min<std::size_t>(workers, count) && workers > 1 && count > 1;
         ++i) {
        try {
            threads.emplace_back(workerLoop);
        } catch (const std::system_error&) {
            break;  // fewer threads than wanted; none at all runs serially below
        }
    }
    const auto stopWorkers = [&] {
        {
            std::lock_guard lock(mutex);
            stopping = true;
        }
        changed.notify_all();
        for (std::thread& t : threads)
            t.join();
    };

    if (threads.empty()) {
        Scratch scratch;
        for (std::size_t i = 0; i < count; ++i) {
            Result result = doJob(i, scratch);
            apply(i, result);
        }
        return;
    }
    try {
        for (std::size_t i = 0; i < count; ++i) {
            std::unique_lock lock(mutex);
            JobOutcome<Result>& slot = slots[i % kWindow];
            changed.wait(lock, [&] { return slot.ready(); });
            if (slot.failure) std::rethrow_exception(slot.failure);
            Result result = std::move(*slot.result);
            slot = {};
            // Workers wait for room only when a whole window is ahead.
            const bool roomMade = ++applied % kChunk == 0;
            lock.unlock();
            if (roomMade) changed.notify_all();
            apply(i, result);
        }
    } catch (...) {
        stopWorkers();
        throw;
    }
    stopWorkers();
}

}  // namespace rakeyard
