#include "serve.h"

#include <cjson/cJSON.h>
#include <httplib.h>
#include <signal.h>

#include <pthread.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <thread>

#include "sim_page.h"
#include "simulator.h"
#include "token_file.h"

namespace LiveViewSimulator {

namespace {
constexpr size_t MAX_BODY_BYTES = 8 * 1024 * 1024;
// Every open event stream holds a thread; pages, apps and calls share these.
constexpr size_t SERVER_THREADS = 64;
constexpr std::chrono::milliseconds STREAM_PING{2000};
constexpr int MAX_HISTORY_LIMIT = 100000;
const char* const JSON_TYPE = "application/json";

std::string ErrorBody(const std::string& message, const std::string& field) {
    cJSON* json = cJSON_CreateObject();
    cJSON_AddStringToObject(json, "error", message.c_str());
    cJSON_AddStringToObject(json, "field", field.c_str());
    char* text = cJSON_PrintUnformatted(json);
    std::string body = text == nullptr ? "{}" : text;
    cJSON_free(text);
    cJSON_Delete(json);
    return body;
}

void Refuse(httplib::Response& res, int status, const std::string& message,
            const std::string& field) {
    res.status = status;
    res.set_content(ErrorBody(message, field), JSON_TYPE);
}

void Reply(httplib::Response& res, const ApiAnswer& answer) {
    res.status = answer.status;
    res.set_content(answer.body, JSON_TYPE);
}

// Decodes the body with decode, then acts on the call; a refused body answers 400 naming the field.
template <typename Call, typename Act>
httplib::Server::Handler Decoded(bool (*decode)(const std::string&, Call&, ApiError&), Act act) {
    return [decode, act](const httplib::Request& req, httplib::Response& res) {
        Call call;
        ApiError error;
        if (!decode(req.body, call, error)) {
            Refuse(res, 400, error.message, error.field);
            return;
        }
        Reply(res, act(call));
    };
}

// A whole number in 0..max from query parameter name; def when absent.
bool QueryNumber(const httplib::Request& req, const char* name, long long max, long long def,
                 long long& value, httplib::Response& res) {
    if (!req.has_param(name)) {
        value = def;
        return true;
    }
    const std::string text = req.get_param_value(name);
    char* end = nullptr;
    errno = 0;
    value = std::strtoll(text.c_str(), &end, 10);
    if (text.empty() || *end != '\0' || errno != 0 || value < 0 || value > max) {
        Refuse(res, 400, "expected a whole number 0.." + std::to_string(max), name);
        return false;
    }
    return true;
}

std::string SseEvent(const std::string& event, const std::string& data) {
    return "event: " + event + "\ndata: " + data + "\n\n";
}

std::string BearerToken(const httplib::Request& req) {
    const std::string header = req.get_header_value("Authorization");
    const std::string prefix = "Bearer ";
    if (header.compare(0, prefix.size(), prefix) == 0) {
        return header.substr(prefix.size());
    }
    return req.get_param_value("token");
}

void Routes(httplib::Server& server, Simulator& sim) {
    using httplib::Request;
    using httplib::Response;
    server.Get("/", [](const Request&, Response& res) {
        res.set_header("Cache-Control", "no-store");
        res.set_content(SimulatorPage(), "text/html; charset=utf-8");
    });
    server.Post("/api/publish",
                Decoded(DecodePublish, [&sim](const PublishCall& c) { return sim.Publish(c); }));
    server.Post("/api/get", Decoded(DecodeGet, [&sim](const GetCall& c) { return sim.Get(c); }));
    server.Post("/api/enabled",
                Decoded(DecodeAppCall, [&sim](const AppCall& c) { return sim.Enabled(c); }));
    server.Post("/api/subscribe",
                Decoded(DecodeAppCall, [&sim](const AppCall& c) { return sim.Subscribe(c); }));
    server.Post("/api/press",
                Decoded(DecodePress, [&sim](const PressCall& c) { return sim.Press(c); }));
    server.Post("/api/slot",
                Decoded(DecodeSlot, [&sim](const SlotCall& c) { return sim.Slot(c); }));
    server.Post("/api/rate-limit", Decoded(DecodeRateLimit, [&sim](const RateLimitCall& c) {
                    return sim.RateLimit(c);
                }));
    server.Post("/api/clock",
                Decoded(DecodeClock, [&sim](const ClockCall& c) { return sim.Clock(c); }));
    server.Get("/api/clock", [&sim](const Request&, Response& res) { Reply(res, sim.ClockNow()); });
    server.Post("/api/fail-next",
                Decoded(DecodeFailNext, [&sim](const FailNextCall& c) { return sim.FailNext(c); }));
    server.Post("/api/held",
                Decoded(DecodeHeldQuery, [&sim](const HeldQuery& q) { return sim.Held(q); }));
    server.Post("/api/kill", [&sim](const Request& req, Response& res) {
        ApiError error;
        if (!DecodeEmpty(req.body, error)) {
            Refuse(res, 400, error.message, error.field);
            return;
        }
        Reply(res, sim.Kill());
    });
    server.Get("/api/history", [&sim](const Request& req, Response& res) {
        long long limit = 0;
        long long requests = 0;
        if (QueryNumber(req, "limit", MAX_HISTORY_LIMIT, 100, limit, res) &&
            QueryNumber(req, "requests", 1, 0, requests, res)) {
            Reply(res, sim.History(static_cast<int>(limit), requests == 1));
        }
    });
    server.Get("/api/state", [&sim](const Request&, Response& res) { Reply(res, sim.State()); });
    server.Get("/api/page-events", [&sim](const Request&, Response& res) {
        res.set_header("Cache-Control", "no-store");
        auto seen = std::make_shared<int64_t>(-1);
        res.set_chunked_content_provider(
            "text/event-stream", [&sim, seen](size_t, httplib::DataSink& sink) {
                if (sim.Events().Stopped()) {
                    return false;
                }
                const int64_t now = sim.Events().WaitForChange(*seen, STREAM_PING);
                const std::string chunk =
                    now > *seen ? SseEvent("change", "{\"seq\":" + std::to_string(now) + "}")
                                : std::string(": ping\n\n");
                *seen = now;
                return sink.write(chunk.data(), chunk.size());
            });
    });
    server.Get("/api/events", [&sim](const Request& req, Response& res) {
        Tavi::Host::AppId app;
        app.bundleName = req.get_param_value("bundle");
        long long uid = 0;
        if (app.bundleName.empty()) {
            Refuse(res, 400, "missing", "bundle");
            return;
        }
        if (!QueryNumber(req, "uid", INT32_MAX, -1, uid, res)) {
            return;
        }
        if (uid < 0) {
            Refuse(res, 400, "missing", "uid");
            return;
        }
        app.uid = static_cast<int32_t>(uid);
        res.set_header("Cache-Control", "no-store");
        res.set_chunked_content_provider(
            "text/event-stream", [&sim, app](size_t, httplib::DataSink& sink) {
                if (sim.Events().Stopped()) {
                    return false;
                }
                AppNotice notice;
                if (!sim.Events().WaitForNotice(app, STREAM_PING, notice)) {
                    return sink.write(": ping\n\n", 8);
                }
                const std::string chunk = SseEvent(notice.event, notice.data);
                // After the service died the stream ends: the app has no service to listen to.
                return sink.write(chunk.data(), chunk.size()) && notice.event != "died";
            });
    });
}

// Every /api call needs the run's token; the page itself carries none and asks for it.
void GuardWithToken(httplib::Server& server, const std::string& token) {
    server.set_pre_routing_handler([token](const httplib::Request& req, httplib::Response& res) {
        if (req.path.compare(0, 5, "/api/") != 0 || SameToken(BearerToken(req), token)) {
            return httplib::Server::HandlerResponse::Unhandled;
        }
        Refuse(res, 401,
               req.has_header("Authorization") || req.has_param("token") ? "wrong token"
                                                                         : "missing token",
               "token");
        return httplib::Server::HandlerResponse::Handled;
    });
}

// Refusals that the HTTP library makes by itself (malformed request, unknown path, body too
// large) get a JSON body too.
void JsonErrors(httplib::Server& server) {
    using ErrorHandler = httplib::Server::HandlerWithResponse;
    server.set_error_handler(ErrorHandler([](const httplib::Request& req, httplib::Response& res) {
        if (!res.body.empty()) {
            return httplib::Server::HandlerResponse::Unhandled;
        }
        switch (res.status) {
            case 404:
                Refuse(res, 404, "no such call: " + req.method + " " + req.path, "");
                break;
            case 413:
                Refuse(res, 413,
                       "the body is larger than " + std::to_string(MAX_BODY_BYTES) + " bytes", "");
                break;
            default:
                Refuse(res, res.status, "the HTTP request is malformed", "");
                break;
        }
        return httplib::Server::HandlerResponse::Handled;
    }));
}

// Waits for SIGINT or SIGTERM, ticking the simulator once a second meanwhile.
void WaitForStop(const sigset_t& stopSignals, Simulator& sim) {
    const timespec second{1, 0};
    while (true) {
        const int signal = sigtimedwait(&stopSignals, nullptr, &second);
        if (signal == SIGINT || signal == SIGTERM) {
            return;
        }
        sim.Tick();
    }
}

}  // namespace

int Serve(const ServeOptions& options, std::ostream& out, std::ostream& err) {
    // Blocked before any thread starts, so that every thread inherits the mask and only the wait
    // below takes them.
    sigset_t stopSignals;
    sigemptyset(&stopSignals);
    sigaddset(&stopSignals, SIGINT);
    sigaddset(&stopSignals, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &stopSignals, nullptr);
    signal(SIGPIPE, SIG_IGN);

    std::string error;
    std::string token;
    if (!DrawToken(token, error)) {
        err << "liveview serve: " << error << '\n';
        return 2;
    }
    auto sim = Simulator::Open({options.databasePath, options.resourceDir}, error);
    if (sim == nullptr) {
        err << "liveview serve: " << error << '\n';
        return 2;
    }
    httplib::Server server;
    server.new_task_queue = [] { return new httplib::ThreadPool(SERVER_THREADS); };
    server.set_payload_max_length(MAX_BODY_BYTES);
    server.set_keep_alive_max_count(100000);
    server.set_tcp_nodelay(true);  // answers go out at once, not after a delayed acknowledgement
    GuardWithToken(server, token);
    JsonErrors(server);
    Routes(server, *sim);

    const int port = options.port == 0
                         ? server.bind_to_any_port("127.0.0.1")
                         : (server.bind_to_port("127.0.0.1", options.port) ? options.port : -1);
    if (port < 0) {
        err << "liveview serve: cannot listen on 127.0.0.1:" << options.port
            << " (in use? try another --port)\n";
        return 2;
    }
    const std::string tokenFile =
        options.tokenFile.empty() ? DefaultTokenFile(port) : options.tokenFile;
    if (!WriteTokenFile(tokenFile, token, error)) {
        err << "liveview serve: " << error << '\n';
        return 2;
    }
    std::thread listener([&server] { server.listen_after_bind(); });
    out << "liveview serve: http://127.0.0.1:" << port << "/?token=" << token << '\n'
        << "  token file: " << tokenFile << '\n'
        << "  apps: export LIVEVIEW_SERVICE='http://127.0.0.1:" << port << "/?token=" << token
        << "'\n"
        << "  store: " << (options.databasePath.empty() ? "in memory" : options.databasePath)
        << "\n  stop: Ctrl-C" << std::endl;

    WaitForStop(stopSignals, *sim);
    sim->Events().Stop();
    server.stop();
    listener.join();
    ::unlink(tokenFile.c_str());
    out << "liveview serve: stopped" << std::endl;
    return 0;
}

}  // namespace LiveViewSimulator
