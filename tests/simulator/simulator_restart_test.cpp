// The simulator over its store: what it answered survives a restart on the same file (held live
// views with their ended state and request, slot switches, the history with each answer's meaning),
// and a restart on a store it cannot read is refused instead of starting empty.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cjson/cJSON.h>

#include <memory>
#include <string>
#include <vector>

#include "notification_content.h"
#include "notification_live_view_content.h"
#include "notification_request.h"
#include "request_wire.h"
#include "simulator.h"
#include "temp_folder_test.h"
#include "want_params.h"

namespace LiveViewSimulator {
namespace {

using Tavi::Notification::NotificationLiveViewContent;
using Status = NotificationLiveViewContent::LiveViewStatus;

const Tavi::Host::AppId kFood{"com.example.food", 20010001};
const Tavi::Host::AppId kRide{"com.example.ride", 20010002};

using Json = Tavi::Host::Wire::JsonTree;

PublishCall Call(const Tavi::Host::AppId& app, int32_t id, Status status, uint32_t version,
                 const std::string& title) {
    auto content = std::make_shared<NotificationLiveViewContent>();
    content->SetLiveViewStatus(status);
    content->SetVersion(version);
    auto extra = std::make_shared<Tavi::AAFwk::WantParams>();
    extra->SetParam("PrimaryData.title", Tavi::AAFwk::String::Box(title));
    content->SetExtraInfo(extra);
    auto request = Tavi::sptr<Tavi::Notification::NotificationRequest>::MakeSptr(id);
    request->SetSlotType(Tavi::Notification::NotificationConstant::LIVE_VIEW);
    request->SetAutoDeletedTime(600);
    request->SetContent(std::make_shared<Tavi::Notification::NotificationContent>(content));
    return {app, request};
}

// One line per held live view: app, id, ended and its title, in the simulator's order.
std::vector<std::string> HeldLines(Simulator& sim) {
    Json answer(cJSON_Parse(sim.Held({}).body.c_str()));
    std::vector<std::string> lines;
    const cJSON* entry = nullptr;
    cJSON_ArrayForEach(entry, cJSON_GetObjectItem(answer.get(), "held")) {
        const cJSON* title = cJSON_GetObjectItem(
            cJSON_GetObjectItem(
                cJSON_GetObjectItem(
                    cJSON_GetObjectItem(cJSON_GetObjectItem(entry, "request"), "content"),
                    "extraInfo"),
                "PrimaryData.title"),
            "value");
        lines.push_back(std::string(cJSON_GetStringValue(cJSON_GetObjectItem(entry, "bundle"))) +
                        " #" + std::to_string(cJSON_GetObjectItem(entry, "id")->valueint) +
                        (cJSON_IsTrue(cJSON_GetObjectItem(entry, "ended")) ? " ended " : " live ") +
                        (title == nullptr ? "?" : cJSON_GetStringValue(title)));
    }
    return lines;
}

// One line per publish, newest first: app, id, operation, code, message, field.
std::vector<std::string> HistoryLines(Simulator& sim) {
    Json answer(cJSON_Parse(sim.History(0, false).body.c_str()));
    std::vector<std::string> lines;
    const cJSON* row = nullptr;
    cJSON_ArrayForEach(row, cJSON_GetObjectItem(answer.get(), "history")) {
        lines.push_back(std::string(cJSON_GetStringValue(cJSON_GetObjectItem(row, "bundle"))) +
                        " #" + std::to_string(cJSON_GetObjectItem(row, "id")->valueint) + " " +
                        cJSON_GetStringValue(cJSON_GetObjectItem(row, "operation")) + " " +
                        std::to_string(cJSON_GetObjectItem(row, "code")->valueint) + " " +
                        cJSON_GetStringValue(cJSON_GetObjectItem(row, "message")) + " [" +
                        cJSON_GetStringValue(cJSON_GetObjectItem(row, "field")) + "]");
    }
    return lines;
}

// "bundle: slot" for every app the page lists.
std::vector<std::string> SlotLines(Simulator& sim) {
    Json state(cJSON_Parse(sim.State().body.c_str()));
    std::vector<std::string> lines;
    const cJSON* app = nullptr;
    cJSON_ArrayForEach(app, cJSON_GetObjectItem(state.get(), "apps")) {
        lines.push_back(std::string(cJSON_GetStringValue(cJSON_GetObjectItem(app, "bundle"))) +
                        ": " + cJSON_GetStringValue(cJSON_GetObjectItem(app, "slot")));
    }
    return lines;
}

int32_t CodeOf(const ApiAnswer& answer) {
    Json json(cJSON_Parse(answer.body.c_str()));
    EXPECT_EQ(answer.status, 200) << answer.body;
    return cJSON_GetObjectItem(json.get(), "code")->valueint;
}

class SimulatorRestartTest : public LiveViewTest::TempFolderTest {
protected:
    std::unique_ptr<Simulator> Open() {
        std::string error;
        auto sim = Simulator::Open({dir_ + "/sim.db", ""}, error);
        EXPECT_NE(sim, nullptr) << error;
        return sim;
    }
};

TEST_F(SimulatorRestartTest, WhatWasAnsweredComesBackAfterARestart) {
    std::vector<std::string> held;
    std::vector<std::string> history;
    {
        auto sim = Open();
        ASSERT_NE(sim, nullptr);
        ASSERT_EQ(CodeOf(sim->Clock({ClockCall::Kind::SET, 5000000})), 0);
        struct Row {
            PublishCall call;
            int32_t code;
        };
        const Row rows[] = {
            {Call(kFood, 1, Status::LIVE_VIEW_CREATE, 1, "Order placed"), 0},
            {Call(kFood, 1, Status::LIVE_VIEW_INCREMENTAL_UPDATE, 2, "On the way"), 0},
            {Call(kFood, 1, Status::LIVE_VIEW_INCREMENTAL_UPDATE, 2, "Stale"), 0x400002A},
            {Call(kFood, 2, Status::LIVE_VIEW_CREATE, 1, "Second order"), 0},
            {Call(kFood, 2, Status::LIVE_VIEW_END, 2, "Delivered"), 0},
            {Call(kRide, 1, Status::LIVE_VIEW_CREATE, 1, "Ride booked"), 0},
            {Call(kRide, 9, Status::LIVE_VIEW_INCREMENTAL_UPDATE, 2, "Nobody"), 0x4000010},
        };
        for (const Row& row : rows) {
            SCOPED_TRACE(row.call.app.bundleName + " #" +
                         std::to_string(row.call.request->GetNotificationId()));
            EXPECT_EQ(CodeOf(sim->Publish(row.call)), row.code);
        }
        ASSERT_EQ(CodeOf(sim->Slot({kRide, false})), 0);
        held = HeldLines(*sim);
        history = HistoryLines(*sim);
    }
    EXPECT_EQ(held, (std::vector<std::string>{
                        "com.example.food #1 live On the way",
                        "com.example.food #2 ended Delivered",
                        "com.example.ride #1 live Ride booked",
                    }));
    EXPECT_EQ(history,
              (std::vector<std::string>{
                  "com.example.ride #9 update 67108880 the app has no live view under this id [id]",
                  "com.example.ride #1 create 0 success []",
                  "com.example.food #2 end 0 success []",
                  "com.example.food #2 create 0 success []",
                  "com.example.food #1 update 67108906 the version is not above the one held "
                  "[content.version]",
                  "com.example.food #1 update 0 success []",
                  "com.example.food #1 create 0 success []",
              }));

    auto again = Open();
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(HeldLines(*again), held);
    EXPECT_EQ(HistoryLines(*again), history);
    EXPECT_EQ(SlotLines(*again), (std::vector<std::string>{"com.example.food: not configured",
                                                           "com.example.ride: disabled"}));
    // The restored service goes on enforcing what it held: the ended view refuses an update, the
    // live one takes the next version, the switched-off slot refuses.
    EXPECT_EQ(CodeOf(again->Publish(Call(kFood, 2, Status::LIVE_VIEW_INCREMENTAL_UPDATE, 3, "x"))),
              0x4000029);
    EXPECT_EQ(CodeOf(again->Publish(Call(kFood, 1, Status::LIVE_VIEW_INCREMENTAL_UPDATE, 2, "x"))),
              0x400002A);
    EXPECT_EQ(CodeOf(again->Publish(Call(kFood, 1, Status::LIVE_VIEW_INCREMENTAL_UPDATE, 3, "y"))),
              0);
    EXPECT_EQ(CodeOf(again->Publish(Call(kRide, 2, Status::LIVE_VIEW_CREATE, 1, "z"))), 0x4000022);
}

TEST_F(SimulatorRestartTest, ALiveViewThatExpiredIsGoneAfterARestart) {
    {
        auto sim = Open();
        ASSERT_NE(sim, nullptr);
        ASSERT_EQ(CodeOf(sim->Clock({ClockCall::Kind::SET, 5000000})), 0);
        ASSERT_EQ(CodeOf(sim->Publish(Call(kFood, 3, Status::LIVE_VIEW_CREATE, 1, "Order"))), 0);
        ASSERT_EQ(CodeOf(sim->Publish(Call(kFood, 3, Status::LIVE_VIEW_END, 2, "Delivered"))), 0);
        // Its keep time (600 s) runs out; another app's live view stays.
        ASSERT_EQ(CodeOf(sim->Clock({ClockCall::Kind::ADVANCE, 600001})), 0);
        ASSERT_EQ(CodeOf(sim->Publish(Call(kRide, 1, Status::LIVE_VIEW_CREATE, 1, "Ride"))), 0);
        EXPECT_EQ(HeldLines(*sim), std::vector<std::string>{"com.example.ride #1 live Ride"});
    }
    auto again = Open();
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(HeldLines(*again), std::vector<std::string>{"com.example.ride #1 live Ride"});
}

TEST_F(SimulatorRestartTest, AStoreWithAnUnreadableHeldRequestIsRefused) {
    {
        auto sim = Open();
        ASSERT_NE(sim, nullptr);
        ASSERT_EQ(CodeOf(sim->Publish(Call(kFood, 4, Status::LIVE_VIEW_CREATE, 1, "Order"))), 0);
    }
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open((dir_ + "/sim.db").c_str(), &db), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(
                  db, "UPDATE held SET request = replace(request, '\"id\":4,', '\"id\":\"four\",')",
                  nullptr, nullptr, nullptr),
              SQLITE_OK);
    sqlite3_close(db);

    std::string error;
    EXPECT_EQ(Simulator::Open({dir_ + "/sim.db", ""}, error), nullptr);
    EXPECT_EQ(error, "held live view 4 of com.example.food in the store: id: expected a number");
}

}  // namespace
}  // namespace LiveViewSimulator
