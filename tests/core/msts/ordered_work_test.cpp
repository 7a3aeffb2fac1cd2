#include "core/msts/ordered_work.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <future>
#include <random>
#include <set>
#include <stdexcept>

namespace rakeyard {
namespace {

// Runs body on a thread of its own; a run that does not end in time fails the whole test
// program at once instead of hanging the suite.
void withinSeconds(int seconds, std::function<void()> body) {
    auto done = std::make_shared<std::promise<void>>();
    std::future<void> finished = done->get_future();
    std::thread([body = std::move(body), done] {
        body();
        done->set_value();
    }).detach();
    if (finished.wait_for(std::chrono::seconds(seconds)) != std::future_status::ready) {
        ADD_FAILURE() << "the run did not end within " << seconds << " s";
        std::_Exit(1);
    }
}

// A few microseconds of work, different for every job.
void shortDelay(std::size_t job) {
    thread_local std::mt19937 random(static_cast<unsigned>(job));
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 50));
}

TEST(ForEachInOrder, AppliesEveryResultInOrderWhateverTheWorkersTake) {
    for (unsigned workers : {1u, 2u, 5u}) {
        withinSeconds(60, [workers] {
            constexpr std::size_t kJobs = 5000;
            std::vector<std::size_t> applied;
            forEachInOrder<std::size_t>(
                kJobs, workers,
                [](std::size_t job) {
                    shortDelay(job);
                    return job * 3;
                },
                [&](std::size_t job, std::size_t result) {
                    EXPECT_EQ(result, job * 3);
                    applied.push_back(job);
                });
            ASSERT_EQ(applied.size(), kJobs) << workers;
            for (std::size_t i = 0; i < kJobs; ++i)
                ASSERT_EQ(applied[i], i) << workers;
        });
    }
}

// With an idle step the calling thread stays free: it applies in order and idles while the
// workers do every job, and what the idle step throws ends the run.
TEST(ForEachInOrder, WithAnIdleStepTheCallerRunsNoJobAndIdlesBetweenResults) {
    withinSeconds(60, [] {
        const std::thread::id caller = std::this_thread::get_id();
        std::atomic<int> jobsOnCaller = 0;
        std::vector<std::size_t> applied;
        int idles = 0;
        forEachInOrder<std::size_t>(
            300, 2,
            [&](std::size_t job) {
                if (std::this_thread::get_id() == caller) ++jobsOnCaller;
                shortDelay(job);
                return job;
            },
            [&](std::size_t job, std::size_t) { applied.push_back(job); },
            [&] { ++idles; });
        EXPECT_EQ(jobsOnCaller, 0);
        EXPECT_GE(idles, 300);
        ASSERT_EQ(applied.size(), 300u);
        EXPECT_TRUE(std::is_sorted(applied.begin(), applied.end()));

        applied.clear();
        EXPECT_THROW(forEachInOrder<std::size_t>(
                         300, 2, [](std::size_t job) { return job; },
                         [&](std::size_t job, std::size_t) { applied.push_back(job); },
                         [&] {
                             if (applied.size() == 5) throw std::runtime_error("stop");
                         }),
                     std::runtime_error);
        EXPECT_EQ(applied.size(), 5u);
    });
}

// A worker's scratch: the thread that made it, and how many jobs it served.
struct CountingScratch {
    std::thread::id owner = std::this_thread::get_id();
    std::size_t jobs = 0;
};

TEST(ForEachInOrder, EachWorkerKeepsOneScratchOfItsOwnForAllItsJobs) {
    for (unsigned workers : {1u, 3u}) {
        withinSeconds(60, [workers] {
            std::vector<const CountingScratch*> usedBy(500);
            std::vector<std::size_t> jobsSoFar(500);
            forEachInOrder<int, CountingScratch>(
                500, workers,
                [&](std::size_t job, CountingScratch& scratch) {
                    EXPECT_EQ(scratch.owner, std::this_thread::get_id());
                    usedBy[job] = &scratch;
                    jobsSoFar[job] = ++scratch.jobs;
                    return 0;
                },
                [](std::size_t, int) {});
            std::set<const CountingScratch*> scratches(usedBy.begin(), usedBy.end());
            EXPECT_LE(scratches.size(), workers);
            // Reused, not made afresh: some scratch served many jobs.
            EXPECT_GE(*std::max_element(jobsSoFar.begin(), jobsSoFar.end()), 500u / workers);
        });
    }
}

TEST(ForEachInOrder, WorkersNeverRunMoreThanTheWindowAhead) {
    withinSeconds(60, [] {
        constexpr std::size_t kWindow = 4;
        std::atomic<std::size_t> appliedCount{0};
        std::atomic<std::size_t> furthestAhead{0};
        forEachInOrder<int, NoScratch, std::function<int(std::size_t)>,
                       std::function<void(std::size_t, int)>, kWindow>(
            2000, 3,
            [&](std::size_t job) {
                const std::size_t ahead = job - appliedCount.load();
                std::size_t seen = furthestAhead.load();
                while (ahead > seen && !furthestAhead.compare_exchange_weak(seen, ahead)) {
                }
                return 0;
            },
            [&](std::size_t job, int) {
                if (job % 7 == 0) std::this_thread::sleep_for(std::chrono::microseconds(100));
                ++appliedCount;
            });
        EXPECT_EQ(appliedCount, 2000u);
        EXPECT_LE(furthestAhead, kWindow);
    });
}

TEST(ForEachInOrder, AThrowingStepEndsTheRunAtItsTurnNeverTheProgram) {
    withinSeconds(60, [] {
        std::vector<std::size_t> applied;
        try {
            forEachInOrder<int>(
                3000, 2,
                [](std::size_t job) {
                    if (job == 777) throw std::runtime_error("out of memory");
                    return static_cast<int>(job);
                },
                [&](std::size_t job, int) { applied.push_back(job); });
            ADD_FAILURE() << "the failure was lost";
        } catch (const std::runtime_error& failure) {
            EXPECT_STREQ(failure.what(), "out of memory");
        }
        ASSERT_EQ(applied.size(), 777u) << "every job before the failing one, and no other";
        EXPECT_EQ(applied.back(), 776u);
    });
}

}  // namespace
}  // namespace rakeyard
