// Several threads start, update, stop and read back live views through LiveViewClient at once,
// on ids of their own and on ids that all of them share. Afterwards the embedded service must
// hold exactly what a sequential model of the accepted operations predicts: nothing lost,
// nothing duplicated, no torn read. Run under ThreadSanitizer as well (CTest label
// "concurrency").
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "host_control.h"
#include "live_view_content.h"
#include "live_view_manager.h"
#include "record_builders.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace {

using namespace Builders;
using LiveViewTest::LiveViewContentOf;

const std::string kBundle = "com.example.stress";
constexpr int32_t kUid = 20020002;
const std::string kEvent = "DELIVERY";
// Starting a navigation live view also subscribes the library's one subscriber to the service.
const std::string kNavigationEvent = "NAVIGATION";
const std::string kPublishError = "StartLiveView publishNotification error.";

constexpr int kThreads = 4;
// Ids that every thread starts, updates, stops and reads.
constexpr std::array<int, 3> kSharedIds = {7, 8, 9};
// Rounds of updates on every id; each round of a thread also reads every shared id back.
constexpr int kRounds = 50;
// Ids of one thread: kOwnIdBase * (thread + 1) + index.
constexpr int kOwnIdBase = 1000;
constexpr int kOwnIdsPerThread = 2;

enum class Op { START, UPDATE, STOP };

// One call of a thread and what the client answered.
struct Outcome {
    Op op;
    int id;
    int sequence;
    int32_t code;
    std::string message;
};

// One read-back of a thread.
struct Read {
    int id;
    int32_t code;
    int sequence;  // -1 when the record came back without one
    std::string title;
};

// Every thread waits until all have arrived, once per phase.
class Barrier {
public:
    explicit Barrier(int count) : count_(count) {}

