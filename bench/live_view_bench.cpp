// The benchmark program: what the library costs on the caller's thread, against the embedded
// notification service and against the floor of writing the same output with nothing checked.
// How to build and run it, and what the figures mean: docs/performance.md.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <regex>
#include <string>
#include <vector>

#include "alloc_counter.h"
#include "bench_records.h"
#include "host_control.h"
#include "live_view_content_of.h"
#include "notification_helper.h"
#include "notification_live_view_filter.h"

namespace LiveViewBench {
namespace {

using LV::LiveView;
using LV::LiveViewClient;
using Validate = LV::LiveViewParamValidate;
using Convert = LV::LiveViewParamConversion;

const std::string BUNDLE = "com.example.food";
constexpr int32_t UID = 20010001;

// Start and stop need live views that are not active (start) or active (stop); ids cycle through
// this many before the service is reset outside the timed region.
constexpr int ID_CYCLE = 256;

[[noreturn]] void Die(const std::string& what) {
    std::fprintf(stderr, "live_view_bench: %s\n", what.c_str());
    std::exit(1);
}

// What the embedded service holds, so that a benchmark rebuilds it only when another one changed
// it.
enum class HostState { UNKNOWN, EMPTY, HELD };
HostState g_hostState = HostState::UNKNOWN;
int g_heldCount = 0;

// A fresh service: the benchmark app as caller, no publish limit, nothing recorded or printed.
void ConfigureHost() {
    Tavi::Host::ResetAll();
    Tavi::Host::SetCallingApp(BUNDLE, UID);
    Tavi::Host::SetRateLimit(0);
    Tavi::Host::SetPublishRecording(false);
    Tavi::Host::SetAllModes(Tavi::Host::SinkMode::DISCARD);
    g_hostState = HostState::EMPTY;
}

void MustStart(LiveView& liveView) {
    LiveViewClient::LiveViewResult result;
    LV::BaseRsp rsp = LiveViewClient().StartLiveView(liveView, result);
    if (!rsp.Succeed()) {
        Die("start failed: " + rsp.GetInfo());
    }
}

// Allocations of the timed region: everything the thread allocated since construction, less what
// it allocated while timing was paused.
class AllocMeter {
public:
    AllocMeter() : begin_(ThreadAllocations()) {}

    // Runs work outside the timed region and outside the allocation count.
    template <typename Work>
    void Untimed(benchmark::State& state, Work&& work) {
        state.PauseTiming();
        const AllocCount before = ThreadAllocations();
        work();
        const AllocCount after = ThreadAllocations();
        state.ResumeTiming();
        excluded_.allocations += after.allocations - before.allocations;
        excluded_.bytes += after.bytes - before.bytes;
    }

