// Several threads start, update, stop and read back the same live views through LiveViewClient
// at once. Afterwards the embedded service must
// hold exactly what a sequential model of the accepted calls predicts: nothing lost, nothing
// duplicated, no torn read. Run under ThreadSanitizer as well (CTest label "concurrency").
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <map>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "host_control.h"
#include "live_view_content.h"
#include "live_view_manager.h"
#include "record_builders.h"

namespace Tavi::Wisp::LiveView {
namespace {

using namespace Builders;

constexpr int kThreads = 4;
constexpr int kRounds = 50;
const std::vector<int> kSharedIds = {7, 8, 9};

enum class Op { START, UPDATE, STOP, READ };

// One call and its answer: its text, or for a read the sequence and title read (-1, "": none).
struct Outcome {
    Op op;
    int id;
    int sequence;
    int32_t code;
    std::string text;
};

std::string TitleOf(int sequence) {
    return "seq-" + std::to_string(sequence);
}

// Every record's title names its sequence. A stop keeps the ended live view for an hour of the
// unmoving service clock, so that it stays readable.
Outcome Call(LiveViewClient& client, Op op, int id, int sequence = -1,
             const std::string& event = "DELIVERY") {
    LiveView liveView = StartRecord(id, event);
    LiveViewClient::LiveViewResult result;
    if (op == Op::READ) {
        LiveView read;
        const int32_t code = client.GetActiveLiveView(id, read);
        const auto primary = LiveView::GetPrimaryData(read);
        return {op, id, read.GetSequence() == nullptr ? -1 : *read.GetSequence(), code,
                primary == nullptr || primary->GetTitle() == nullptr ? "" : *primary->GetTitle()};
    }
    if (op != Op::START) {
        liveView.GetLiveViewData()->SetPrimary(std::make_shared<PrimaryData>());
        LiveView::GetPrimaryData(liveView)->SetKeepTime(op == Op::STOP ? Int(3600) : nullptr);
    }
    LiveView::GetPrimaryData(liveView)->SetTitle(Str(TitleOf(sequence)));
    liveView.SetSequence(Int(sequence));
    const BaseRsp rsp = op == Op::START    ? client.StartLiveView(liveView, result)
                        : op == Op::UPDATE ? client.UpdateLiveView(liveView, result)
                                           : client.StopLiveView(liveView, result);
    return {op, id, sequence, rsp.GetErrAsInt32(), rsp.GetInfo()};
}

TEST(LiveViewStressTest, ConcurrentCallsMatchTheSequentialModel) {
    Host::ResetAll();
    Host::SetAllModes(Host::SinkMode::DISCARD);
    Host::SetCallingApp("com.example.stress", 20020002);
    Host::SetRateLimit(0);
    Host::SetClockMillis(1000000);  // never moves: nothing ended expires
    // Every call on a shared id carries a sequence that no other call carries, so the service
    // must accept a shared update exactly when its sequence is above the one it holds.
    std::map<int, std::atomic<int>> next;
    for (int id : kSharedIds) {
        next[id].store(1);
    }
    std::vector<std::vector<Outcome>> outcomes(kThreads);
    std::vector<std::vector<Outcome>> reads(kThreads);
    // Runs body(thread, its calls, a client of its own) on every thread at once.
    auto phase = [&outcomes](const auto& body) {
        std::vector<std::thread> threads;
        for (int t = 0; t < kThreads; ++t) {
            threads.emplace_back([&, t] {
                LiveViewClient client;
                body(t, outcomes[t], client);
            });
        }
        for (auto& thread : threads) {
            thread.join();
        }
    };
    // Every thread starts every shared id: one start each wins. Those of even threads are
    // navigation live views, which subscribe the library's one subscriber first.
    phase([&](int t, std::vector<Outcome>& mine, LiveViewClient& client) {
        for (int id : kSharedIds) {
            mine.push_back(Call(client, Op::START, id, 0, t % 2 == 0 ? "NAVIGATION" : "DELIVERY"));
        }
    });
    phase([&](int t, std::vector<Outcome>& mine, LiveViewClient& client) {
        for (int round = 1; round <= kRounds; ++round) {
            for (int id : kSharedIds) {
                mine.push_back(Call(client, Op::UPDATE, id, next[id].fetch_add(1)));
                reads[t].push_back(Call(client, Op::READ, id));
            }
        }
        for (int id : kSharedIds) {
            mine.push_back(Call(client, Op::STOP, id, next[id].fetch_add(1)));
        }
    });
    // Every shared id has ended: these updates must be refused as such.
    phase([&](int, std::vector<Outcome>& mine, LiveViewClient& client) {
        for (int id : kSharedIds) {
            mine.push_back(Call(client, Op::UPDATE, id, next[id].fetch_add(1)));
        }
    });

    // The model, per shared id: one start accepted (the others: already exists); updates and
    // one stop accepted, each with a sequence of its own, the stop's above every update's.
    std::map<int, int> starts;
    std::map<int, std::vector<int>> stops;
    std::map<int, std::set<int>> sequences;  // accepted ones, the start's 0 included
    std::map<int, int> lastUpdate;
    size_t calls = 0;
    size_t accepted = 0;
    for (int t = 0; t < kThreads; ++t) {
        for (size_t i = 0; i < outcomes[t].size(); ++i) {
            const Outcome& call = outcomes[t][i];
            SCOPED_TRACE("thread " + std::to_string(t) + " call " + std::to_string(i) + " id " +
                         std::to_string(call.id) + " sequence " + std::to_string(call.sequence));
            ++calls;
            accepted += call.code == 0 ? 1 : 0;
            EXPECT_EQ(call.text, call.code == 0 ? "" : "StartLiveView publishNotification error.");
            if (i >= outcomes[t].size() - kSharedIds.size()) {
                EXPECT_EQ(call.code, ERR_LIVE_VIEW_ENDED);
            } else if (call.op == Op::START) {
                starts[call.id] += call.code == 0 ? 1 : 0;
                EXPECT_TRUE(call.code == 0 || call.code == ERR_LIVE_VIEW_ALREADY_EXISTS);
            } else if (call.code == 0) {
                EXPECT_TRUE(sequences[call.id].insert(call.sequence).second);
                if (call.op == Op::STOP) {
                    stops[call.id].push_back(call.sequence);
                } else {
                    lastUpdate[call.id] = std::max(lastUpdate[call.id], call.sequence);
                }
            } else {
                EXPECT_TRUE(call.code == ERR_SEQUENCE_INCORRECT || call.code == ERR_LIVE_VIEW_ENDED)
                    << call.code;
            }
        }
    }
    for (int id : kSharedIds) {
        SCOPED_TRACE("shared id " + std::to_string(id));
        EXPECT_EQ(starts[id], 1);
        ASSERT_EQ(stops[id].size(), 1u);
        EXPECT_LT(lastUpdate[id], stops[id][0]);
        sequences[id].insert(0);
    }
    // The service holds each shared id as its one accepted stop left it.
    const auto held = Host::HeldLiveViews();
    std::set<int> heldIds;
    for (const auto& view : held) {
        SCOPED_TRACE("held id " + std::to_string(view.id));
        heldIds.insert(view.id);
        const auto content = LiveViewTest::LiveViewContentOf(*view.request);
        auto* title = AAFwk::IString::Query(
            content->GetExtraInfo()->GetParam(LiveViewConstant::PRIMARY_DATA_TITLE));
        ASSERT_TRUE(view.ended && title != nullptr && stops[view.id].size() == 1);
        EXPECT_EQ(content->GetVersion(), static_cast<uint32_t>(stops[view.id][0]));
        EXPECT_EQ(AAFwk::String::Unbox(title), TitleOf(stops[view.id][0]));
    }
    EXPECT_EQ(heldIds.size(), held.size());
    EXPECT_EQ(held.size(), kSharedIds.size());

    // Every read saw one whole state that an accepted call wrote, never older than the last.
    for (int t = 0; t < kThreads; ++t) {
        std::map<int, int> lastSeen;
        for (const Outcome& read : reads[t]) {
            SCOPED_TRACE("read of " + std::to_string(read.id) + " by thread " + std::to_string(t));
            EXPECT_EQ(read.code, 0);
            EXPECT_EQ(read.text, TitleOf(read.sequence));
            EXPECT_EQ(sequences[read.id].count(read.sequence), 1u);
            EXPECT_GE(read.sequence, lastSeen[read.id]);
            lastSeen[read.id] = read.sequence;
        }
    }
    // The service saw every call once and accepted what the clients were told it accepted.
    const auto published = Host::Published();
    EXPECT_EQ(published.size(), calls);
    EXPECT_EQ(static_cast<size_t>(std::count_if(published.begin(), published.end(),
                                                [](const auto& call) { return call.result == 0; })),
              accepted);
    Host::ResetAll();
}

}  // namespace
}  // namespace Tavi::Wisp::LiveView
