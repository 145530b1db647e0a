#include "serve.h"

#include <cjson/cJSON.h>
#include <httplib.h>
#include <signal.h>

#include <pthread.h>
#include <sys/socket.h>
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
// With the charset named, the HTTP library does not compress the answer (it compresses only the
// bare type): on loopback, gzip took 270 ms of a page's 3.6 MB state, and the transfer 4 ms.
const char* const JSON_TYPE = "application/json; charset=utf-8";

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
    // Digits only: strtoll would also take a sign and leading blanks.
    if (text.empty() || text.find_first_not_of("0123456789") != std::string::npos || *end != '\0' ||
        errno != 0 || value < 0 || value > max) {
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

// Whether req carries the run's token; when not, res is the refusal.
bool Authorized(const httplib::Request& req, const std::string& token, httplib::Response& res) {
    if (SameToken(BearerToken(req), token)) {
        return true;
    }
    Refuse(
        res, 401,
        req.has_header("Authorization") || req.has_param("token") ? "wrong token" : "missing token",
        "token");
    return false;
}

// Registers the API's calls, each behind the run's token. The token is checked in the handler,
// once the HTTP library has read the body: a refusal made before that would leave the body on a
// kept-alive connection, to be read as the next request.
class Api {
public:
    Api(httplib::Server& server, std::string token) : server_(server), token_(std::move(token)) {}

    void Get(const char* path, httplib::Server::Handler handler) {
        server_.Get(path, Guarded(std::move(handler)));
    }
    void Post(const char* path, httplib::Server::Handler handler) {
        server_.Post(path, Guarded(std::move(handler)));
    }

private:
    httplib::Server::Handler Guarded(httplib::Server::Handler handler) const {
        return [token = token_, handler = std::move(handler)](const httplib::Request& req,
                                                              httplib::Response& res) {
            if (Authorized(req, token, res)) {
                handler(req, res);
            }
        };
    }

    httplib::Server& server_;
    const std::string token_;
};

void Routes(httplib::Server& server, Api& api, Simulator& sim) {
    using httplib::Request;
    using httplib::Response;
    server.Get("/", [](const Request&, Response& res) {
        res.set_header("Cache-Control", "no-store");
        res.set_content(SimulatorPage(), "text/html; charset=utf-8");
    });
    api.Post("/api/publish",
             Decoded(DecodePublish, [&sim](const PublishCall& c) { return sim.Publish(c); }));
    api.Post("/api/get", Decoded(DecodeGet, [&sim](const GetCall& c) { return sim.Get(c); }));
    api.Post("/api/enabled",
             Decoded(DecodeAppCall, [&sim](const AppCall& c) { return sim.Enabled(c); }));
    api.Post("/api/subscribe",
             Decoded(DecodeAppCall, [&sim](const AppCall& c) { return sim.Subscribe(c); }));
    api.Post("/api/press",
             Decoded(DecodePress, [&sim](const PressCall& c) { return sim.Press(c); }));
    api.Post("/api/slot", Decoded(DecodeSlot, [&sim](const SlotCall& c) { return sim.Slot(c); }));
    api.Post("/api/rate-limit",
             Decoded(DecodeRateLimit, [&sim](const RateLimitCall& c) { return sim.RateLimit(c); }));
    api.Post("/api/clock",
             Decoded(DecodeClock, [&sim](const ClockCall& c) { return sim.Clock(c); }));
    api.Get("/api/clock", [&sim](const Request&, Response& res) { Reply(res, sim.ClockNow()); });
    api.Post("/api/fail-next",
             Decoded(DecodeFailNext, [&sim](const FailNextCall& c) { return sim.FailNext(c); }));
    api.Post("/api/held",
             Decoded(DecodeHeldQuery, [&sim](const HeldQuery& q) { return sim.Held(q); }));
    api.Post("/api/kill", [&sim](const Request& req, Response& res) {
        ApiError error;
        if (!DecodeEmpty(req.body, error)) {
            Refuse(res, 400, error.message, error.field);
            return;
        }
        Reply(res, sim.Kill());
    });
    api.Get("/api/history", [&sim](const Request& req, Response& res) {
        long long limit = 0;
        long long requests = 0;
        if (QueryNumber(req, "limit", MAX_HISTORY_LIMIT, 100, limit, res) &&
            QueryNumber(req, "requests", 1, 0, requests, res)) {
            Reply(res, sim.History(static_cast<int>(limit), requests == 1));
        }
    });
    api.Get("/api/state", [&sim](const Request&, Response& res) { Reply(res, sim.State()); });
    api.Get("/api/page-events", [&sim](const Request&, Response& res) {
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
    api.Get("/api/events", [&sim](const Request& req, Response& res) {
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

// The HTTP library takes the first of several Content-Length headers, and one that is not a number
// for 0 (or, negative, for a huge length); such framing is refused before anything is read by it.
void RefuseBadFraming(httplib::Server& server) {
    server.set_pre_routing_handler([](const httplib::Request& req, httplib::Response& res) {
        const auto lengths = req.headers.equal_range("Content-Length");
        for (auto length = lengths.first; length != lengths.second; ++length) {
            const std::string& value = length->second;
            if (value.empty() || value.find_first_not_of("0123456789") != std::string::npos ||
                value != lengths.first->second) {
                Refuse(res, 400, "Content-Length must be one whole number", "Content-Length");
                return httplib::Server::HandlerResponse::Handled;
            }
        }
        return httplib::Server::HandlerResponse::Unhandled;
    });
}

// Refusals that the HTTP library makes by itself (malformed request, unknown path, body too
// large) get a JSON body too.
void JsonErrors(httplib::Server& server, const std::string& token) {
    using ErrorHandler = httplib::Server::HandlerWithResponse;
    server.set_error_handler(ErrorHandler([token](const httplib::Request& req,
                                                  httplib::Response& res) {
        if (!res.body.empty()) {
            return httplib::Server::HandlerResponse::Unhandled;
        }
        // Without the token, nothing about the API is told, not even which calls exist.
        if (res.status == 404 && req.path.compare(0, 5, "/api/") == 0 &&
            !Authorized(req, token, res)) {
            return httplib::Server::HandlerResponse::Handled;
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
    // The library's default also sets SO_REUSEPORT, which lets a second simulator listen on the
    // same port and take half of the first one's calls; SO_REUSEADDR alone only allows a restart
    // while the last run's connections wait out TIME_WAIT.
    server.set_socket_options([](socket_t sock) {
        const int yes = 1;
        ::setsockopt(sock, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof(yes));
    });
    server.set_tcp_nodelay(true);  // answers go out at once, not after a delayed acknowledgement
    Api api(server, token);
    RefuseBadFraming(server);
    JsonErrors(server, token);
    Routes(server, api, *sim);

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
