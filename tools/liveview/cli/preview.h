// The preview verb: runs a live view file through LiveViewClient against a fresh embedded
// notification service, reads back what the service then holds and writes one self-contained
// HTML page of its presentations (status-bar capsule, shade card, lock screen, external screen).
#ifndef LIVEVIEW_CLI_PREVIEW_H
#define LIVEVIEW_CLI_PREVIEW_H

#include <CLI/CLI.hpp>

#include <cstdint>
#include <ostream>
#include <string>

namespace LiveViewCli {

struct PreviewOptions {
    std::string file;
    std::string operation = "start";  // "start", "update" or "stop"
    std::string resourceDir;          // where "res://name" finds name.png; empty: placeholders
    std::string output;               // the page's file; empty: standard output
    // Instead of a file: draw what the running simulator at service holds for app under id.
    std::string service;
    std::string bundle;
    int32_t uid = 0;
    int32_t id = 0;
};

// Adds the verb "preview" to app; parsing it fills options, which must outlive app's parse.
CLI::App* AddPreviewVerb(CLI::App& app, PreviewOptions& options);

// Exit status as every verb (commands.h): 0 when the live view was drawn (or, after a stop, the
// service holds nothing under its id, which the page tells with the answer); 1 when the library or
// the service refused it, the page then telling the code and message (printed to out as well when
// the page goes to a file); 2 when the file cannot be used or the page cannot be written (one
// line on err).
int RunPreview(const PreviewOptions& options, std::ostream& out, std::ostream& err);

}  // namespace LiveViewCli

#endif  // LIVEVIEW_CLI_PREVIEW_H
