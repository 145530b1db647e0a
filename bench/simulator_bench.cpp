// The simulator's benchmark program: a real `liveview serve` started as a child process and driven
// over loopback, measuring the round trip of a publish (raw and through the library), publishes a
// second from several clients, the drawing of the page's state with many live views held, and the
// change events that open pages receive. A last part times the server's own steps in this process,
// without HTTP, to show where a round trip goes. It prints tables of percentiles; how to build and
// run it, and what the figures mean: docs/performance.md ("The simulator").
#include <cjson/cJSON.h>
#include <httplib.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "api_decode.h"
#include "bench_records.h"
#include "host_control.h"
#include "request_wire.h"
#include "serve_process.h"
#include "service_backend.h"
#include "simulator.h"

#ifndef LIVEVIEW_BINARY
#define LIVEVIEW_BINARY "liveview"
#endif

namespace LiveViewBench {
namespace {

using Clock = std::chrono::steady_clock;
using Tavi::Host::AppId;

constexpr int STATUS_CREATE = 0;
constexpr int STATUS_UPDATE = 1;  // incremental
constexpr int STATUS_END = 2;
// A cycle of one live view: a create, this many updates, an end; every publish of it is accepted
// when the versions rise within it (a create replaces an ended live view, version and all).
constexpr int CYCLE_UPDATES = 8;
constexpr int CYCLE_LENGTH = CYCLE_UPDATES + 2;
constexpr time_t CALL_TIMEOUT_SECONDS = 10;
constexpr time_t STATE_TIMEOUT_SECONDS = 120;
constexpr time_t STREAM_TIMEOUT_SECONDS = 10;
const AppId LIBRARY_APP{"com.example.bench.library", 20040000};

struct Options {
    std::string liveview = LIVEVIEW_BINARY;
    std::string database;  // empty: the server's in-memory store
    int publishes = 2000;
    int warmup = 100;
    double seconds = 3.0;
    int clients = 4;
    int held = 1000;
    int heldApps = 10;
    int stateRounds = 5;
    int pages = 20;
    int pacedEvents = 200;
    int burstEvents = 1000;
    int kind = 0;
    bool inProcess = true;
};

[[noreturn]] void Die(const std::string& what) {
    std::fprintf(stderr, "simulator_bench: %s\n", what.c_str());
    std::exit(1);
}

double MicrosSince(Clock::time_point start, Clock::time_point end) {
    return std::chrono::duration<double, std::micro>(end - start).count();
}

// ---------------------------------------------------------------------------------------------
// Figures.

struct Summary {
    size_t count = 0;
    double p50 = 0;
    double p99 = 0;
    double max = 0;
    double mean = 0;
};

// Nearest-rank percentile of sorted values.
double Percentile(const std::vector<double>& sorted, double fraction) {
    if (sorted.empty()) {
        return 0;
    }
    const size_t rank =
        static_cast<size_t>(std::ceil(fraction * static_cast<double>(sorted.size())));
    return sorted[std::min(sorted.size(), std::max<size_t>(rank, 1)) - 1];
}

Summary Summarize(std::vector<double> values) {
    Summary summary;
    if (values.empty()) {
        return summary;
    }
    std::sort(values.begin(), values.end());
    summary.count = values.size();
    summary.p50 = Percentile(values, 0.50);
    summary.p99 = Percentile(values, 0.99);
    summary.max = values.back();
    double total = 0;
    for (double value : values) {
        total += value;
    }
    summary.mean = total / static_cast<double>(values.size());
    return summary;
}

void PrintSection(const char* title) {
    std::printf("\n== %s\n", title);
}

void PrintLatencyHeader() {
    std::printf("%-50s %6s %9s %9s %9s %9s\n", "", "n", "p50 ms", "p99 ms", "max ms", "mean ms");
}

// values in microseconds, printed in milliseconds.
void PrintLatencyRow(const std::string& label, const Summary& s) {
    std::printf("%-50s %6zu %9.3f %9.3f %9.3f %9.3f\n", label.c_str(), s.count, s.p50 / 1000.0,
                s.p99 / 1000.0, s.max / 1000.0, s.mean / 1000.0);
}

// ---------------------------------------------------------------------------------------------
// JSON and bodies.

using Json = Tavi::Host::Wire::JsonTree;

std::string Print(const cJSON* json) {
    char* text = cJSON_PrintUnformatted(json);
    if (text == nullptr) {
        Die("out of memory printing JSON");
    }
    std::string out = text;
    cJSON_free(text);
    return out;
}

cJSON* AppJson(const AppId& app) {
    cJSON* json = cJSON_CreateObject();
    cJSON_AddStringToObject(json, "bundle", app.bundleName.c_str());
    cJSON_AddNumberToObject(json, "uid", app.uid);
    return json;
}

void SetNumber(cJSON* object, const char* name, double value) {
    cJSON* item = cJSON_GetObjectItemCaseSensitive(object, name);
    if (!cJSON_IsNumber(item)) {
        Die(std::string("the wire request has no number \"") + name + "\"");
    }
    cJSON_SetNumberValue(item, value);
}

// The body of POST /api/publish: app's request made from wire, under id, with the content's
// status and version set.
std::string PublishBody(const AppId& app, const cJSON* wire, int32_t id, int status,
                        uint32_t version) {
    cJSON* request = cJSON_Duplicate(wire, true);
    SetNumber(request, "id", id);
    cJSON* content = cJSON_GetObjectItemCaseSensitive(request, "content");
    SetNumber(content, "status", status);
    SetNumber(content, "version", version);
    Json body(cJSON_CreateObject());
    cJSON_AddItemToObject(body.get(), "app", AppJson(app));
    cJSON_AddItemToObject(body.get(), "request", request);
    return Print(body.get());
}

// One live view's cycle: create (version 1), the updates, end.
std::vector<std::string> CycleBodies(const AppId& app, const cJSON* wire, int32_t id) {
    std::vector<std::string> bodies;
    uint32_t version = 1;
    bodies.push_back(PublishBody(app, wire, id, STATUS_CREATE, version++));
    for (int i = 0; i < CYCLE_UPDATES; ++i) {
        bodies.push_back(PublishBody(app, wire, id, STATUS_UPDATE, version++));
    }
    bodies.push_back(PublishBody(app, wire, id, STATUS_END, version++));
    return bodies;
}

// The wire request of a start of the full record of kind.
Json WireOfFullRecord(int kind) {
    Tavi::Notification::NotificationRequest request;
    if (!ValidateAndConvertForStart(*MakeFullRecord(kind, 1), request)) {
        Die("the full record does not pass a start's checks");
    }
    Json wire(Tavi::Host::Wire::RequestToJson(request));
    // An end keeps the live view held, never expiring on its own, so that no change happens
    // on the server's clock in the middle of a measurement.
    SetNumber(wire.get(), "autoDeletedTime", -1);
    return wire;
}

// ---------------------------------------------------------------------------------------------
// HTTP.

std::unique_ptr<httplib::Client> Connect(const ServeProcess& server,
                                         time_t readSeconds = CALL_TIMEOUT_SECONDS) {
    auto client = std::make_unique<httplib::Client>(server.Host(), server.Port());
    client->set_keep_alive(true);
    client->set_tcp_nodelay(true);  // header and body leave at once, not after a delayed ack
    client->set_connection_timeout(2, 0);
    client->set_read_timeout(readSeconds, 0);
    client->set_write_timeout(CALL_TIMEOUT_SECONDS, 0);
    client->set_bearer_token_auth(server.Token());
    return client;
}

// The "code" of an answer body; dies naming what when the answer is not 200 with a code.
int64_t CodeOf(const httplib::Result& result, const std::string& what) {
    if (!result) {
        Die(what + ": no answer (" + httplib::to_string(result.error()) + ")");
    }
    if (result->status != 200) {
        Die(what + ": status " + std::to_string(result->status) + ": " + result->body);
    }
    Json answer(cJSON_Parse(result->body.c_str()));
    const cJSON* code = cJSON_GetObjectItemCaseSensitive(answer.get(), "code");
    if (!cJSON_IsNumber(code)) {
        Die(what + ": no code in " + result->body);
    }
    return static_cast<int64_t>(code->valuedouble);
}

void MustSucceed(const httplib::Result& result, const std::string& what) {
    const int64_t code = CodeOf(result, what);
    if (code != 0) {
        Die(what + ": code " + std::to_string(code) + ": " + result->body);
    }
}

void Post(httplib::Client& client, const char* path, const std::string& body) {
    MustSucceed(client.Post(path, body, "application/json"), std::string("POST ") + path);
}

// Publishes every body in turn, count in all (cycling through bodies), timing each round trip;
// every publish must be accepted.
std::vector<double> TimePublishes(httplib::Client& client, const std::vector<std::string>& bodies,
                                  int count) {
    std::vector<double> micros;
    micros.reserve(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i) {
        const std::string& body = bodies[static_cast<size_t>(i) % bodies.size()];
        const auto start = Clock::now();
        auto result = client.Post("/api/publish", body, "application/json");
        micros.push_back(MicrosSince(start, Clock::now()));
        MustSucceed(result, "publish " + std::to_string(i));
    }
    return micros;
}

// ---------------------------------------------------------------------------------------------
// 1. Round trips from one client.

void RoundTrips(const ServeProcess& server, const Options& options, const cJSON* wire,
                std::vector<double>& rawPublish) {
    PrintSection("Round trip from one client (one kept-alive connection)");
    auto client = Connect(server);
    const AppId rawApp{"com.example.bench.raw", 20040001};
    const auto cycle = CycleBodies(rawApp, wire, 1);
    const int count = options.publishes - options.publishes % CYCLE_LENGTH;

    // The floor: a call that takes the service's lock and answers a small JSON object.
    for (int i = 0; i < options.warmup; ++i) {
        MustSucceed(client->Get("/api/clock"), "GET /api/clock");
    }
    std::vector<double> floor;
    for (int i = 0; i < count; ++i) {
        const auto start = Clock::now();
        auto result = client->Get("/api/clock");
        floor.push_back(MicrosSince(start, Clock::now()));
        MustSucceed(result, "GET /api/clock");
    }

    TimePublishes(*client, cycle, options.warmup - options.warmup % CYCLE_LENGTH);
    rawPublish = TimePublishes(*client, cycle, count);

    // Through the library: UpdateLiveView is a read-back (POST /api/get) and a publish.
    std::string error;
    if (!Tavi::Host::UseRemoteService(server.Url(), error)) {
        Die("remote mode: " + error);
    }
    Tavi::Host::SetCallingApp(LIBRARY_APP.bundleName, LIBRARY_APP.uid);
    Tavi::Host::SetAllModes(Tavi::Host::SinkMode::DISCARD);
    auto record = MakeFullRecord(options.kind, 1);
    LV::LiveViewClient liveViews;
    LV::LiveViewClient::LiveViewResult outcome;
    LV::BaseRsp rsp = liveViews.StartLiveView(*record, outcome);
    if (!rsp.Succeed()) {
        Die("StartLiveView through the simulator: " + rsp.GetInfo());
    }
    const auto sequence = record->GetSequence();
    std::vector<double> library;
    for (int i = 0; i < options.warmup + count; ++i) {
        ++*sequence;
        const auto start = Clock::now();
        rsp = liveViews.UpdateLiveView(*record, outcome);
        const double micros = MicrosSince(start, Clock::now());
        if (!rsp.Succeed()) {
            Die("UpdateLiveView through the simulator: " + rsp.GetInfo());
        }
        if (i >= options.warmup) {
            library.push_back(micros);
        }
    }

    // The read-back alone, of the library's live view, the whole request answered.
    Json get(cJSON_CreateObject());
    cJSON_AddItemToObject(get.get(), "app", AppJson(LIBRARY_APP));
    cJSON* filter = cJSON_AddObjectToObject(get.get(), "filter");
    cJSON_AddStringToObject(filter, "bundle", LIBRARY_APP.bundleName.c_str());
    cJSON_AddNumberToObject(filter, "uid", LIBRARY_APP.uid);
    cJSON_AddNumberToObject(filter, "id", 1);
    const std::string getBody = Print(get.get());
    std::vector<double> reads;
    for (int i = 0; i < options.warmup + count; ++i) {
        const auto start = Clock::now();
        auto result = client->Post("/api/get", getBody, "application/json");
        const double micros = MicrosSince(start, Clock::now());
        MustSucceed(result, "POST /api/get");
        if (i >= options.warmup) {
            reads.push_back(micros);
        }
    }

    std::printf(
        "publish body %zu bytes (full record, %s layout + %s capsule); cycle: create, %d "
        "updates, end; every answer checked for code 0\n",
        cycle[1].size(), LayoutName(options.kind), CapsuleName(CapsuleKindFor(options.kind)),
        CYCLE_UPDATES);
    PrintLatencyHeader();
    PrintLatencyRow("GET /api/clock (HTTP floor)", Summarize(floor));
    PrintLatencyRow("POST /api/get (read-back, whole request)", Summarize(reads));
    PrintLatencyRow("POST /api/publish (prebuilt wire body)", Summarize(rawPublish));
    PrintLatencyRow("LiveViewClient::UpdateLiveView (get + publish)", Summarize(library));
    const Summary raw = Summarize(rawPublish);
    const Summary lib = Summarize(library);
    std::printf("target p99 <= 5 ms: raw publish %s (%.3f ms), library update %s (%.3f ms)\n",
                raw.p99 <= 5000 ? "met" : "MISSED", raw.p99 / 1000.0,
                lib.p99 <= 5000 ? "met" : "MISSED", lib.p99 / 1000.0);
}

// ---------------------------------------------------------------------------------------------
// 2. Publishes a second from several clients.

struct LoadRun {
    double seconds = 0;
    std::vector<long> accepted;  // per client
    long total = 0;              // within the measured time
    long warmup = 0;             // before it
    std::vector<double> micros;  // every publish's round trip
};

// clients threads, each with its own app and connection, publish their cycles back to back for
// about seconds (each finishes its cycle); every publish must be accepted.
LoadRun RunLoad(const ServeProcess& server, int clients, const cJSON* wire,
                const std::string& bundlePrefix, int32_t uidBase, double seconds) {
    struct Worker {
        std::unique_ptr<httplib::Client> client;
        std::vector<std::string> cycle;
        std::vector<double> micros;
        long accepted = 0;
        std::string failure;
        std::thread thread;
    };
    std::vector<Worker> workers(static_cast<size_t>(clients));
    for (int i = 0; i < clients; ++i) {
        Worker& worker = workers[static_cast<size_t>(i)];
        worker.client = Connect(server);
        worker.cycle = CycleBodies({bundlePrefix + std::to_string(i), uidBase + i}, wire, 1);
        worker.micros.reserve(200000);
        // Opens the connection and warms up outside the measured time.
        TimePublishes(*worker.client, worker.cycle, CYCLE_LENGTH * 5);
    }
    std::atomic<bool> go{false};
    std::atomic<bool> stop{false};
    for (auto& worker : workers) {
        worker.thread = std::thread([&worker, &go, &stop] {
            while (!go.load()) {
                std::this_thread::yield();
            }
            size_t next = 0;
            // Whole cycles, so that each live view ends as it began: ended and held.
            while (!stop.load() || next % worker.cycle.size() != 0) {
                const std::string& body = worker.cycle[next % worker.cycle.size()];
                const auto start = Clock::now();
                auto result = worker.client->Post("/api/publish", body, "application/json");
                worker.micros.push_back(MicrosSince(start, Clock::now()));
                if (!result || result->status != 200 ||
                    result->body.compare(0, 9, "{\"code\":0") != 0) {
                    worker.failure = result ? result->body : httplib::to_string(result.error());
                    return;
                }
                ++worker.accepted;
                ++next;
            }
        });
    }
    const auto start = Clock::now();
    go.store(true);
    std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
    stop.store(true);
    for (auto& worker : workers) {
        worker.thread.join();
    }
    LoadRun run;
    run.seconds = MicrosSince(start, Clock::now()) / 1e6;
    run.warmup = static_cast<long>(clients) * CYCLE_LENGTH * 5;
    for (size_t i = 0; i < workers.size(); ++i) {
        if (!workers[i].failure.empty()) {
            Die("client " + std::to_string(i) + ": a publish failed: " + workers[i].failure);
        }
        run.accepted.push_back(workers[i].accepted);
        run.total += workers[i].accepted;
        run.micros.insert(run.micros.end(), workers[i].micros.begin(), workers[i].micros.end());
    }
    return run;
}

void Throughput(const ServeProcess& server, const Options& options, const cJSON* wire) {
    PrintSection("Publishes a second, several clients (one thread, app and connection each)");
    const LoadRun run =
        RunLoad(server, options.clients, wire, "com.example.bench.load", 20050000, options.seconds);
    std::printf("%d clients, %.2f s, %ld publishes, all accepted (code 0)\n", options.clients,
                run.seconds, run.total);
    std::printf("publishes a second: %.0f in all;", static_cast<double>(run.total) / run.seconds);
    for (size_t i = 0; i < run.accepted.size(); ++i) {
        std::printf(" %s%.0f", i == 0 ? "" : "/ ",
                    static_cast<double>(run.accepted[i]) / run.seconds);
    }
    std::printf(" per client\n");
    PrintLatencyHeader();
    PrintLatencyRow("POST /api/publish under this load", Summarize(run.micros));
}

// ---------------------------------------------------------------------------------------------
// 4. Change events on open pages.

class Pages {
public:
    Pages(const ServeProcess& server, int count) : latest_(static_cast<size_t>(count), -1) {
        for (int i = 0; i < count; ++i) {
            arrivals_.emplace_back();
            clients_.push_back(Connect(server, STREAM_TIMEOUT_SECONDS));
        }
        for (int i = 0; i < count; ++i) {
            threads_.emplace_back([this, i] { Read(i); });
        }
    }