    // Per-iteration allocations and bytes, shown beside the time.
    void Report(benchmark::State& state) const {
        const AllocCount end = ThreadAllocations();
        const double allocations =
            static_cast<double>(end.allocations - begin_.allocations - excluded_.allocations);
        const double bytes = static_cast<double>(end.bytes - begin_.bytes - excluded_.bytes);
        state.counters["allocs"] =
            benchmark::Counter(allocations, benchmark::Counter::kAvgIterations);
        state.counters["bytes"] = benchmark::Counter(bytes, benchmark::Counter::kAvgIterations);
    }

private:
    AllocCount begin_;
    AllocCount excluded_;
};

// Runs work once more, after the timed loop, with cJSON's allocations counted too, and shows them
// as "cjson_allocs": with "allocs" (operator new, timed loop) they are every heap allocation of
// one call. cJSON is not counted in the timed loop, as counting changes how it allocates.
template <typename Work>
void ReportCJsonAllocations(benchmark::State& state, Work&& work) {
    CJsonCounting counting;
    const AllocCount before = ThreadAllocations();
    work();
    const AllocCount after = ThreadAllocations();
    state.counters["cjson_allocs"] =
        static_cast<double>(after.cjsonAllocations - before.cjsonAllocations);
}

// ---------------------------------------------------------------------------------------------
// The client against the embedded service.

void BM_StartLiveView(benchmark::State& state, int kindIndex) {
    ConfigureHost();
    auto liveView = MakeFullRecord(kindIndex, 1);
    const auto id = liveView->GetId();
    LiveViewClient client;
    LiveViewClient::LiveViewResult result;
    int next = 1;
    AllocMeter meter;
    for (auto _ : state) {
        if (next > ID_CYCLE) {
            meter.Untimed(state, [] { ConfigureHost(); });
            next = 1;
        }
        *id = next++;
        LV::BaseRsp rsp = client.StartLiveView(*liveView, result);
        if (!rsp.Succeed()) {
            state.SkipWithError(rsp.GetInfo().c_str());
            break;
        }
    }
    meter.Report(state);
    ConfigureHost();
    *id = 1;
    ReportCJsonAllocations(state, [&] { client.StartLiveView(*liveView, result); });
    g_hostState = HostState::UNKNOWN;
}

void BM_UpdateLiveView(benchmark::State& state, int kindIndex) {
    ConfigureHost();
    auto liveView = MakeFullRecord(kindIndex, 1);
    MustStart(*liveView);
    // The application sends each state with the next sequence number.
    const auto sequence = liveView->GetSequence();
    LiveViewClient client;
    LiveViewClient::LiveViewResult result;
    AllocMeter meter;
    for (auto _ : state) {
        ++*sequence;
        LV::BaseRsp rsp = client.UpdateLiveView(*liveView, result);
        if (!rsp.Succeed()) {
            state.SkipWithError(rsp.GetInfo().c_str());
            break;
        }
    }
    meter.Report(state);
    ++*sequence;
    ReportCJsonAllocations(state, [&] { client.UpdateLiveView(*liveView, result); });
    g_hostState = HostState::UNKNOWN;
}

void BM_StopLiveView(benchmark::State& state, int kindIndex) {
    auto startRecord = MakeFullRecord(kindIndex, 1);
    auto stopRecord = MakeFullRecord(kindIndex, 1);
    const auto startId = startRecord->GetId();
    const auto stopId = stopRecord->GetId();
    *stopRecord->GetSequence() = 2;
    // Starts ids 1 .. ID_CYCLE for the stops that follow.
    auto startAll = [&] {
        ConfigureHost();
        for (int id = 1; id <= ID_CYCLE; ++id) {
            *startId = id;
            MustStart(*startRecord);
        }
    };
    startAll();
    LiveViewClient client;
    LiveViewClient::LiveViewResult result;
    int next = 1;
    AllocMeter meter;
    for (auto _ : state) {
        if (next > ID_CYCLE) {
            meter.Untimed(state, startAll);
            next = 1;
        }
        *stopId = next++;
        LV::BaseRsp rsp = client.StopLiveView(*stopRecord, result);
        if (!rsp.Succeed()) {
            state.SkipWithError(rsp.GetInfo().c_str());
            break;
        }
    }
    meter.Report(state);
    startAll();
    *stopId = 1;
    ReportCJsonAllocations(state, [&] { client.StopLiveView(*stopRecord, result); });
    g_hostState = HostState::UNKNOWN;
}

// The service holds held live views of the caller; the one asked for is a full record in the
// middle of the ids, the others small records.
void BM_GetActiveLiveView(benchmark::State& state) {
    const int held = static_cast<int>(state.range(0));
    const int askedId = held / 2 + 1;
    if (g_hostState != HostState::HELD || g_heldCount != held) {
        ConfigureHost();
        for (int id = 1; id <= held; ++id) {
            auto record = id == askedId ? MakeFullRecord(3, id) : MakeSmallRecord(id);
            MustStart(*record);
        }
        g_hostState = HostState::HELD;
        g_heldCount = held;
    }
    LiveViewClient client;
    AllocMeter meter;
    for (auto _ : state) {
        LiveView liveView;
        const int ret = client.GetActiveLiveView(askedId, liveView);
        if (ret != 0) {
            state.SkipWithError("GetActiveLiveView failed");
            break;
        }
        benchmark::DoNotOptimize(liveView);
    }
    meter.Report(state);
    ReportCJsonAllocations(state, [&] {
        LiveView liveView;
        client.GetActiveLiveView(askedId, liveView);
    });
}

// ---------------------------------------------------------------------------------------------
// The whole of a start's checks and conversions, and the floor.

void BM_ValidateAndConvert(benchmark::State& state, int kindIndex) {
    auto liveView = MakeFullRecord(kindIndex, 1);
    AllocMeter meter;
    for (auto _ : state) {
        Tavi::Notification::NotificationRequest request;
        if (!ValidateAndConvertForStart(*liveView, request)) {
            state.SkipWithError("a check failed");
            break;
        }
        benchmark::DoNotOptimize(request);
    }
    meter.Report(state);
    ReportCJsonAllocations(state, [&] {
        Tavi::Notification::NotificationRequest request;
        ValidateAndConvertForStart(*liveView, request);
    });
}

void BM_Floor(benchmark::State& state, int kindIndex) {
    auto liveView = MakeFullRecord(kindIndex, 1);
    Tavi::Notification::NotificationRequest reference;
    if (!ValidateAndConvertForStart(*liveView, reference)) {
        Die("the full record fails its checks");
    }
    const auto content = LV::LiveViewContentOf(reference);
    const FloorPlan plan(*content->GetExtraInfo(), content->GetPicture());
    // The floor must write exactly what the library wrote.
    Tavi::AAFwk::WantParams check;
    PictureMap checkPictures;
    plan.Write(check, checkPictures);
    if (check != *content->GetExtraInfo() || checkPictures != content->GetPicture()) {
        Die("the floor does not write what the library wrote");
    }
    state.counters["keys"] = static_cast<double>(plan.KeyCount());
    AllocMeter meter;
    for (auto _ : state) {
        // The same fresh request, content and maps that the pipeline builds.
        Tavi::Notification::NotificationRequest request;
        auto liveViewContent = std::make_shared<Tavi::Notification::NotificationLiveViewContent>();
        auto extraInfo = std::make_shared<Tavi::AAFwk::WantParams>();
        PictureMap pictureMap;
        plan.Write(*extraInfo, pictureMap);
        liveViewContent->SetExtraInfo(extraInfo);
        liveViewContent->SetPicture(std::move(pictureMap));
        request.SetContent(
            std::make_shared<Tavi::Notification::NotificationContent>(liveViewContent));
        benchmark::DoNotOptimize(request);
    }
    meter.Report(state);
}

// ---------------------------------------------------------------------------------------------
// Each check alone. Layouts and capsules by kind; the capsule arguments index LAYOUT_KINDS, whose
// first three records carry the progress, text and timer capsules.

template <typename Check>
void RunCheck(benchmark::State& state, const LiveView& liveView, Check&& check) {
    AllocMeter meter;
    for (auto _ : state) {
        LV::BaseRsp rsp = check(liveView);
        if (!rsp.Succeed()) {
            state.SkipWithError(rsp.GetInfo().c_str());
            break;
        }
        benchmark::DoNotOptimize(rsp);
    }
    meter.Report(state);
}

const LiveView::Operation START = LiveView::START;

void BM_CheckCommon(benchmark::State& state) {
    auto liveView = MakeFullRecord(0, 1);
    RunCheck(state, *liveView,
             [](const LiveView& v) { return Validate::CommonDataParamValidate(v); });
}

void BM_CheckTimer(benchmark::State& state) {
    auto liveView = MakeFullRecord(0, 1);
    RunCheck(state, *liveView,
             [](const LiveView& v) { return Validate::TimerDataParamValidate(v); });
}

void BM_CheckPrimary(benchmark::State& state) {
    auto liveView = MakeFullRecord(0, 1);
    RunCheck(state, *liveView,
             [](const LiveView& v) { return Validate::PrimaryDataParamValidate(v, START); });
}

void BM_CheckExtension(benchmark::State& state) {
    auto liveView = MakeFullRecord(0, 1);
    RunCheck(state, *liveView, [](const LiveView& v) {
        bool present = false;
        return Validate::ExtendDataParamValidate(v, present);
    });
}

void BM_CheckLayout(benchmark::State& state, int kindIndex) {
    auto liveView = MakeFullRecord(kindIndex, 1);
    RunCheck(state, *liveView, [](const LiveView& v) {
        bool present = false;
        return Validate::LayoutDataParamValidate(v, START, present);
    });
}

void BM_CheckCapsule(benchmark::State& state, int kindIndex) {
    auto liveView = MakeFullRecord(kindIndex, 1);
    RunCheck(state, *liveView, [](const LiveView& v) {
        bool present = false;
        return Validate::CapsuleDataParamValidate(v, START, present);
    });
}

void BM_CheckExternal(benchmark::State& state) {
    auto liveView = MakeFullRecord(0, 1);
    RunCheck(state, *liveView, [](const LiveView& v) {
        bool present = false;
        return Validate::ExternalDataParamValidate(v, START, present);
    });
}

// ---------------------------------------------------------------------------------------------
// Each conversion alone, into fresh outputs as a client operation makes them.

template <typename Conversion>
void RunConversion(benchmark::State& state, const LiveView& liveView, Conversion&& convert) {
    AllocMeter meter;
    for (auto _ : state) {
        Outputs out;
        convert(liveView, out);
        benchmark::DoNotOptimize(out);
    }
    meter.Report(state);
    ReportCJsonAllocations(state, [&] {
        Outputs out;
        convert(liveView, out);
    });
}

void BM_ConvertCommon(benchmark::State& state) {
    auto liveView = MakeFullRecord(0, 1);
    RunConversion(state, *liveView, [](const LiveView& v, Outputs& out) {
        Convert::CommonDataParamConversion(v, out.request, out.extraInfo, out.content);
    });
}

void BM_ConvertTimer(benchmark::State& state) {
    auto liveView = MakeFullRecord(0, 1);
    RunConversion(state, *liveView, [](const LiveView& v, Outputs& out) {
        Convert::TimerDataParamConversion(v, out.extraInfo, false);
    });
}

void BM_ConvertPrimary(benchmark::State& state) {
    auto liveView = MakeFullRecord(0, 1);
    RunConversion(state, *liveView, [](const LiveView& v, Outputs& out) {
        Convert::PrimaryDataParamConversion(v, out.request, out.extraInfo, out.content, START);
    });
}

void BM_ConvertExtension(benchmark::State& state) {
    auto liveView = MakeFullRecord(0, 1);
    RunConversion(state, *liveView, [](const LiveView& v, Outputs& out) {
        Convert::ExtendDataParamConversion(v, out.request, out.extraInfo, out.pictureMap);
    });
}

void BM_ConvertLayout(benchmark::State& state, int kindIndex) {
    auto liveView = MakeFullRecord(kindIndex, 1);
    RunConversion(state, *liveView, [](const LiveView& v, Outputs& out) {
        Convert::LayoutDataParamConversion(v, out.extraInfo, out.pictureMap);
    });
}

void BM_ConvertCapsule(benchmark::State& state, int kindIndex) {
    auto liveView = MakeFullRecord(kindIndex, 1);
    RunConversion(state, *liveView, [](const LiveView& v, Outputs& out) {
        Convert::CapsuleDataParamConversion(v, out.extraInfo, out.pictureMap);
    });
}

void BM_ConvertExternal(benchmark::State& state) {
    auto liveView = MakeFullRecord(0, 1);
    RunConversion(state, *liveView, [](const LiveView& v, Outputs& out) {
        Convert::ExternalDataParamConversion(v, out.extraInfo);
    });
}

// ---------------------------------------------------------------------------------------------
// Reading back: a full record as the service answers it, turned into a fresh record.

void BM_ConvertToLiveView(benchmark::State& state, int kindIndex) {
    ConfigureHost();
    auto liveView = MakeFullRecord(kindIndex, 1);
    MustStart(*liveView);
    Tavi::Notification::LiveViewFilter filter;
    filter.bundle = Tavi::Notification::NotificationBundleOption(BUNDLE, UID);
    filter.notificationKey.id = 1;
    Tavi::sptr<Tavi::Notification::NotificationRequest> request;
    if (Tavi::Notification::NotificationHelper::GetActiveNotificationByFilter(filter, request) !=
        0) {
        Die("the service does not answer the started live view");
    }
    g_hostState = HostState::UNKNOWN;
    AllocMeter meter;
    for (auto _ : state) {
        LiveView readBack;
        LV::BaseRsp rsp = LV::NotificationRequestConversion::ConvertToLiveView(request, readBack);
        if (!rsp.Succeed()) {
            state.SkipWithError(rsp.GetInfo().c_str());
            break;
        }
        benchmark::DoNotOptimize(readBack);
    }
    meter.Report(state);
    ReportCJsonAllocations(state, [&] {
        LiveView readBack;
        LV::NotificationRequestConversion::ConvertToLiveView(request, readBack);
    });
}

// ---------------------------------------------------------------------------------------------
// The colour check. CheckArgbHexColor is file-local to the validation source, so it is measured
// through the capsule check of a capsule whose only colour-free work is its status, type and icon
// string; the comparison compiles the same pattern on every call and matches the same colour,
// without the rest of the capsule check, which makes the ratio a lower bound.

constexpr const char* ARGB_PATTERN = "^#([A-Fa-f0-9]{8})$";

void BM_ColorCheckThroughCapsule(benchmark::State& state) {
    auto liveView = MakeColorCapsuleRecord();
    RunCheck(state, *liveView, [](const LiveView& v) {
        bool present = false;
        return Validate::CapsuleDataParamValidate(v, START, present);
    });
}

void BM_ColorPatternCompiledPerCall(benchmark::State& state) {
    const std::string color = "#FF202020";
    AllocMeter meter;
    for (auto _ : state) {
        const std::regex pattern(ARGB_PATTERN);
        bool matched = std::regex_match(color, pattern);
        benchmark::DoNotOptimize(matched);
    }
    meter.Report(state);
}

// For reference: the match alone against a pattern built once.
void BM_ColorPatternMatchOnly(benchmark::State& state) {
    const std::string color = "#FF202020";
    static const std::regex pattern(ARGB_PATTERN);
    AllocMeter meter;
    for (auto _ : state) {
        bool matched = std::regex_match(color, pattern);
        benchmark::DoNotOptimize(matched);
    }
    meter.Report(state);
}

// ---------------------------------------------------------------------------------------------
// Rich text: the primary data's check and conversion with a content of N runs.

void BM_RichText(benchmark::State& state) {
    auto liveView = MakeRichTextRecord(static_cast<int>(state.range(0)));
    AllocMeter meter;
    for (auto _ : state) {
        Outputs out;
        LV::BaseRsp rsp = Validate::PrimaryDataParamValidate(*liveView, START);
        if (!rsp.Succeed()) {
            state.SkipWithError(rsp.GetInfo().c_str());
            break;
        }
        Convert::PrimaryDataParamConversion(*liveView, out.request, out.extraInfo, out.content,
                                            START);
        benchmark::DoNotOptimize(out);
    }
    meter.Report(state);
    ReportCJsonAllocations(state, [&] {
        Outputs out;
        Convert::PrimaryDataParamConversion(*liveView, out.request, out.extraInfo, out.content,
                                            START);
    });
}

std::string KindName(int kindIndex) {
    return std::string(LayoutName(kindIndex)) + "_layout+" +
           CapsuleName(CapsuleKindFor(kindIndex)) + "_capsule";
}

void RegisterAll() {
    using benchmark::RegisterBenchmark;
    for (int k = 0; k < LAYOUT_KIND_COUNT; ++k) {
        RegisterBenchmark(("StartLiveView/" + KindName(k)).c_str(), BM_StartLiveView, k);
    }
    for (int k = 0; k < LAYOUT_KIND_COUNT; ++k) {
        RegisterBenchmark(("UpdateLiveView/" + KindName(k)).c_str(), BM_UpdateLiveView, k);
    }
    for (int k = 0; k < LAYOUT_KIND_COUNT; ++k) {
        RegisterBenchmark(("StopLiveView/" + KindName(k)).c_str(), BM_StopLiveView, k);
    }
    RegisterBenchmark("GetActiveLiveView/held", BM_GetActiveLiveView)
        ->Arg(10)
        ->Arg(1000)
        ->Arg(10000);
    for (int k = 0; k < LAYOUT_KIND_COUNT; ++k) {
        RegisterBenchmark(("ValidateAndConvert/" + KindName(k)).c_str(), BM_ValidateAndConvert, k);
        RegisterBenchmark(("Floor/" + KindName(k)).c_str(), BM_Floor, k);
    }
    RegisterBenchmark("Check/common", BM_CheckCommon);
    RegisterBenchmark("Check/timer", BM_CheckTimer);
    RegisterBenchmark("Check/primary", BM_CheckPrimary);
    RegisterBenchmark("Check/extension", BM_CheckExtension);
    for (int k = 0; k < LAYOUT_KIND_COUNT; ++k) {
        RegisterBenchmark((std::string("Check/layout/") + LayoutName(k)).c_str(), BM_CheckLayout,
                          k);
    }
    for (int k = 0; k < 3; ++k) {
        RegisterBenchmark((std::string("Check/capsule/") + CapsuleName(CapsuleKindFor(k))).c_str(),
                          BM_CheckCapsule, k);
    }
    RegisterBenchmark("Check/external", BM_CheckExternal);
    RegisterBenchmark("Convert/common", BM_ConvertCommon);
    RegisterBenchmark("Convert/timer", BM_ConvertTimer);
    RegisterBenchmark("Convert/primary", BM_ConvertPrimary);
    RegisterBenchmark("Convert/extension", BM_ConvertExtension);
    for (int k = 0; k < LAYOUT_KIND_COUNT; ++k) {
        RegisterBenchmark((std::string("Convert/layout/") + LayoutName(k)).c_str(),
                          BM_ConvertLayout, k);
    }
    for (int k = 0; k < 3; ++k) {
        RegisterBenchmark(
            (std::string("Convert/capsule/") + CapsuleName(CapsuleKindFor(k))).c_str(),
            BM_ConvertCapsule, k);
    }
    RegisterBenchmark("Convert/external", BM_ConvertExternal);
    for (int k = 0; k < LAYOUT_KIND_COUNT; ++k) {
        RegisterBenchmark(("ConvertToLiveView/" + KindName(k)).c_str(), BM_ConvertToLiveView, k);
    }
    RegisterBenchmark("CheckArgbHexColor/through_capsule_check", BM_ColorCheckThroughCapsule);
    RegisterBenchmark("CheckArgbHexColor/pattern_compiled_per_call",
                      BM_ColorPatternCompiledPerCall);
    RegisterBenchmark("CheckArgbHexColor/pattern_built_once_match_only", BM_ColorPatternMatchOnly);
    RegisterBenchmark("RichText/runs", BM_RichText)->Arg(1)->Arg(10)->Arg(100)->Arg(1000);
}

}  // namespace
}  // namespace LiveViewBench

int main(int argc, char** argv) {
    LiveViewBench::ConfigureHost();
    LiveViewBench::RegisterAll();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
