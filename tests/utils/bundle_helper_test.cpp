// BundleHelper: the calling application's bundle name, or a failure naming the uid.
#include <gtest/gtest.h>

#include <string>

#include "bundle_helper.h"
#include "host_control.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace {

class BundleHelperTest : public ::testing::Test {
protected:
    void SetUp() override {
        Host::ResetAll();
        Host::SetAllModes(Host::SinkMode::CAPTURE);
    }
    void TearDown() override { Host::ResetAll(); }
};

TEST_F(BundleHelperTest, FillsTheCallingAppsBundleName) {
    Host::SetCallingApp("com.example.rides", 20010001);
    std::string bundle = "previous";
    const BaseRsp rsp = BundleHelper::GetCurrBundle(bundle);
    EXPECT_TRUE(rsp.Succeed());
    EXPECT_EQ(rsp.GetErr(), SUCCESS);
    EXPECT_EQ(rsp.GetInfo(), "");
    EXPECT_EQ(bundle, "com.example.rides");

    Host::SetCallingApp("com.example.food", 20010002);
    EXPECT_TRUE(BundleHelper::GetCurrBundle(bundle).Succeed());
    EXPECT_EQ(bundle, "com.example.food");
}

TEST_F(BundleHelperTest, FailsWithInternalErrorNamingTheUidWhenTheCallerHasNoBundle) {
    const struct {
        const char* label;
        bool setApp;
        int32_t uid;
        const char* info;
    } rows[] = {
        {"no calling app", false, 0, "Get current bundle name failed, uid is -1."},
        {"calling app without a bundle name", true, 20010003,
         "Get current bundle name failed, uid is 20010003."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        Host::ClearCallingApp();
        if (row.setApp) {
            Host::SetCallingApp("", row.uid);
        }
        std::string bundle = "untouched";
        const BaseRsp rsp = BundleHelper::GetCurrBundle(bundle);
        EXPECT_FALSE(rsp.Succeed());
        EXPECT_EQ(rsp.GetErr(), ERR_INTERNAL);
        EXPECT_EQ(rsp.GetErrAsInt32(), 1003500001);
        EXPECT_EQ(rsp.GetInfo(), row.info);
        EXPECT_EQ(bundle, "untouched");
    }
    EXPECT_TRUE(Host::TakeLogLines().empty());
}

}  // namespace
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