    ~Pages() { Join(); }

    // Waits until every page has seen the change counter reach at least seq; false on timeout.
    bool WaitAll(int64_t seq, std::chrono::milliseconds timeout) {
        std::unique_lock<std::mutex> lock(mutex_);
        return progressed_.wait_for(lock, timeout, [&] {
            return *std::min_element(latest_.begin(), latest_.end()) >= seq;
        });
    }

    std::vector<int64_t> Latest() {
        std::lock_guard<std::mutex> lock(mutex_);
        return latest_;
    }

    // Every change event page received: the counter and when it arrived.
    std::vector<std::pair<int64_t, Clock::time_point>> Arrivals(int page) {
        std::lock_guard<std::mutex> lock(mutex_);
        return arrivals_[static_cast<size_t>(page)];
    }

    // The streams end at their next event or ping once this is set.
    void RequestStop() { stop_.store(true); }

    void Join() {
        for (auto& thread : threads_) {
            if (thread.joinable()) {
                thread.join();
            }
        }
    }

    int Failed() const { return failed_.load(); }

private:
    void Read(int page) {
        std::string buffer;
        auto result = clients_[static_cast<size_t>(page)]->Get(
            "/api/page-events", [&](const char* data, size_t size) {
                const auto at = Clock::now();
                buffer.append(data, size);
                size_t end = 0;
                while ((end = buffer.find("\n\n")) != std::string::npos) {
                    const std::string block = buffer.substr(0, end);
                    buffer.erase(0, end + 2);
                    const size_t seqAt = block.find("\"seq\":");
                    if (block.compare(0, 13, "event: change") != 0 || seqAt == std::string::npos) {
                        continue;  // a ping
                    }
                    const int64_t seq = std::strtoll(block.c_str() + seqAt + 6, nullptr, 10);
                    {
                        std::lock_guard<std::mutex> lock(mutex_);
                        arrivals_[static_cast<size_t>(page)].emplace_back(seq, at);
                        latest_[static_cast<size_t>(page)] = seq;
                    }
                    progressed_.notify_all();
                }
                return !stop_.load();
            });
        if (!stop_.load()) {
            ++failed_;
        }
    }

