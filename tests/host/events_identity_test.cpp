// System events, application events, and the calling application's identity.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdint>
#include <string>
#include <vector>

#include "bundle_mgr_client.h"
#include "hiappevent.h"
#include "hisysevent.h"
#include "host_control.h"
#include "ipc_skeleton.h"

namespace Tavi {
namespace Host {
namespace {

using HiviewDFX::HiSysEvent;
namespace HiAppEvent = HiviewDFX::HiAppEvent;

class EventsTest : public ::testing::Test {
protected:
    void SetUp() override {
        ResetAll();
        SetAllModes(SinkMode::CAPTURE);
    }
    void TearDown() override { ResetAll(); }
};

TEST_F(EventsTest, SystemEventKeepsNameTypeAndParametersAsText) {
    const std::string text = "StartLiveView";
    EXPECT_EQ(HiSysEvent::Write("LIVE_VIEW", "INVOKE_LIVE_VIEW_SERVICE", HiSysEvent::BEHAVIOR,
                                "TEXT", text, "LITERAL", "lit", "NULL_TEXT",
                                static_cast<const char*>(nullptr), "INT", int32_t{-3}, "LONG",
                                int64_t{1700000000123}, "FLAG", true, "OFF", false, "DOUBLE", 1.5),
              0);
    const auto events = TakeSysEvents();
    ASSERT_EQ(events.size(), 1u);
    EXPECT_EQ(events[0].domain, "LIVE_VIEW");
    EXPECT_EQ(events[0].name, "INVOKE_LIVE_VIEW_SERVICE");
    EXPECT_EQ(events[0].type, 4);
    const std::vector<HiSysEvent::Param> expected = {
        {"TEXT", "StartLiveView"}, {"LITERAL", "lit"}, {"NULL_TEXT", ""}, {"INT", "-3"},
        {"LONG", "1700000000123"}, {"FLAG", "true"},   {"OFF", "false"},  {"DOUBLE", "1.500000"},
    };
    EXPECT_EQ(events[0].params, expected);
    EXPECT_EQ(events[0].Get("INT"), "-3");
    EXPECT_EQ(events[0].Get("MISSING"), "");
}

TEST_F(EventsTest, SystemEventWithoutDomainOrNameIsRefused) {
    EXPECT_EQ(HiSysEvent::Write("", "NAME", HiSysEvent::FAULT), -1);
    EXPECT_EQ(HiSysEvent::Write("DOMAIN", "", HiSysEvent::FAULT), -1);
    EXPECT_TRUE(TakeSysEvents().empty());
    EXPECT_EQ(HiSysEvent::Write("DOMAIN", "NAME", HiSysEvent::FAULT), 0);
    const auto events = TakeSysEvents();
    ASSERT_EQ(events.size(), 1u);
    EXPECT_EQ(events[0].type, 1);
    EXPECT_TRUE(events[0].params.empty());
}

TEST_F(EventsTest, ApplicationEventKeepsParametersInOrderAsText) {
    HiAppEvent::Event event("api_diagnostic", "api_exec_end", HiAppEvent::BEHAVIOR);
    event.AddParam("text", std::string("t"));
    event.AddParam("literal", "l");
    event.AddParam("int", int32_t{-1});
    event.AddParam("long", int64_t{1700000000123});
    event.AddParam("flag", true);
    EXPECT_EQ(HiAppEvent::Write(event), 0);

    const auto events = TakeAppEvents();
    ASSERT_EQ(events.size(), 1u);
    EXPECT_EQ(events[0].GetDomain(), "api_diagnostic");
    EXPECT_EQ(events[0].GetName(), "api_exec_end");
    EXPECT_EQ(events[0].GetType(), HiAppEvent::BEHAVIOR);
    std::vector<std::string> params;
    for (const auto& param : events[0].GetParams()) {
        params.push_back(param.key + "=" + param.value);
    }
    EXPECT_EQ(params, (std::vector<std::string>{"text=t", "literal=l", "int=-1",
                                                "long=1700000000123", "flag=true"}));
}

TEST_F(EventsTest, ApplicationEventWithoutDomainOrNameIsRefused) {
    EXPECT_EQ(HiAppEvent::Write(HiAppEvent::Event("", "name", HiAppEvent::FAULT)), -1);
    EXPECT_EQ(HiAppEvent::Write(HiAppEvent::Event("domain", "", HiAppEvent::FAULT)), -1);
    EXPECT_TRUE(TakeAppEvents().empty());
}

TEST_F(EventsTest, EachStreamHasItsOwnMode) {
    SetAllModes(SinkMode::DISCARD);
    SetSysEventMode(SinkMode::CAPTURE);
    HiSysEvent::Write("D", "N", HiSysEvent::STATISTIC);
    HiAppEvent::Write(HiAppEvent::Event("d", "n", HiAppEvent::STATISTIC));
    EXPECT_EQ(TakeSysEvents().size(), 1u);
    EXPECT_TRUE(TakeAppEvents().empty());

    SetSysEventMode(SinkMode::DISCARD);
    SetAppEventMode(SinkMode::CAPTURE);
    HiSysEvent::Write("D", "N", HiSysEvent::STATISTIC);
    HiAppEvent::Write(HiAppEvent::Event("d", "n", HiAppEvent::STATISTIC));
    EXPECT_TRUE(TakeSysEvents().empty());
    EXPECT_EQ(TakeAppEvents().size(), 1u);
}

class IdentityTest : public ::testing::Test {
protected:
    void SetUp() override { ResetAll(); }
    void TearDown() override { ResetAll(); }
};

TEST_F(IdentityTest, CallingUidAndBundleNameFollowTheControls) {
    std::string name = "untouched";
    EXPECT_EQ(IPCSkeleton::GetCallingUid(), -1);
    EXPECT_FALSE(AppExecFwk::BundleMgrClient().GetNameForUid(-1, name));
    EXPECT_EQ(name, "untouched");

    SetCallingApp("com.example.rides", 20010001);
    EXPECT_EQ(IPCSkeleton::GetCallingUid(), 20010001);
    EXPECT_TRUE(AppExecFwk::BundleMgrClient().GetNameForUid(20010001, name));
    EXPECT_EQ(name, "com.example.rides");

    // Earlier callers stay known by uid; the caller is the last one set.
    SetCallingApp("com.example.food", 20010002);
    EXPECT_EQ(IPCSkeleton::GetCallingUid(), 20010002);
    EXPECT_TRUE(AppExecFwk::BundleMgrClient().GetNameForUid(20010001, name));
    EXPECT_EQ(name, "com.example.rides");

    ClearCallingApp();
    EXPECT_EQ(IPCSkeleton::GetCallingUid(), -1);
    name = "untouched";
    EXPECT_FALSE(AppExecFwk::BundleMgrClient().GetNameForUid(20010001, name));
    EXPECT_EQ(name, "untouched");
}

TEST_F(IdentityTest, EmptyBundleNameIsNoName) {
    SetCallingApp("", 20010003);
    EXPECT_EQ(IPCSkeleton::GetCallingUid(), 20010003);
    std::string name = "untouched";
    EXPECT_FALSE(AppExecFwk::BundleMgrClient().GetNameForUid(20010003, name));
    EXPECT_EQ(name, "untouched");
}

TEST_F(IdentityTest, CallingPidIsThisProcess) {
    EXPECT_EQ(IPCSkeleton::GetCallingPid(), static_cast<int32_t>(getpid()));
}

}  // namespace
}  // namespace Host
}  // namespace Tavi
