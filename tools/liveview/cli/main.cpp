// liveview: reads live views and scenarios from JSON and runs them through the live view library
// against the embedded notification service.
#include <CLI/CLI.hpp>

#include <iostream>
#include <map>
#include <string>
#include <vector>

#include "commands.h"
#include "preview.h"
#include "serve.h"

namespace {

const char* const OPERATION_HELP =
    "Operation to build the request for: start, update or stop (default start).";
const char* const HELD_HELP =
    "For update and stop: the live view as it was started, which decides what the service holds "
    "(layout and capsule kinds, external title, timer); default FILE itself.";
const char* const EXIT_STATUS =
    "Exit status: 0 success, 1 refused by the library or a scenario step answered another code "
    "than it expects (code, message and a hint printed), 2 unusable input (one line on standard "
    "error).";

// --format and --strict, shared by the verbs that read input.
void AddInputOptions(CLI::App* verb, LiveViewCli::VerbOptions& options) {
    verb->add_option("--format", options.format,
                     "text (default) or json: one JSON document on standard output "
                     "(docs/liveview-output.schema.json)")
        ->transform(CLI::CheckedTransformer(
            std::map<std::string, LiveViewCli::OutputFormat>{
                {"text", LiveViewCli::OutputFormat::TEXT},
                {"json", LiveViewCli::OutputFormat::JSON}},
            CLI::ignore_case));
    verb->add_flag("--strict", options.strict,
                   "An unknown member makes the input unusable instead of giving a warning");
}

CLI::App* AddLiveViewVerb(CLI::App& app, const char* name, const char* description,
                          LiveViewCli::BuildRequest& request) {
    CLI::App* verb = app.add_subcommand(name, description);
    verb->add_option("FILE", request.file, "Live view JSON file")->required();
    verb->add_option("--op", request.operation, OPERATION_HELP)
        ->check(CLI::IsMember({"start", "update", "stop"}));
    verb->add_option("--held", request.heldFile, HELD_HELP);
    AddInputOptions(verb, request.verb);
    verb->footer(EXIT_STATUS);
    return verb;
}

// Names the verb that is not one; CLI11 would only say that a verb is required.
bool IsUnknownVerb(const CLI::App& app, int argc, char** argv, std::string& name) {
    if (argc < 2 || argv[1][0] == '-') {
        return false;
    }
    name = argv[1];
    for (const CLI::App* verb : app.get_subcommands({})) {
        if (verb->get_name() == name) {
            return false;
        }
    }
    return true;
}

std::string VerbNames(const CLI::App& app) {
    std::string names;
    for (const CLI::App* verb : app.get_subcommands({})) {
        names += (names.empty() ? "" : ", ") + verb->get_name();
    }
    return names;
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app{
        "Reads live views and scenarios from JSON and runs them through the live view "
        "library against the embedded notification service.\n" +
        std::string(EXIT_STATUS)};
    app.require_subcommand(1);

    LiveViewCli::BuildRequest build;
    CLI::App* validate = AddLiveViewVerb(
        app, "validate",
        "Answer what the client would answer for the live view before publishing it: \"0 valid "
        "for OP\", or the library's code and message, the section that failed and a hint.",
        build);
    CLI::App* convert =
        AddLiveViewVerb(app, "convert",
                        "Print the notification request that the live view would publish: "
                        "request fields, content status and version, every extra-info key with "
                        "its box type and value, and the pictures with their sizes.",
                        build);

    LiveViewCli::PlayRequest playRequest;
    CLI::App* play = app.add_subcommand(
        "play",
        "Run a scenario against the embedded service, printing each step's code and message "
        "and the live view as the service then holds it.");
    play->add_option("SCENARIO", playRequest.file, "Scenario JSON file")->required();
    play->footer(
        "Steps: start, update, stop (a live view, or {\"file\": \"x.json\"}), get, enabled, "
        "advanceClock, pressButton, setSlotEnabled, setRateLimit, failNext. A step may add "
        "\"expect\": CODE; the first step that answers another code ends the play with exit "
        "status 1.");
    play->add_option("--service", playRequest.play.service,
                     "Play against the running simulator at this address (as `liveview serve` "
                     "prints it) instead of a fresh embedded service; its clock is left as it is");
    play->add_flag("--events", playRequest.play.events, "Also print system events and end events");
    play->add_flag("-v,--verbose", playRequest.play.logLines, "Also print the log lines");
    AddInputOptions(play, playRequest.verb);

    // The preview verb (preview.h): options, then its dispatch below the parse.
    LiveViewCli::PreviewOptions previewOptions;
    CLI::App* preview = LiveViewCli::AddPreviewVerb(app, previewOptions);

    LiveViewSimulator::ServeOptions serveOptions;
    CLI::App* serve = app.add_subcommand(
        "serve",
        "Run the simulator: the notification service in this process for every app that "
        "connects, on 127.0.0.1 only, with a live page of what it shows and an HTTP API. Prints "
        "the page's address with the run's token; apps connect with "
        "LIVEVIEW_SERVICE=<that address>. Stops on Ctrl-C.");
    serve->add_option("--port", serveOptions.port, "Port on 127.0.0.1 (default 7007; 0: any free)")
        ->check(CLI::Range(0, 65535));
    serve->add_option("--db", serveOptions.databasePath,
                      "SQLite file that keeps held live views, slot switches and the publish "
                      "history across restarts (default: in memory)");
    serve->add_option("--res", serveOptions.resourceDir,
                      "Folder of resource pictures: \"res://name\" is drawn from DIR/name.png");
    serve->add_option("--token-file", serveOptions.tokenFile,
                      "Where to write the run's token (default ~/.liveview/serve-PORT.token, "
                      "mode 0600)");
    serve->footer(
        "Exit status: 0 after Ctrl-C or SIGTERM, 2 when it cannot start (the reason "
        "on standard error). The API and the database are described in "
        "docs/simulator.md.");

    std::vector<std::string> helpTopic;
    CLI::App* help = app.add_subcommand("help", "Show this help, or a verb's: help VERB");
    help->add_option("VERB", helpTopic, "The verb to explain");

    std::string unknown;
    if (IsUnknownVerb(app, argc, argv, unknown)) {
        std::cerr << "liveview: unknown verb \"" << unknown << "\"; the verbs are "
                  << VerbNames(app) << " (liveview --help)\n";
        return LiveViewCli::STATUS_UNUSABLE;
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        const int code = app.exit(error);
        return code == 0 ? LiveViewCli::STATUS_OK : LiveViewCli::STATUS_UNUSABLE;
    }
    if (help->parsed()) {
        // The formatter directly: App::help() would explain the verb "help" itself.
        const auto formatter = app.get_formatter();
        if (helpTopic.empty()) {
            std::cout << formatter->make_help(&app, "liveview", CLI::AppFormatMode::Normal);
            return LiveViewCli::STATUS_OK;
        }
        for (const CLI::App* verb : app.get_subcommands({})) {
            if (verb->get_name() == helpTopic.front()) {
                std::cout << formatter->make_help(verb, verb->get_name(),
                                                  CLI::AppFormatMode::Normal);
                return LiveViewCli::STATUS_OK;
            }
        }
        std::cerr << "liveview: unknown verb \"" << helpTopic.front() << "\"; the verbs are "
                  << VerbNames(app) << '\n';
        return LiveViewCli::STATUS_UNUSABLE;
    }
    if (serve->parsed()) {
        return LiveViewSimulator::Serve(serveOptions, std::cout, std::cerr);
    }
    if (preview->parsed()) {
        return LiveViewCli::RunPreview(previewOptions, std::cout, std::cerr);
    }
    if (validate->parsed()) {
        return LiveViewCli::RunValidate(build, std::cout, std::cerr);
    }
    if (convert->parsed()) {
        return LiveViewCli::RunConvert(build, std::cout, std::cerr);
    }
    return LiveViewCli::RunPlay(playRequest, std::cout, std::cerr);
}
