// liveview: reads live views and scenarios from JSON and runs them through the live view library
// against the embedded notification service.
#include <CLI/CLI.hpp>

#include <iostream>
#include <string>

#include "commands.h"

namespace {

const char* const OPERATION_HELP =
    "Operation to check the live view for: start, update or stop (default start). For update "
    "and stop the live view held by the service is taken to be of the same layout and capsule "
    "kinds, with external data and a timer when the file has them.";

CLI::App* AddLiveViewVerb(CLI::App& app, const char* name, const char* description,
                          std::string& file, std::string& operation) {
    CLI::App* verb = app.add_subcommand(name, description);
    verb->add_option("FILE", file, "Live view JSON file")->required();
    verb->add_option("--op", operation, OPERATION_HELP)
        ->check(CLI::IsMember({"start", "update", "stop"}));
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

    std::string file;
    std::string operation = "start";
    CLI::App* validate = AddLiveViewVerb(
        app, "validate", "Check a live view and print the verdict as code and message.", file,
        operation);
    CLI::App* convert =
        AddLiveViewVerb(app, "convert",
                        "Print the notification request that the live view would publish: "
                        "request fields, content status and version, every extra-info key with "
                        "its box type and value, and the pictures with their sizes.",
                        file, operation);

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

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        const int code = app.exit(error);
        return code == 0 ? LiveViewCli::STATUS_OK : LiveViewCli::STATUS_UNUSABLE;
    }
    if (validate->parsed()) {
        return LiveViewCli::RunValidate(file, operation, std::cout, std::cerr);
    }
    if (convert->parsed()) {
        return LiveViewCli::RunConvert(file, operation, std::cout, std::cerr);
    }
    return LiveViewCli::RunPlay(file, options, std::cout, std::cerr);
}
