// A food delivery app built against the installed live view package: it starts a delivery live
// view with a button and a progress capsule, updates it through the delivery's stages, reacts to a
// press of the button and to the notification service's death, and prints one line per event so
// that a person or a test can follow it. With LIVEVIEW_SERVICE set it talks to a running
// simulator; without it, to the embedded service in this process.
#include <cerrno>
#include <chrono>
#include <climits>
#include <condition_variable>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <mutex>
#include <sstream>
#include <string>

#include "delivery_live_view.h"
#include "host_control.h"
#include "live_view_manager.h"
#include "notification_helper.h"

namespace LV = Tavi::Wisp::LiveView;
namespace Notification = Tavi::Notification;

namespace {

constexpr char kBundle[] = "com.example.delivery";
constexpr int32_t kUid = 20020001;

// Exit statuses.
constexpr int kDone = 0;
constexpr int kCallFailed = 1;
constexpr int kBadOption = 2;
constexpr int kServiceDied = 3;

constexpr char kUsage[] =
    R"(Usage: live_view_delivery_app [--id N] [--interval-ms MS] [--updates N]

A food delivery app: starts a delivery live view with a "Call Sam" button and a
progress capsule, updates it through the delivery's stages (preparing, picked up,
on the way, arriving), then stops it.

  --id N            the live view's id (default 7)
  --interval-ms MS  the wait before each update and before the stop
                    (default 3000; 0 to 3600000)
  --updates N       how many stages to go through before the stop (default 6: all)
  --help            print this text

Environment:
  LIVEVIEW_SERVICE  the URL that `liveview serve` prints
                    (http://127.0.0.1:PORT/?token=TOKEN): every call goes to that
                    simulator, and presses of the button on its page and its death
                    come back here. Unset: the embedded service in this process
                    answers.

Output, one line per event:
  started id=N code=0      updated id=N stage=S code=0      stopped id=N code=0
  OnResponse id=N button=NAME    OnDied
  a failed call: OPERATION id=N code=CODE message=MESSAGE
  after the service died, the answer of the next call:
  after OnDied: update id=N code=CODE message=MESSAGE

A press of the button makes the following updates say that Sam will call.

Exit status: 0 after the stop, 1 when a call fails, 2 for a wrong option,
3 after the service died.
)";

// Writes one whole line and flushes it; lines from different threads never mix.
void Say(const std::string& line) {
    static std::mutex mutex;
    std::lock_guard<std::mutex> lock(mutex);
    std::cout << line << std::endl;
}

// What the subscriber has heard, shared between the thread that delivers notices and the app's
// own thread. Thread-safe.
class Notices {
public:
    // A button of the app's live view was pressed: from now on the rider has been asked to call.
    void Pressed(int32_t id, const std::string& button) {
        std::lock_guard<std::mutex> lock(mutex_);
        askedToCall_ = true;
        Say("OnResponse id=" + std::to_string(id) + " button=" + button);
    }

    // The service died. The line is printed before the app's thread can see the death, so that
    // it precedes the answer of the next call.
    void Died() {
        {
            std::lock_guard<std::mutex> lock(mutex_);
            Say("OnDied");
            died_ = true;
        }
        changed_.notify_all();
    }

    bool AskedToCall() {
        std::lock_guard<std::mutex> lock(mutex_);
        return askedToCall_;
    }

    bool HasDied() {
        std::lock_guard<std::mutex> lock(mutex_);
        return died_;
    }

    // Waits for the given time, or less when the service dies; answers whether it has died.
    bool WaitUnlessDied(std::chrono::milliseconds time) {
        std::unique_lock<std::mutex> lock(mutex_);
        changed_.wait_for(lock, time, [this] { return died_; });
        return died_;
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    bool askedToCall_ = false;
    bool died_ = false;
};

// Hears the app's live view notices and hands them to Notices. Thread-safe.
class DeliverySubscriber : public Notification::NotificationLocalLiveViewSubscriber {
public:
    explicit DeliverySubscriber(Notices& notices) : notices_(notices) {}