    std::vector<std::unique_ptr<httplib::Client>> clients_;
    std::vector<std::thread> threads_;
    std::mutex mutex_;
    std::condition_variable progressed_;
    std::vector<int64_t> latest_;
    std::vector<std::vector<std::pair<int64_t, Clock::time_point>>> arrivals_;
    std::atomic<bool> stop_{false};
    std::atomic<int> failed_{0};
};

struct EventRun {
    std::vector<int64_t> delivered;  // per page: change events of these publishes
    std::vector<double> fromAnswer;  // per page and publish, microseconds (may be negative)
    std::vector<double> fromSend;    // per page and publish, microseconds
    int64_t unexplained = 0;         // changes that were not these publishes
    int missing = 0;                 // (page, publish) pairs never told
};

// Sends count publishes of bodies[first..] and works out, for every page and publish, the first
// event that covered it. Paced: each publish waits until every page has been told of the one
// before.
EventRun RunEvents(httplib::Client& client, Pages& pages, const std::vector<std::string>& bodies,
                   size_t first, int count, bool paced) {
    const std::vector<int64_t> before = pages.Latest();
    const int64_t base = *std::max_element(before.begin(), before.end());
    if (*std::min_element(before.begin(), before.end()) != base) {
        Die("the pages do not agree on the change counter before the run");
    }
    std::vector<Clock::time_point> sent;
    std::vector<Clock::time_point> answered;
    for (int j = 0; j < count; ++j) {
        sent.push_back(Clock::now());
        auto result =
            client.Post("/api/publish", bodies[first + static_cast<size_t>(j)], "application/json");
        answered.push_back(Clock::now());
        MustSucceed(result, "publish with pages open");
        if (paced && !pages.WaitAll(base + j + 1, std::chrono::seconds(5))) {
            Die("a page was not told of publish " + std::to_string(j) + " within 5 s");
        }
    }
    pages.WaitAll(base + count, std::chrono::seconds(5));
    // The last event may still be on its way to a slow page; give the streams a moment.
    std::this_thread::sleep_for(std::chrono::milliseconds(200));

    EventRun run;
    const std::vector<int64_t> after = pages.Latest();
    run.unexplained = *std::max_element(after.begin(), after.end()) - (base + count);
    for (size_t page = 0; page < after.size(); ++page) {
        const auto arrivals = pages.Arrivals(static_cast<int>(page));
        int64_t delivered = 0;
        size_t next = 0;
        for (const auto& arrival : arrivals) {
            if (arrival.first > base && arrival.first <= base + count) {
                ++delivered;
            }
        }
        run.delivered.push_back(delivered);
        for (int j = 0; j < count; ++j) {
            const int64_t wanted = base + j + 1;
            while (next < arrivals.size() && arrivals[next].first < wanted) {
                ++next;
            }
            if (next == arrivals.size()) {
                ++run.missing;
                continue;
            }
            run.fromAnswer.push_back(
                MicrosSince(answered[static_cast<size_t>(j)], arrivals[next].second));
            run.fromSend.push_back(
                MicrosSince(sent[static_cast<size_t>(j)], arrivals[next].second));
        }
    }
    return run;
}

void PrintEventRun(const char* label, const char* shortLabel, int publishes, const EventRun& run) {
    std::vector<int64_t> delivered = run.delivered;
    std::sort(delivered.begin(), delivered.end());
    int64_t total = 0;
    for (int64_t d : delivered) {
        total += d;
    }
    std::printf(
        "%s: %d publishes, %zu pages; change events delivered per page: min %lld, median "
        "%lld, max %lld (%.1f %% of publishes); every page reached the last change: %s\n",
        label, publishes, delivered.size(), static_cast<long long>(delivered.front()),
        static_cast<long long>(delivered[delivered.size() / 2]),
        static_cast<long long>(delivered.back()),
        100.0 * static_cast<double>(total) /
            (static_cast<double>(publishes) * static_cast<double>(delivered.size())),
        run.missing == 0 ? "yes" : "NO");
    if (run.unexplained != 0) {
        std::printf("  note: %lld changes during the run were not these publishes\n",
                    static_cast<long long>(run.unexplained));
    }
    const long early = std::count_if(run.fromAnswer.begin(), run.fromAnswer.end(),
                                     [](double micros) { return micros < 0; });
    PrintLatencyHeader();
    PrintLatencyRow(std::string(shortLabel) + ": publish sent -> event", Summarize(run.fromSend));
    PrintLatencyRow(std::string(shortLabel) + ": publish answer -> event",
                    Summarize(run.fromAnswer));
    std::printf("(%ld of %zu page events arrived before the publish's answer: negative figures)\n",
                early, run.fromAnswer.size());
}

void PageEvents(const ServeProcess& server, const Options& options, const cJSON* wire) {
    PrintSection("Change events on open pages (GET /api/page-events)");
    auto client = Connect(server);
    const AppId app{"com.example.bench.pages", 20060000};
    std::vector<std::string> bodies;
    uint32_t version = 1;
    bodies.push_back(PublishBody(app, wire, 1, STATUS_CREATE, version++));
    for (int i = 0; i < options.pacedEvents + options.burstEvents; ++i) {
        bodies.push_back(PublishBody(app, wire, 1, STATUS_UPDATE, version++));
    }
    Post(*client, "/api/publish", bodies[0]);

    Pages pages(server, options.pages);
    // Every page is told the counter as soon as it connects.
    const auto connectDeadline = Clock::now() + std::chrono::seconds(10);
    while (true) {
        const auto latest = pages.Latest();
        if (*std::min_element(latest.begin(), latest.end()) >= 0) {
            break;
        }
        if (Clock::now() > connectDeadline) {
            Die("not every page connected within 10 s");
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }

    const EventRun paced = RunEvents(*client, pages, bodies, 1, options.pacedEvents, true);
    const EventRun burst =
        RunEvents(*client, pages, bodies, 1 + static_cast<size_t>(options.pacedEvents),
                  options.burstEvents, false);

    // Several clients at once: changes come faster than a page is told of them.
    const std::vector<int64_t> beforeLoad = pages.Latest();
    const LoadRun load = RunLoad(server, options.clients, wire, "com.example.bench.pageload",
                                 20061000, std::max(1.0, options.seconds / 2));
    const long loadChanges = load.warmup + load.total;
    pages.WaitAll(beforeLoad[0] + loadChanges, std::chrono::seconds(5));
    const std::vector<int64_t> afterLoad = pages.Latest();
    std::vector<int64_t> loadDelivered;
    for (int page = 0; page < options.pages; ++page) {
        int64_t delivered = 0;
        for (const auto& arrival : pages.Arrivals(page)) {
            delivered += arrival.first > beforeLoad[static_cast<size_t>(page)] ? 1 : 0;
        }
        loadDelivered.push_back(delivered);
    }
    std::sort(loadDelivered.begin(), loadDelivered.end());

    pages.RequestStop();
    // A change wakes every stream, which then ends.
    Post(*client, "/api/rate-limit", "{\"perSecond\":0}");
    pages.Join();
    if (pages.Failed() != 0) {
        Die(std::to_string(pages.Failed()) + " page streams ended early");
    }
    std::printf("stream coalesces: a page is told the latest change counter, not every change\n");
    PrintEventRun("paced (each publish once every page was told of the one before)", "paced",
                  options.pacedEvents, paced);
    PrintEventRun("back to back", "back to back", options.burstEvents, burst);
    const bool allReached =
        *std::min_element(afterLoad.begin(), afterLoad.end()) >= beforeLoad[0] + loadChanges;
    std::printf(
        "%d clients back to back: %ld publishes (%ld of them warm-up), %.0f a second; "
        "change events delivered per page: min %lld, median %lld, max %lld (%.1f %% of "
        "publishes at the median); every page reached the last change: %s\n",
        options.clients, loadChanges, load.warmup, static_cast<double>(load.total) / load.seconds,
        static_cast<long long>(loadDelivered.front()),
        static_cast<long long>(loadDelivered[loadDelivered.size() / 2]),
        static_cast<long long>(loadDelivered.back()),
        100.0 * static_cast<double>(loadDelivered[loadDelivered.size() / 2]) /
            static_cast<double>(loadChanges),
        allReached ? "yes" : "NO");
}

// ---------------------------------------------------------------------------------------------
// 3. The page's state with many live views held.

struct TimedGet {
    double micros = 0;
    size_t bytes = 0;
};

TimedGet GetState(httplib::Client& client) {
    const auto start = Clock::now();
    auto result = client.Get("/api/state");
    TimedGet timed{MicrosSince(start, Clock::now()), 0};
    if (!result || result->status != 200) {
        Die("GET /api/state failed");
    }
    timed.bytes = result->body.size();
    return timed;
}

void HeldState(const ServeProcess& server, const Options& options, const cJSON* wire,
               const std::vector<double>& emptyPublish) {
    PrintSection("The page's state with many live views held (GET /api/state)");
    auto client = Connect(server, STATE_TIMEOUT_SECONDS);
    const int perApp = (options.held + options.heldApps - 1) / options.heldApps;
    std::vector<std::string> creates;
    for (int i = 0; i < options.held; ++i) {
        const AppId app{"com.example.bench.held" + std::to_string(i / perApp),
                        20070000 + i / perApp};
        creates.push_back(PublishBody(app, wire, 1 + i % perApp, STATUS_CREATE, 1));
    }
    const auto fill = TimePublishes(*client, creates, options.held);
    const size_t tenth = std::max<size_t>(fill.size() / 10, 1);
    std::printf("%d live views created by %d apps (all accepted)\n", options.held,
                options.heldApps);
    PrintLatencyHeader();
    PrintLatencyRow(
        "create, first tenth (few held)",
        Summarize(std::vector<double>(fill.begin(), fill.begin() + static_cast<long>(tenth))));
    PrintLatencyRow(
        "create, last tenth (nearly all held)",
        Summarize(std::vector<double>(fill.end() - static_cast<long>(tenth), fill.end())));

    // Each round: one update (a change), then the drawing call and the cached repeat.
    const AppId firstApp{"com.example.bench.held0", 20070000};
    std::vector<double> drawn;
    std::vector<double> cached;
    size_t bytes = 0;
    const TimedGet firstDraw = GetState(*client);
    const TimedGet firstRepeat = GetState(*client);
    drawn.push_back(firstDraw.micros);
    cached.push_back(firstRepeat.micros);
    for (int round = 0; round < options.stateRounds; ++round) {
        Post(*client, "/api/publish",
             PublishBody(firstApp, wire, 1, STATUS_UPDATE, 2 + static_cast<uint32_t>(round)));
        const TimedGet draw = GetState(*client);
        const TimedGet repeat = GetState(*client);
        drawn.push_back(draw.micros);
        cached.push_back(repeat.micros);
        bytes = draw.bytes;
    }
    std::printf("state body %zu bytes; %zu rounds of (change, GET, GET)\n", bytes, drawn.size());
    PrintLatencyRow("GET /api/state after a change (drawn)", Summarize(drawn));
    PrintLatencyRow("GET /api/state repeated (cached)", Summarize(cached));

    // The round trip of one client again, now with these live views held.
    const auto cycle = CycleBodies({"com.example.bench.raw2", 20040002}, wire, 1);
    const int count = options.publishes - options.publishes % CYCLE_LENGTH;
    TimePublishes(*client, cycle, CYCLE_LENGTH * 5);
    const auto loadedStart = Clock::now();
    const auto loaded = TimePublishes(*client, cycle, count);
    const double loadedSeconds = MicrosSince(loadedStart, Clock::now()) / 1e6;
    PrintLatencyRow("POST /api/publish, nothing else held (from above)", Summarize(emptyPublish));
    PrintLatencyRow("POST /api/publish with " + std::to_string(options.held) + " held",
                    Summarize(loaded));
    auto over = [&](double millis) {
        return std::count_if(loaded.begin(), loaded.end(),
                             [&](double micros) { return micros > millis * 1000; });
    };
    std::printf("with %d held: %ld publishes over 5 ms, %ld over 40 ms, in %.1f s\n", options.held,
                over(5), over(40), loadedSeconds);
}

// ---------------------------------------------------------------------------------------------
// 5. The server's steps in this process, without HTTP.

template <typename Work>
std::vector<double> TimeEach(int count, Work&& work) {
    std::vector<double> micros;
    for (int i = 0; i < count; ++i) {
        const auto start = Clock::now();
        work(i);
        micros.push_back(MicrosSince(start, Clock::now()));
    }
    return micros;
}

void InProcess(const Options& options, const cJSON* wire) {
    PrintSection("The server's steps in this process (no HTTP; in-memory store)");
    using LiveViewSimulator::ApiError;
    using LiveViewSimulator::PublishCall;
    std::string error;
    auto sim = LiveViewSimulator::Simulator::Open({}, error);
    if (sim == nullptr) {
        Die("simulator: " + error);
    }
    sim->RateLimit({0});
    const AppId app{"com.example.bench.inproc", 20080000};
    const auto cycle = CycleBodies(app, wire, 1);
    const int count = 500;

    auto decode = [&](const std::string& body) {
        PublishCall call;
        ApiError refusal;
        if (!LiveViewSimulator::DecodePublish(body, call, refusal)) {
            Die("decode: " + refusal.field + ": " + refusal.message);
        }
        return call;
    };
    auto publish = [&](const PublishCall& call) {
        const auto answer = sim->Publish(call);
        if (answer.status != 200 || answer.body.compare(0, 9, "{\"code\":0") != 0) {
            Die("in-process publish: " + answer.body);
        }
    };
    std::vector<PublishCall> calls;
    for (const auto& body : cycle) {
        calls.push_back(decode(body));
    }
    const auto decodeTimes =
        TimeEach(count, [&](int i) { decode(cycle[static_cast<size_t>(i) % cycle.size()]); });
    TimeEach(CYCLE_LENGTH * 5,
             [&](int i) { publish(calls[static_cast<size_t>(i) % calls.size()]); });
    const auto publishFew =
        TimeEach(count, [&](int i) { publish(calls[static_cast<size_t>(i) % calls.size()]); });
    const auto& request = *calls[1].request;
    const auto toText = TimeEach(count, [&](int) { Tavi::Host::Wire::RequestToText(request); });

    const int perApp = (options.held + options.heldApps - 1) / options.heldApps;
    for (int i = 0; i < options.held; ++i) {
        const AppId heldApp{"com.example.bench.held" + std::to_string(i / perApp),
                            20070000 + i / perApp};
        publish(decode(PublishBody(heldApp, wire, 1 + i % perApp, STATUS_CREATE, 1)));
    }
    const auto publishMany =
        TimeEach(count, [&](int i) { publish(calls[static_cast<size_t>(i) % calls.size()]); });
    const auto heldCopy = TimeEach(20, [&](int) { Tavi::Host::HeldLiveViews(); });
    const auto tick = TimeEach(5, [&](int) { sim->Tick(); });
    std::vector<double> render;
    for (size_t i = 0; i < 3; ++i) {
        publish(calls[i]);  // a change, so that the state is drawn again
        const auto start = Clock::now();
        sim->State();
        render.push_back(MicrosSince(start, Clock::now()));
    }
    sim.reset();

    PrintLatencyHeader();
    PrintLatencyRow("DecodePublish (body -> request)", Summarize(decodeTimes));
    PrintLatencyRow("RequestToText (done twice in a publish)", Summarize(toText));
    PrintLatencyRow("Simulator::Publish, 1 live view held", Summarize(publishFew));
    PrintLatencyRow("Simulator::Publish, " + std::to_string(options.held + 1) + " held",
                    Summarize(publishMany));
    PrintLatencyRow("HeldLiveViews() copy, " + std::to_string(options.held + 1) + " held",
                    Summarize(heldCopy));
    PrintLatencyRow("Simulator::Tick (each second), " + std::to_string(options.held + 1) + " held",
                    Summarize(tick));
    PrintLatencyRow(
        "Simulator::State after a change (drawn), " + std::to_string(options.held + 1) + " held",
        Summarize(render));
}

// ---------------------------------------------------------------------------------------------

void Usage() {
    std::printf(
        "usage: simulator_bench [--liveview PATH] [--db FILE] [--publishes N] [--seconds S]\n"
        "                       [--clients N] [--held N] [--pages N] [--paced N] [--burst N]\n"
        "                       [--kind 0..4] [--no-in-process]\n"
        "Starts PATH serve --port 0 (default: the liveview of this build) and measures it over\n"
        "loopback. --db passes a store file to the server (default: in memory).\n");
}

Options ParseOptions(int argc, char** argv) {
    Options options;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        auto value = [&]() -> std::string {
            if (i + 1 >= argc) {
                Die(arg + " needs a value");
            }
            return argv[++i];
        };
        auto number = [&]() {
            const std::string text = value();
            char* end = nullptr;
            const long parsed = std::strtol(text.c_str(), &end, 10);
            if (text.empty() || *end != '\0' || parsed < 1 || parsed > 10000000) {
                Die(arg + " needs a whole number from 1, not \"" + text + "\"");
            }
            return static_cast<int>(parsed);
        };
        if (arg == "--liveview") {
            options.liveview = value();
        } else if (arg == "--db") {
            options.database = value();
        } else if (arg == "--publishes") {
            options.publishes = std::max(number(), CYCLE_LENGTH);
        } else if (arg == "--seconds") {
            options.seconds = number();
        } else if (arg == "--clients") {
            options.clients = number();
        } else if (arg == "--held") {
            options.held = std::max(number(), options.heldApps);
        } else if (arg == "--pages") {
            options.pages = number();
        } else if (arg == "--paced") {
            options.pacedEvents = number();
        } else if (arg == "--burst") {
            options.burstEvents = number();
        } else if (arg == "--kind") {
            options.kind = number() % LAYOUT_KIND_COUNT;
        } else if (arg == "--no-in-process") {
            options.inProcess = false;
        } else if (arg == "--help" || arg == "-h") {
            Usage();
            std::exit(0);
        } else {
            Usage();
            Die("unknown argument " + arg);
        }
    }
    return options;
}

int Run(int argc, char** argv) {
    const Options options = ParseOptions(argc, argv);
    std::setvbuf(stdout, nullptr, _IOLBF, 0);  // each line as it is known, for long runs
    const Json wire = WireOfFullRecord(options.kind);

    ServeProcess server;
    std::vector<std::string> serveArgs;
    if (!options.database.empty()) {
        serveArgs = {"--db", options.database};
    }
    std::string error;
    if (!server.Start(options.liveview, serveArgs, error)) {
        Die(error);
    }
    std::printf(
        "simulator_bench: %s serve (pid %d) at http://%s:%d, store %s; %u hardware "
        "threads shared by the server and this program\n",
        options.liveview.c_str(), static_cast<int>(server.Pid()), server.Host().c_str(),
        server.Port(), options.database.empty() ? "in memory" : options.database.c_str(),
        std::thread::hardware_concurrency());
    {
        auto control = Connect(server);
        Post(*control, "/api/rate-limit", "{\"perSecond\":0}");  // no publish limit
    }

    std::vector<double> rawPublish;
    RoundTrips(server, options, wire.get(), rawPublish);
    Throughput(server, options, wire.get());
    PageEvents(server, options, wire.get());
    HeldState(server, options, wire.get(), rawPublish);
    if (!server.Stop()) {
        Die("the server did not stop cleanly");
    }
    std::printf("\nserver stopped\n");
    if (options.inProcess) {
        // The library's calls went to the simulator; the service in this process is used now.
        Tavi::Host::UseEmbeddedService();
        InProcess(options, wire.get());
    }
    return 0;
}

}  // namespace
}  // namespace LiveViewBench

int main(int argc, char** argv) {
    return LiveViewBench::Run(argc, argv);
}
