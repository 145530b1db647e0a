// The embedded notification service under publishes and reads from several threads at once,
// against a sequential model: the same work done on one thread.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <thread>
#include <vector>

#include "service_test_support.h"

namespace Tavi::Host::Testing {
namespace {

constexpr int32_t kThreads = 4;
constexpr int32_t kPerThread = 200;

// Thread t's work on ids of its own: each live view is created, updated, refused once for a
// stale version and once for a repeated create, read back, and every other one is ended.
std::vector<ErrCode> Work(int32_t t) {
    std::vector<ErrCode> answers;
    for (int32_t i = 0; i < kPerThread; ++i) {
        const int32_t id = t * kPerThread + i;
        sptr<NotificationRequest> out;
        answers.push_back(Send(MakeLiveView(id, kCreate, 1, {{"n", std::to_string(id)}})));
        answers.push_back(Send(MakeLiveView(id, kUpdate, 2, {{"t", std::to_string(t)}})));
        answers.push_back(Publish(id, kUpdate, 2));
        answers.push_back(Publish(id, kCreate));
        answers.push_back(ReadBack(kBundle, kUid, id, out));
        if (i % 2 == 0) {
            answers.push_back(Publish(id, kEnd, 3));
        }
    }
    return answers;
}

// Runs every thread's work on a fresh service, on threads of their own or one after the other,
// and returns each thread's answers, then what the service holds (a line per live view, e.g.
// "0 ended v3 n=0 t=0"), then the number of publish records.
std::vector<std::string> RunAll(bool onThreads) {
    ServiceTest::StartFresh();
    SetRateLimit(0);
    std::vector<std::vector<ErrCode>> answers(kThreads);
    std::vector<std::thread> threads;
    for (int32_t t = 0; t < kThreads; ++t) {
        if (onThreads) {
            threads.emplace_back([t, &answers] { answers[t] = Work(t); });
        } else {
            answers[t] = Work(t);
        }
    }
    for (auto& thread : threads) {
        thread.join();
    }
    std::vector<std::string> result(kThreads);
    for (int32_t t = 0; t < kThreads; ++t) {
        for (ErrCode answer : answers[t]) {
            result[t] += std::to_string(answer) + " ";
        }
    }
    for (const auto& held : HeldLiveViews()) {
        result.push_back(std::to_string(held.id) + (held.ended ? " ended v" : " active v") +
                         std::to_string(LiveViewContentOf(*held.request)->GetVersion()) + " " +
                         ExtraInfo(*held.request));
    }
    result.push_back(std::to_string(Published().size()) + " records");
    return result;
}

class ServiceConcurrencyTest : public ServiceTest {};

TEST_F(ServiceConcurrencyTest, ThreadsAnswerAndLeaveWhatOneThreadDoingTheSameWorkDoes) {
    const auto model = RunAll(false);
    ASSERT_EQ(model.size(), static_cast<size_t>(kThreads + kThreads * kPerThread + 1));
    const std::string firstAnswers = "0 0 67108906 67108904 0 0 ";  // stale, repeated create
    EXPECT_EQ(model[0].substr(0, firstAnswers.size()), firstAnswers);
    EXPECT_EQ(model[kThreads], "0 ended v3 n=0 t=0");
    EXPECT_EQ(model[kThreads + 1], "1 active v2 n=1 t=0");
    EXPECT_EQ(RunAll(true), model);
}

}  // namespace
}  // namespace Tavi::Host::Testing
