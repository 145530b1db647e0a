// What every harness shares: a fresh, silent host for each input, and the promises that any
// answer of the library keeps whatever it was handed. A broken promise stops the run like a
// crash, so that the fuzzer keeps the input.
#ifndef LIVE_VIEW_FUZZ_FUZZ_SUPPORT_H
#define LIVE_VIEW_FUZZ_FUZZ_SUPPORT_H

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "host_control.h"
#include "live_view_manager.h"

namespace LiveViewFuzz {

constexpr int32_t FUZZ_UID = 20040004;
constexpr int64_t FUZZ_START_MILLIS = 9000000;

// Everything forgotten, nothing printed, one app calling, no publish limit, a clock that does
// not move by itself. A harness that calls it at the end of each input (and once from
// LLVMFuzzerInitialize) frees within the input all that the input allocated, so libFuzzer sees
// no growth to hunt down as a leak by running the input again.
inline void FreshHost() {
    Tavi::Host::ResetAll();
    Tavi::Host::SetAllModes(Tavi::Host::SinkMode::DISCARD);
    Tavi::Host::SetCallingApp("com.example.fuzz", FUZZ_UID);
    Tavi::Host::SetRateLimit(0);
    Tavi::Host::SetPublishRecording(false);
    Tavi::Host::SetClockMillis(FUZZ_START_MILLIS);
}

[[noreturn]] inline void Broken(const char* promise, int code, const std::string& message) {
    std::fprintf(stderr, "broken promise: %s (code %d, message \"%.200s\")\n", promise, code,
                 message.c_str());
    std::abort();
}

inline void Expect(bool condition, const char* promise, int code = 0,
                   const std::string& message = "") {
    if (!condition) {
        Broken(promise, code, message);
    }
}

// Every code an operation may answer: success, the parameter error or a public service code.
inline bool IsPublicCode(int code) {
    return code == 0 || code == Tavi::Wisp::LiveView::ERR_PARAM_INVALID ||
           (code >= Tavi::Wisp::LiveView::ERR_INTERNAL &&
            code <= Tavi::Wisp::LiveView::ERR_SEQUENCE_INCORRECT);
}

// A check answers success with no message, or the parameter error with one.
inline void ExpectVerdict(const Tavi::Wisp::LiveView::BaseRsp& rsp, const char* promise) {
    const bool ok = rsp.Succeed() ? rsp.GetInfo().empty()
                                  : rsp.GetErr() == Tavi::Wisp::LiveView::ERR_PARAM_INVALID &&
                                        !rsp.GetInfo().empty();
    Expect(ok, promise, rsp.GetErrAsInt32(), rsp.GetInfo());
}

inline bool SameAnswer(const Tavi::Wisp::LiveView::BaseRsp& a,
                       const Tavi::Wisp::LiveView::BaseRsp& b) {
    return a.GetErr() == b.GetErr() && a.GetInfo() == b.GetInfo();
}

}  // namespace LiveViewFuzz

#endif  // LIVE_VIEW_FUZZ_FUZZ_SUPPORT_H
