// liveview: reads live views and scenarios from JSON and runs them through the live view library
// against the embedded notification service.
#include <CLI/CLI.hpp>

#include <iostream>
#include <string>

#include "commands.h"
#include "preview.h"

namespace {

const char* const OPERATION_HELP =
    "Operation to build the request for: start, update or stop (default start).";
const char* const HELD_HELP =
    "For update and stop: the live view as it was started, which decides what the service holds "
    "(layout and capsule kinds, external title, timer); default FILE itself.";

CLI::App* AddLiveViewVerb(CLI::App& app, const char* name, const char* description,
                          LiveViewCli::BuildRequest& request) {
    CLI::App* verb = app.add_subcommand(name, description);
    verb->add_option("FILE", request.file, "Live view JSON file")->required();
    verb->add_option("--op", request.operation, OPERATION_HELP)
        ->check(CLI::IsMember({"start", "update", "stop"}));
    verb->add_option("--held", request.heldFile, HELD_HELP);
    return verb;
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app{
        "Reads live views and scenarios from JSON and runs them through the live view "
        "library against the embedded notification service.\n"
        "Exit status: 0 success, 1 refused by the library (code and message printed), "
        "2 unusable input."};
    app.require_subcommand(1);

    LiveViewCli::BuildRequest build;
    CLI::App* validate = AddLiveViewVerb(
        app, "validate",
        "Answer what the client would answer for the live view before publishing it: \"0 valid "
        "for OP\", or the library's code and message and the section that failed.",
        build);
    CLI::App* convert =
        AddLiveViewVerb(app, "convert",
                        "Print the notification request that the live view would publish: "
                        "request fields, content status and version, every extra-info key with "
                        "its box type and value, and the pictures with their sizes.",
                        build);
    std::string file;

    LiveViewCli::PlayOptions options;
    CLI::App* play = app.add_subcommand(
        "play",
        "Run a scenario against the embedded service, printing each step's code and message "
        "and the live view as the service then holds it.");
    play->add_option("SCENARIO", file, "Scenario JSON file")->required();
    play->footer(
        "Steps: start, update, stop (a live view, or {\"file\": \"x.json\"}), get, enabled, "
        "advanceClock, pressButton, setSlotEnabled, setRateLimit, failNext. A step may add "
        "\"expect\": CODE; the first step that answers another code ends the play with exit "
        "status 1.");
    play->add_flag("--events", options.events, "Also print system events and end events");
    play->add_flag("-v,--verbose", options.logLines, "Also print the log lines");

    // The preview verb (preview.h): options, then its dispatch below the parse.
    LiveViewCli::PreviewOptions previewOptions;
    CLI::App* preview = LiveViewCli::AddPreviewVerb(app, previewOptions);

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        const int code = app.exit(error);
        return code == 0 ? LiveViewCli::STATUS_OK : LiveViewCli::STATUS_UNUSABLE;
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
    return LiveViewCli::RunPlay(file, options, std::cout, std::cerr);
}
