// Arbitrary bytes given to the command line's JSON front end as a live view file: parsed, written
// back and parsed again, read into a record, validated, and started, read back, updated and
// stopped through the client against the embedded service. A refusal or warning of the front end
// must be one line; what the writer writes must parse back as the same value; every answer of
// the library must be a public code.
#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz_support.h"
#include "json_document.h"
#include "json_writer.h"
#include "live_view_reader.h"

namespace {

using namespace Tavi::Wisp::LiveView;
using LiveViewFuzz::Expect;
using LiveViewFuzz::IsPublicCode;

void ExpectPublic(const BaseRsp& rsp, const char* promise) {
    Expect(IsPublicCode(rsp.GetErrAsInt32()) && rsp.Succeed() == rsp.GetInfo().empty(), promise,
           rsp.GetErrAsInt32(), rsp.GetInfo());
}

bool IsOneLine(const std::string& text) {
    return text.find('\n') == std::string::npos && text.find('\r') == std::string::npos;
}

void ExpectOneLine(const LiveViewJson::InputError& error) {
    Expect(error.IsSet() && IsOneLine(error.ToString()), "a refusal is one line", 0,
           error.ToString());
}

// Parsed text, written compact and indented, reads back as the same value.
void ExpectWrittenReadsBack(const LiveViewJson::JsonValue& value) {
    for (const int indent : {0, 2}) {
        const std::string written = LiveViewJson::WriteJson(value, indent);
        LiveViewJson::JsonDocument again;
        LiveViewJson::InputError error;
        Expect(LiveViewJson::ParseJson(written, "written.json", again, error) &&
                   *again.Root() == value,
               "written JSON reads back as the value", 0, error.ToString());
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    LiveViewJson::JsonDocument document;
    LiveViewJson::InputError error;
    if (!LiveViewJson::ParseJson(text, "fuzz.json", document, error)) {
        ExpectOneLine(error);
        return 0;
    }
    ExpectWrittenReadsBack(*document.Root());
    // Picture files are looked up among the examples' pictures.
    LiveViewJson::ReadContext context{"fuzz.json", LV_FUZZ_PICTURE_DIR, {}};
    LiveView liveView;
    if (!LiveViewJson::ReadLiveView(document.Root(), context, liveView)) {
        ExpectOneLine(context.error);
        return 0;
    }
    context.ReportUnknownMembers(*document.Root());
    for (const auto& warning : context.Warnings()) {
        Expect(IsOneLine(warning.ToString()), "a warning is one line", 0, warning.ToString());
    }
    LiveViewFuzz::FreshHost();
    for (const LiveView::Operation operation : {LiveView::START, LiveView::UPDATE}) {
        LiveViewFuzz::ExpectVerdict(
            LiveViewParamValidate::ValidateStartLiveViewParam(liveView, operation),
            "start entry point");
        LiveViewFuzz::ExpectVerdict(
            LiveViewParamValidate::ValidateUpdateLiveViewParam(liveView, operation),
            "update entry point");
    }
    LiveViewClient client;
    LiveViewClient::LiveViewResult result;
    ExpectPublic(client.StartLiveView(liveView, result), "start answer");
    if (liveView.GetId() != nullptr) {
        LiveView readBack;
        Expect(IsPublicCode(client.GetActiveLiveView(*liveView.GetId(), readBack)),
               "get active answer");
    }
    ExpectPublic(client.UpdateLiveView(liveView, result), "update answer");
    ExpectPublic(client.StopLiveView(liveView, result), "stop answer");
    return 0;
}
