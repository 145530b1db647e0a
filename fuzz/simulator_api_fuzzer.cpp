// Arbitrary bytes given to the simulator API's body readers: the first byte picks the call, the
// rest is its body. A refusal must name what is wrong; a publish that is read must hold a request
// whose wire form reads back to the same wire form, so that what the simulator stores and sends
// back is what it was sent.
#include <cstddef>
#include <cstdint>
#include <string>

#include "api_decode.h"
#include "fuzz_support.h"
#include "request_wire.h"

namespace {

using namespace LiveViewSimulator;
using LiveViewFuzz::Expect;

void ExpectNamed(bool read, const ApiError& error) {
    Expect(read || !error.message.empty(), "a refused body says what is wrong", 0, error.field);
}

void ExpectWireRoundTrip(const PublishCall& call) {
    Expect(call.request != nullptr, "a read publish holds a request");
    const std::string wire = Tavi::Host::Wire::RequestToText(*call.request);
    Tavi::sptr<Tavi::Notification::NotificationRequest> again;
    std::string error;
    Expect(Tavi::Host::Wire::RequestFromText(wire, again, error), "the wire form reads back", 0,
           error);
    Expect(Tavi::Host::Wire::RequestToText(*again) == wire, "the wire form is stable", 0, wire);
}

template <typename Call>
void Decode(bool (*decode)(const std::string&, Call&, ApiError&), const std::string& body) {
    Call call;
    ApiError error;
    ExpectNamed(decode(body, call, error), error);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) {
        return 0;
    }
    const std::string body(reinterpret_cast<const char*>(data) + 1, size - 1);
    ApiError error;
    switch (data[0] % 10) {
        case 0: {
            PublishCall call;
            const bool read = DecodePublish(body, call, error);
            ExpectNamed(read, error);
            if (read) {
                ExpectWireRoundTrip(call);
            }
            break;
        }
        case 1:
            Decode(DecodeGet, body);
            break;
        case 2:
            Decode(DecodeAppCall, body);
            break;
        case 3:
            Decode(DecodePress, body);
            break;
        case 4:
            Decode(DecodeSlot, body);
            break;
        case 5:
            Decode(DecodeRateLimit, body);
            break;
        case 6:
            Decode(DecodeClock, body);
            break;
        case 7:
            Decode(DecodeFailNext, body);
            break;
        case 8:
            Decode(DecodeHeldQuery, body);
            break;
        default:
            ExpectNamed(DecodeEmpty(body, error), error);
            break;
    }
    return 0;
}
