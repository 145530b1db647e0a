// What a verb of the liveview command says, in either of its formats. Text: the verb's lines on
// out, warnings and the reason of an unusable input on err (one line each). JSON: one document on
// out when the verb ends, with the same facts as members (docs/liveview-output.schema.json), and
// still the one line on err for an unusable input.
//
// Thread safety: none; one report per verb run.
#ifndef LIVEVIEW_CLI_VERB_REPORT_H
#define LIVEVIEW_CLI_VERB_REPORT_H

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "input_error.h"
#include "json_value.h"

namespace LiveViewCli {

// Exit statuses of every verb.
constexpr int STATUS_OK = 0;
constexpr int STATUS_REFUSED = 1;   // the library or a scenario's expectation said no
constexpr int STATUS_UNUSABLE = 2;  // an input could not be read or understood

enum class OutputFormat { TEXT, JSON };

// What every verb that reads input takes.
struct VerbOptions {
    OutputFormat format = OutputFormat::TEXT;
    bool strict = false;  // unknown members make the input unusable instead of warning
};

// The library's refusal: its code and message, the section whose check gave it, and the hint
// (the member's JSON path and what its rule allows against what was found); empty when unknown.
struct Refusal {
    int32_t code = 0;
    std::string message;
    std::string section;
    std::string hintPath;
    std::string hint;  // "path: rule and value"
};

class VerbReport {
public:
    VerbReport(const char* command, const std::string& file, const VerbOptions& options,
               std::ostream& out, std::ostream& err);

    bool IsJson() const { return json_; }
    // The document's members beyond the common ones; written only in JSON.
    LiveViewJson::JsonValue& Document() { return document_; }

    void AddWarnings(const std::vector<LiveViewJson::InputWarning>& warnings);
    // Text: the line on out. JSON: nothing (the document carries the facts).
    void Line(const std::string& line);

    // The verdict; each answers its exit status and writes the document in JSON.
    int Unusable(const LiveViewJson::InputError& error);
    int Refused(const Refusal& refusal);
    // Success: text prints line; JSON records code 0 and message.
    int Accepted(const std::string& line, const std::string& message);
    int Done(int status);

private:
    void AddVerdict(const Refusal& verdict);

    bool json_;
    std::ostream& out_;
    std::ostream& err_;
    LiveViewJson::JsonValue document_;
    LiveViewJson::JsonValue warnings_;
};

}  // namespace LiveViewCli

#endif  // LIVEVIEW_CLI_VERB_REPORT_H