    void ArriveAndWait() {
        std::unique_lock<std::mutex> lock(mutex_);
        const int phase = phase_;
        if (++arrived_ == count_) {
            arrived_ = 0;
            ++phase_;
            changed_.notify_all();
            return;
        }
        changed_.wait(lock, [&] { return phase_ != phase; });
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    const int count_;
    int arrived_ = 0;
    int phase_ = 0;
};

std::string TitleOf(int sequence) {
    return "seq-" + std::to_string(sequence);
}

// A start record that passes every check (a pickup layout; its colours make every thread match
// the shared colour patterns at the same time), its title naming its sequence.
LiveView StartRecord(int id, int sequence, const std::string& event = kEvent) {
    LiveView liveView = Builders::StartRecord(id, event);
    LiveView::GetPrimaryData(liveView)->SetTitle(Str(TitleOf(sequence)));
    liveView.SetSequence(Int(sequence));
    return liveView;
}

// An update or stop record: only the title, naming its sequence. A stop keeps the ended live
// view for an hour of the (manual, unmoving) service clock, so that it stays readable.
LiveView ChangeRecord(int id, int sequence, bool isStop) {
    auto primary = std::make_shared<PrimaryData>();
    primary->SetTitle(Str(TitleOf(sequence)));
    if (isStop) {
        primary->SetKeepTime(Int(3600));
    }
    auto data = std::make_shared<LiveViewData>();
    data->SetPrimary(primary);
    LiveView liveView;
    liveView.SetId(Int(id));
    liveView.SetEvent(kEvent);
    liveView.SetSequence(Int(sequence));
    liveView.SetLiveViewData(data);
    return liveView;
}

Outcome Call(LiveViewClient& client, Op op, int id, int sequence,
             const std::string& event = kEvent) {
    LiveView liveView = op == Op::START ? StartRecord(id, sequence, event)
                                        : ChangeRecord(id, sequence, op == Op::STOP);
    LiveViewClient::LiveViewResult result;
    BaseRsp rsp;
    switch (op) {
        case Op::START:
            rsp = client.StartLiveView(liveView, result);
            break;
        case Op::UPDATE:
            rsp = client.UpdateLiveView(liveView, result);
            break;
        case Op::STOP:
            rsp = client.StopLiveView(liveView, result);
            break;
    }
    return {op, id, sequence, rsp.GetErrAsInt32(), rsp.GetInfo()};
}

Read ReadBack(LiveViewClient& client, int id) {
    LiveView liveView;
    const int32_t code = client.GetActiveLiveView(id, liveView);
    const auto sequence = liveView.GetSequence();
    const auto primary = LiveView::GetPrimaryData(liveView);
    const auto title = primary == nullptr ? nullptr : primary->GetTitle();
    return {id, code, sequence == nullptr ? -1 : *sequence, title == nullptr ? "<none>" : *title};
}

int OwnId(int thread, int index) {
    return kOwnIdBase * (thread + 1) + index;
}

// Own live views of every other thread are navigation live views.
const std::string& OwnEvent(int thread) {
    return thread % 2 == 0 ? kNavigationEvent : kEvent;
}

// What the service holds for one live view, as a comparable text.
std::string DescribeHeld(const Host::HeldLiveView& view) {
    std::string text = std::to_string(view.id) + (view.ended ? " ended" : " active");
    auto content = LiveViewContentOf(*view.request);
    if (content == nullptr || content->GetExtraInfo() == nullptr) {
        return text + " <no content>";
    }
    text += " version=" + std::to_string(content->GetVersion());
    auto* title = AAFwk::IString::Query(
        content->GetExtraInfo()->GetParam(LiveViewConstant::PRIMARY_DATA_TITLE));
    return text + " title=" + (title == nullptr ? "<none>" : AAFwk::String::Unbox(title));
}

std::string DescribeExpected(int id, bool ended, int sequence) {
    return std::to_string(id) + (ended ? " ended" : " active") +
           " version=" + std::to_string(sequence) + " title=" + TitleOf(sequence);
}

class LiveViewStressTest : public ::testing::Test {
protected:
    void SetUp() override {
        Host::ResetAll();
        Host::SetAllModes(Host::SinkMode::DISCARD);
        Host::SetCallingApp(kBundle, kUid);
        Host::SetRateLimit(0);
        // A clock that does not move: nothing ended expires during the test.
        Host::SetClockMillis(1000000);
    }
    void TearDown() override { Host::ResetAll(); }
};

TEST_F(LiveViewStressTest, ConcurrentStartUpdateStopAndReadMatchTheSequentialModel) {
    // One sequence counter per shared id: every call on a shared id carries a sequence that no
    // other call carries, so the service must accept a shared update exactly when its sequence
    // is above the one it holds.
    std::map<int, std::atomic<int>> nextSequence;
    for (int id : kSharedIds) {
        nextSequence[id].store(1);
    }
    std::vector<std::vector<Outcome>> outcomes(kThreads);
    std::vector<std::vector<Read>> reads(kThreads);
    Barrier barrier(kThreads);

    auto body = [&](int thread) {
        LiveViewClient client;
        auto& mine = outcomes[thread];
        // Phase 1: every thread tries to start every shared id (sequence 0); one start each wins.
        for (int id : kSharedIds) {
            mine.push_back(Call(client, Op::START, id, 0));
        }
        barrier.ArriveAndWait();
        // Phase 2: updates on shared and own ids, reads of shared ids, then a stop of each.
        for (int index = 0; index < kOwnIdsPerThread; ++index) {
            mine.push_back(Call(client, Op::START, OwnId(thread, index), 0, OwnEvent(thread)));
        }
        for (int round = 1; round <= kRounds; ++round) {
            for (int id : kSharedIds) {
                mine.push_back(Call(client, Op::UPDATE, id, nextSequence[id].fetch_add(1)));
                reads[thread].push_back(ReadBack(client, id));
            }
            for (int index = 0; index < kOwnIdsPerThread; ++index) {
                mine.push_back(Call(client, Op::UPDATE, OwnId(thread, index), round));
            }
        }
        for (int id : kSharedIds) {
            mine.push_back(Call(client, Op::STOP, id, nextSequence[id].fetch_add(1)));
        }
        // Own ids: stop, start again on the ended live view, and update once more.
        for (int index = 0; index < kOwnIdsPerThread; ++index) {
            mine.push_back(Call(client, Op::STOP, OwnId(thread, index), kRounds + 1));
            mine.push_back(
                Call(client, Op::START, OwnId(thread, index), kRounds + 2, OwnEvent(thread)));
            mine.push_back(Call(client, Op::UPDATE, OwnId(thread, index), kRounds + 3));
        }
        barrier.ArriveAndWait();
        // Phase 3: every shared id has ended by now; later updates must be refused as such.
        for (int id : kSharedIds) {
            mine.push_back(Call(client, Op::UPDATE, id, nextSequence[id].fetch_add(1)));
        }
    };
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back(body, thread);
    }
    for (auto& thread : threads) {
        thread.join();
    }