    void OnConnected() override {}
    void OnDisconnected() override {}
    void OnResponse(int32_t notificationId,
                    Tavi::sptr<Notification::NotificationButtonOption> buttonOption) override {
        notices_.Pressed(notificationId,
                         buttonOption != nullptr ? buttonOption->GetButtonName() : "");
    }
    void OnDied() override { notices_.Died(); }

private:
    Notices& notices_;
};

struct Options {
    int id = 7;
    int intervalMs = 3000;
    int updates = Delivery::kLastStage;
};

// Reads a whole decimal number within [low, high] into value; false when text is anything else.
bool ParseNumber(const char* text, long low, long high, int& value) {
    char* end = nullptr;
    errno = 0;
    const long number = std::strtol(text, &end, 10);
    if (end == text || *end != '\0' || errno != 0 || number < low || number > high) {
        return false;
    }
    value = static_cast<int>(number);
    return true;
}

enum class Parsed { RUN, HELP, WRONG };

// Fills options from the command line. WRONG is explained on standard error.
Parsed ParseOptions(int argc, char** argv, Options& options) {
    struct Numeric {
        const char* name;
        long low;
        long high;
        int* value;
    };
    const Numeric numerics[] = {
        {"--id", INT_MIN, INT_MAX, &options.id},
        {"--interval-ms", 0, 3600000, &options.intervalMs},
        {"--updates", 0, Delivery::kLastStage, &options.updates},
    };
    // Every option but --help is followed by its value.
    for (int i = 1; i < argc; i += 2) {
        const char* arg = argv[i];
        if (std::strcmp(arg, "--help") == 0 || std::strcmp(arg, "-h") == 0) {
            return Parsed::HELP;
        }
        const Numeric* option = nullptr;
        for (const Numeric& numeric : numerics) {
            if (std::strcmp(arg, numeric.name) == 0) {
                option = &numeric;
            }
        }
        if (option == nullptr) {
            std::cerr << "live_view_delivery_app: unknown option " << arg << " (see --help)\n";
            return Parsed::WRONG;
        }
        if (i + 1 == argc || !ParseNumber(argv[i + 1], option->low, option->high, *option->value)) {
            std::cerr << "live_view_delivery_app: " << option->name << " takes a whole number from "
                      << option->low << " to " << option->high << '\n';
            return Parsed::WRONG;
        }
    }
    return Parsed::RUN;
}

// The answer of one call: the library's code and message.
struct Answer {
    int32_t code = 0;
    std::string message;
};

enum class Operation { START, UPDATE, STOP };

const char* NameOf(Operation operation) {
    switch (operation) {
        case Operation::START:
            return "start";
        case Operation::UPDATE:
            return "update";
        case Operation::STOP:
            return "stop";
    }
    return "";
}

Answer Publish(Operation operation, LV::LiveView& liveView) {
    LV::LiveViewClient client;
    LV::LiveViewClient::LiveViewResult result;
    const LV::BaseRsp rsp = operation == Operation::START ? client.StartLiveView(liveView, result)
                            : operation == Operation::UPDATE
                                ? client.UpdateLiveView(liveView, result)
                                : client.StopLiveView(liveView, result);
    if (!rsp.Succeed()) {
        return {rsp.GetErrAsInt32(), rsp.GetInfo()};
    }
    return {result.code, result.message};
}

std::string Described(const std::string& operation, int id, const Answer& answer) {
    std::ostringstream line;
    line << operation << " id=" << id << " code=" << answer.code << " message=" << answer.message;
    return line.str();
}

// Runs the delivery from start to stop; answers the exit status.
int RunDelivery(const Options& options, Notices& notices) {
    const auto interval = std::chrono::milliseconds(options.intervalMs);
    const int id = options.id;
    int sequence = 1;
    int stage = 0;

    // After the service died the app makes its next call at once and reports what it answered.
    const auto afterDeath = [&] {
        const auto liveView = Delivery::MakeDeliveryLiveView(
            id, ++sequence, Delivery::kStages[stage], notices.AskedToCall());
        Say("after OnDied: " + Described("update", id, Publish(Operation::UPDATE, *liveView)));
        return kServiceDied;
    };
    // Publishes liveView and prints the line of a failure; answers whether the call succeeded.
    const auto succeeded = [&](Operation operation, LV::LiveView& liveView) {
        const Answer answer = Publish(operation, liveView);
        if (answer.code != 0) {
            Say(Described(NameOf(operation), id, answer));
        }
        return answer.code == 0;
    };
    // The end of the run after a failed call: if the service died meanwhile, its next call.
    const auto failure = [&] { return notices.HasDied() ? afterDeath() : kCallFailed; };

    auto liveView = Delivery::MakeDeliveryLiveView(id, sequence, Delivery::kStages[stage], false);
    if (!succeeded(Operation::START, *liveView)) {
        return failure();
    }
    Say("started id=" + std::to_string(id) + " code=0");

    while (stage < options.updates) {
        if (notices.WaitUnlessDied(interval)) {
            return afterDeath();
        }
        ++stage;
        liveView = Delivery::MakeDeliveryLiveView(id, ++sequence, Delivery::kStages[stage],
                                                  notices.AskedToCall());
        if (!succeeded(Operation::UPDATE, *liveView)) {
            return failure();
        }
        Say("updated id=" + std::to_string(id) + " stage=" + std::to_string(stage) + " code=0");
    }

    if (notices.WaitUnlessDied(interval)) {
        return afterDeath();
    }
    liveView =
        Delivery::MakeDeliveryLiveView(id, ++sequence, Delivery::kDelivered, notices.AskedToCall());
    LV::LiveView::GetPrimaryData(*liveView)->SetKeepTime(
        std::make_shared<int>(Delivery::kDeliveredKeepSeconds));
    if (!succeeded(Operation::STOP, *liveView)) {
        return failure();
    }
    Say("stopped id=" + std::to_string(id) + " code=0");
    return kDone;
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    switch (ParseOptions(argc, argv, options)) {
        case Parsed::HELP:
            std::cout << kUsage;
            return kDone;
        case Parsed::WRONG:
            return kBadOption;
        case Parsed::RUN:
            break;
    }

    // On a device the calling app is implicit; the host platform must be told.
    Tavi::Host::SetCallingApp(kBundle, kUid);
    Tavi::Host::SetAllModes(Tavi::Host::SinkMode::DISCARD);

    // Never destroyed: notices may arrive on the host platform's thread until the process ends.
    auto* notices = new Notices();
    auto* subscriber = new DeliverySubscriber(*notices);
    const Notification::ErrCode subscribed =
        Notification::NotificationHelper::SubscribeLocalLiveViewNotification(*subscriber);
    if (subscribed != Notification::ERR_OK) {
        // Reported in the library's public codes, like every other call.
        const Answer answer{
            static_cast<int32_t>(LV::LiveViewErrorConversion::ReturnLiveViewError(subscribed)),
            "subscribing failed: service error " + std::to_string(subscribed)};
        Say(Described("subscribe", options.id, answer));
        return kCallFailed;
    }
    return RunDelivery(options, *notices);
}
