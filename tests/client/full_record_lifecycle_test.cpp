// Every full record (every section, every field) lives its whole life through the client: it is
// started, read back as it was sent, updated, stopped with a keep time, readable while that time
// runs and gone after it.
#include <gtest/gtest.h>

#include "client_test_support.h"
#include "full_records.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace ClientTesting {
namespace {

using FullRecordLifecycleTest = ClientTest;

TEST_F(FullRecordLifecycleTest, EveryKindStartsReadsBackUpdatesAndEnds) {
    int id = 0;
    for (const auto& kinds : FullRecordKindList()) {
        SCOPED_TRACE(std::string(kinds.layoutName) + " layout, " + kinds.capsuleName + " capsule");
        const auto record = FullRecord(kinds, ++id);
        LiveViewClient::LiveViewResult result;
        ASSERT_EQ(client_.StartLiveView(*record, result).GetErrAsInt32(), 0);

        LiveView held;
        ASSERT_EQ(client_.GetActiveLiveView(id, held), 0);
        EXPECT_EQ(LiveView::GetLayoutType(held), kinds.layout);
        EXPECT_EQ(LiveView::GetCapsuleType(held), kinds.capsule);
        EXPECT_EQ(*LiveView::GetPrimaryData(held)->GetTitle(),
                  *LiveView::GetPrimaryData(*record)->GetTitle());
        EXPECT_EQ(*LiveView::GetExternalData(held)->GetTitle(),
                  *LiveView::GetExternalData(*record)->GetTitle());
        EXPECT_EQ(LiveView::GetExtensionData(held)->GetType(),
                  LiveView::GetExtensionData(*record)->GetType());

        *record->GetSequence() = 2;
        EXPECT_EQ(client_.UpdateLiveView(*record, result).GetErrAsInt32(), 0);
        EXPECT_EQ(result.code, 0);
        *record->GetSequence() = 3;
        EXPECT_EQ(client_.StopLiveView(*record, result).GetErrAsInt32(), 0);
        const int keepSeconds = *LiveView::GetPrimaryData(*record)->GetKeepTime();
        Host::AdvanceClock(keepSeconds * 1000L - 1);
        EXPECT_EQ(client_.GetActiveLiveView(id, held), 0);
        Host::AdvanceClock(2);
        EXPECT_EQ(client_.GetActiveLiveView(id, held), ERR_LIVE_VIEW_NOT_EXIST);
    }
}

}  // namespace
}  // namespace ClientTesting
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