    // The sequential model, per shared id: one start accepted (others: already exists); updates
    // accepted while no stop was and their sequence was above the held one; exactly one stop
    // accepted, whose sequence is above every accepted update; the live view ends there.
    struct SharedModel {
        int acceptedStarts = 0;
        std::vector<int> acceptedStops;
        std::set<int> acceptedSequences{0};  // the start's sequence included
        int maxAcceptedUpdate = 0;
    };
    std::map<int, SharedModel> model;
    size_t calls = 0;
    size_t accepted = 0;
    for (int thread = 0; thread < kThreads; ++thread) {
        SCOPED_TRACE("thread " + std::to_string(thread));
        const size_t phase3Begin = outcomes[thread].size() - kSharedIds.size();
        for (size_t i = 0; i < outcomes[thread].size(); ++i) {
            const Outcome& outcome = outcomes[thread][i];
            SCOPED_TRACE("call " + std::to_string(i) + " id " + std::to_string(outcome.id) +
                         " sequence " + std::to_string(outcome.sequence));
            ++calls;
            if (outcome.code == 0) {
                ++accepted;
                EXPECT_EQ(outcome.message, "");
            } else {
                EXPECT_EQ(outcome.message, kPublishError);
            }
            const bool shared =
                std::find(kSharedIds.begin(), kSharedIds.end(), outcome.id) != kSharedIds.end();
            if (!shared) {
                EXPECT_EQ(outcome.code, 0);  // nobody else touches a thread's own ids
                continue;
            }
            SharedModel& entry = model[outcome.id];
            if (i >= phase3Begin) {
                EXPECT_EQ(outcome.op, Op::UPDATE);
                EXPECT_EQ(outcome.code, ERR_LIVE_VIEW_ENDED);
                continue;
            }
            switch (outcome.op) {
                case Op::START:
                    if (outcome.code == 0) {
                        ++entry.acceptedStarts;
                    } else {
                        EXPECT_EQ(outcome.code, ERR_LIVE_VIEW_ALREADY_EXISTS);
                    }
                    break;
                case Op::UPDATE:
                case Op::STOP:
                    if (outcome.code == 0) {
                        EXPECT_TRUE(entry.acceptedSequences.insert(outcome.sequence).second);
                        if (outcome.op == Op::STOP) {
                            entry.acceptedStops.push_back(outcome.sequence);
                        } else {
                            entry.maxAcceptedUpdate =
                                std::max(entry.maxAcceptedUpdate, outcome.sequence);
                        }
                    } else {
                        // Refused as stale, or as ended once a stop went through.
                        EXPECT_TRUE(outcome.code == ERR_SEQUENCE_INCORRECT ||
                                    outcome.code == ERR_LIVE_VIEW_ENDED)
                            << outcome.code;
                    }
                    break;
            }
        }
    }

    std::vector<std::string> expectedHeld;
    for (int id : kSharedIds) {
        SCOPED_TRACE("shared id " + std::to_string(id));
        const SharedModel& entry = model[id];
        EXPECT_EQ(entry.acceptedStarts, 1);
        ASSERT_EQ(entry.acceptedStops.size(), 1u);
        EXPECT_LT(entry.maxAcceptedUpdate, entry.acceptedStops.front());
        expectedHeld.push_back(DescribeExpected(id, true, entry.acceptedStops.front()));
    }
    for (int thread = 0; thread < kThreads; ++thread) {
        for (int index = 0; index < kOwnIdsPerThread; ++index) {
            expectedHeld.push_back(DescribeExpected(OwnId(thread, index), false, kRounds + 3));
        }
    }
    std::sort(expectedHeld.begin(), expectedHeld.end());

