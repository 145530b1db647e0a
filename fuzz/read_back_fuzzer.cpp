// Notification requests built from arbitrary bytes, as the service might hand them back: null
// parts, catalogue keys and other keys holding every box type (String, Integer, Long, Boolean,
// Double, nested parameter maps, arrays of any element type), rich-text JSON of any shape and
// depth, pictures of any size the host makes, extreme versions and auto-deleted times. The
// read-back must answer success, or its one error for a missing request, content or extra info;
// what it reads back goes through validation; and the same request held by the embedded service
// is read, updated and stopped through the client.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "fuzz_codec.h"
#include "fuzz_support.h"
#include "live_view_content_of.h"
#include "live_view_request_pipeline.h"

namespace {

using namespace LiveViewFuzz;

// The one answer the read-back owes a request whose parts are missing, or "" for success.
std::string ExpectedFailure(const sptr<Notification::NotificationRequest>& request) {
    if (request == nullptr) {
        return "The notificationRequest is nullptr.";
    }
    const auto content = LiveViewContentOf(*request);
    if (content == nullptr) {
        return "The liveViewContent is nullptr.";
    }
    return content->GetExtraInfo() == nullptr ? "The liveViewExtraInfo is nullptr." : "";
}

void ExpectPublic(const BaseRsp& rsp, const char* promise) {
    Expect(IsPublicCode(rsp.GetErrAsInt32()) && rsp.Succeed() == rsp.GetInfo().empty(), promise,
           rsp.GetErrAsInt32(), rsp.GetInfo());
}

// A small valid update for the live view under id.
LiveView ChangeOf(int id) {
    auto primary = std::make_shared<PrimaryData>();
    primary->SetTitle(std::make_shared<std::string>("changed"));
    auto data = std::make_shared<LiveViewData>();
    data->SetPrimary(primary);
    LiveView liveView;
    liveView.SetId(std::make_shared<int>(id));
    liveView.SetEvent("FUZZ");
    liveView.SetLiveViewData(data);
    return liveView;
}

// The request held by the service, read back, updated and stopped through the client.
void PlayThroughClient(const Notification::NotificationRequest& request, bool readable) {
    const int published = Notification::NotificationHelper::PublishNotification(request);
    const int id = request.GetNotificationId();
    LiveViewClient client;
    LiveView held;
    const int code = client.GetActiveLiveView(id, held);
    Expect(IsPublicCode(code), "get active answer", code);
    if (published == 0 && readable) {
        Expect(code == 0, "a held live view is read back", code);
    }
    LiveViewClient::LiveViewResult result;
    LiveView change = ChangeOf(id);
    ExpectPublic(client.UpdateLiveView(change, result), "update answer");
    ExpectPublic(client.StopLiveView(change, result), "stop answer");
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    FreshHost();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    ByteReader in(data, size);
    const sptr<Notification::NotificationRequest> request = ReadRequest(in);

    LiveView liveView;
    const BaseRsp rsp = NotificationRequestConversion::ConvertToLiveView(request, liveView);
    const std::string failure = ExpectedFailure(request);
    Expect(
        failure.empty() ? rsp.Succeed() : rsp.GetErr() == ERR_INTERNAL && rsp.GetInfo() == failure,
        "read-back answer", rsp.GetErrAsInt32(), rsp.GetInfo());
    // Reading again into the same record answers the same.
    const BaseRsp again = NotificationRequestConversion::ConvertToLiveView(request, liveView);
    Expect(SameAnswer(rsp, again), "repeatable read-back", again.GetErrAsInt32(), again.GetInfo());

    // Whatever came back is judged like any record, as the continuation of what was read.
    const HeldLiveView continued =
        failure.empty() ? HeldLiveView::FromExtraInfo(*LiveViewContentOf(*request)->GetExtraInfo())
                        : HeldLiveView();
    for (const LiveView::Operation operation :
         {LiveView::START, LiveView::UPDATE, LiveView::STOP}) {
        Notification::NotificationRequest built;
        ExpectVerdict(LiveViewRequestPipeline::Build(liveView, operation, continued, built).rsp,
                      "pipeline answer");
    }

    // The same request through the service and back through the client.
    if (request != nullptr) {
        PlayThroughClient(*request, failure.empty());
    }
    FreshHost();
    return 0;
}
