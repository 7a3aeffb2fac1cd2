#pragma once
#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <functional>
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

// Runs work(i) for i = 0 .. count-1 on `workers` threads, the calling one among them, and
// apply(i, result) on the calling thread strictly in order of i, so the outcome is that of a
// serial run. The calling thread applies what is ready and otherwise works too, so it seldom
// sleeps. Work runs at most kWindow results ahead of apply. What work(i) throws is thrown on
// the calling thread when i's turn comes, as a serial run would; what work or apply throws ends
// the run (the other threads are stopped and joined) and goes on to the caller. With a Scratch
// type, each thread makes one and work is called as work(i, scratch), so buffers can be reused
// from job to job.
//
// With an idle step, the calling thread is kept free for a user instead: it runs no job, only
// applies the results, and calls idle() after each apply and whenever it has waited
// kIdleEvery for the next result; `workers` threads do the jobs.
template <typename Result, typename Scratch = NoScratch, typename Work, typename Apply,
          std::size_t kWindow = 64>
void forEachInOrder(std::size_t count, unsigned workers, Work work, Apply apply,
                    const std::function<void()>& idle = {}) {
    constexpr auto kIdleEvery = std::chrono::milliseconds(10);
    const bool callerWorks = !idle;
    const auto doJob = [&work](std::size_t job, Scratch& scratch) {
        if constexpr (std::is_invocable_v<Work&, std::size_t, Scratch&>) {
            return work(job, scratch);
        } else {
            return work(job);
        }
    };
    constexpr std::size_t kChunk = kWindow < 8 ? 1 : 8;  // jobs a thread takes at once
    std::vector<JobOutcome<Result>> slots(kWindow);
    std::mutex mutex;
    std::condition_variable changed;
    std::size_t nextJob = 0;
    std::size_t applied = 0;
    bool stopping = false;

    // Takes the next jobs that fit in the window, runs them without the lock and files their
    // outcomes. False when there was nothing to take. The lock is held on entry and on return.
    const auto runChunk = [&](std::unique_lock<std::mutex>& lock, Scratch& scratch) {
        if (stopping || nextJob >= count || nextJob >= applied + kWindow) return false;
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
        return true;
    };

    const auto workerLoop = [&] {
        Scratch scratch;
        std::unique_lock lock(mutex);
        for (;;) {
            changed.wait(
                lock, [&] { return stopping || nextJob >= count || nextJob < applied + kWindow; });
            if (!runChunk(lock, scratch)) return;
        }
    };

    std::vector<std::thread> threads;
    const std::size_t wanted = std::min<std::size_t>(workers, count);
    for (std::size_t i = callerWorks ? 1 : 0; i < wanted; ++i) {
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

    Scratch scratch;
    if (threads.empty()) {
        for (std::size_t i = 0; i < count; ++i) {
            Result result = doJob(i, scratch);
            apply(i, result);
            if (idle) idle();
        }
        return;
    }
    try {
        for (std::size_t i = 0; i < count; ++i) {
            std::unique_lock lock(mutex);
            JobOutcome<Result>& slot = slots[i % kWindow];
            while (!slot.ready()) {
                if (callerWorks) {
                    if (!runChunk(lock, scratch)) changed.wait(lock);
                } else if (!changed.wait_for(lock, kIdleEvery, [&] { return slot.ready(); })) {
                    lock.unlock();
                    idle();
                    lock.lock();
                }
            }
            if (slot.failure) std::rethrow_exception(slot.failure);
            Result result = std::move(*slot.result);
            slot = {};
            // Workers wait for room only when a whole window is ahead.
            const bool roomMade = ++applied % kChunk == 0;
            lock.unlock();
            if (roomMade) changed.notify_all();
            apply(i, result);
            if (idle) idle();
        }
    } catch (...) {
        stopWorkers();
        throw;
    }
    stopWorkers();
}

}  // namespace rakeyard