    std::vector<std::string> held;
    for (const auto& view : Host::HeldLiveViews()) {
        EXPECT_EQ(view.app.bundleName, kBundle);
        EXPECT_EQ(view.app.uid, kUid);
        held.push_back(DescribeHeld(view));
    }
    std::sort(held.begin(), held.end());
    EXPECT_EQ(held, expectedHeld);

    // Every read saw a state that some accepted call wrote, never a mix of two.
    for (int thread = 0; thread < kThreads; ++thread) {
        for (const Read& read : reads[thread]) {
            SCOPED_TRACE("read of " + std::to_string(read.id) + " by thread " +
                         std::to_string(thread));
            EXPECT_EQ(read.code, 0);
            EXPECT_EQ(read.title, TitleOf(read.sequence));
            EXPECT_EQ(model[read.id].acceptedSequences.count(read.sequence), 1u);
        }
    }

    // The service saw every call once, and accepted what the clients were told it accepted.
    const auto published = Host::Published();
    EXPECT_EQ(published.size(), calls);
    EXPECT_EQ(static_cast<size_t>(std::count_if(
                  published.begin(), published.end(),
                  [](const Host::PublishRecord& record) { return record.result == 0; })),
              accepted);
    // In the service's own order, the versions it accepted for a shared id only grow.
    std::map<int, int64_t> lastVersion;
    for (const auto& record : published) {
        const int id = record.request->GetNotificationId();
        if (record.result != 0 ||
            std::find(kSharedIds.begin(), kSharedIds.end(), id) == kSharedIds.end()) {
            continue;
        }
        const int64_t version = LiveViewContentOf(*record.request)->GetVersion();
        if (lastVersion.count(id) != 0) {
            EXPECT_GT(version, lastVersion[id]) << "id " << id;
        }
        lastVersion[id] = version;
    }
}

// Reads of one live view from several threads while its owner keeps updating it: every read is
// one whole state, and the final state is the owner's last update.
TEST_F(LiveViewStressTest, ReadersSeeWholeStatesWhileTheOwnerUpdates) {
    constexpr int kId = 42;
    constexpr int kUpdates = 60;
    constexpr int kReaders = 3;
    LiveViewClient setup;
    ASSERT_EQ(Call(setup, Op::START, kId, 0).code, 0);

    std::atomic<bool> done{false};
    std::vector<std::vector<Read>> reads(kReaders);
    std::vector<Outcome> updates;
    std::vector<std::thread> threads;
    threads.emplace_back([&] {
        LiveViewClient client;
        for (int sequence = 1; sequence <= kUpdates; ++sequence) {
            updates.push_back(Call(client, Op::UPDATE, kId, sequence));
        }
        done.store(true);
    });
    for (int reader = 0; reader < kReaders; ++reader) {
        threads.emplace_back([&, reader] {
            LiveViewClient client;
            int last = 0;
            while (!done.load()) {
                Read read = ReadBack(client, kId);
                // A reader never goes back in time.
                EXPECT_GE(read.sequence, last);
                last = read.sequence;
                reads[reader].push_back(read);
            }
        });
    }
    for (auto& thread : threads) {
        thread.join();
    }

    ASSERT_EQ(updates.size(), static_cast<size_t>(kUpdates));
    for (const Outcome& outcome : updates) {
        SCOPED_TRACE(outcome.sequence);
        EXPECT_EQ(outcome.code, 0);
    }
    for (int reader = 0; reader < kReaders; ++reader) {
        for (const Read& read : reads[reader]) {
            SCOPED_TRACE("reader " + std::to_string(reader) + " sequence " +
                         std::to_string(read.sequence));
            EXPECT_EQ(read.code, 0);
            EXPECT_EQ(read.title, TitleOf(read.sequence));
            EXPECT_GE(read.sequence, 0);
            EXPECT_LE(read.sequence, kUpdates);
        }
    }
    const auto held = Host::HeldLiveViews();
    ASSERT_EQ(held.size(), 1u);
    EXPECT_EQ(DescribeHeld(held.front()), DescribeExpected(kId, false, kUpdates));
}

}  // namespace
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
