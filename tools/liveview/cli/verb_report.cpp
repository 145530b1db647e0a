#include "verb_report.h"

#include "json_writer.h"

namespace LiveViewCli {

using LiveViewJson::JsonValue;

VerbReport::VerbReport(const char* command, const std::string& file, const VerbOptions& options,
                       std::ostream& out, std::ostream& err)
    : json_(options.format == OutputFormat::JSON),
      out_(out),
      err_(err),
      document_(JsonValue::Object()),
      warnings_(JsonValue::Array()) {
    document_.Add("command", JsonValue::String(command));
    document_.Add("file", JsonValue::String(file));
}

void VerbReport::AddWarnings(const std::vector<LiveViewJson::InputWarning>& warnings) {
    for (const auto& warning : warnings) {
        if (!json_) {
            err_ << "liveview: warning: " << warning.ToString() << '\n';
            continue;
        }
        JsonValue& item = warnings_.Append(JsonValue::Object());
        item.Add("file", JsonValue::String(warning.file));
        item.Add("line", JsonValue::Integer(warning.line));
        item.Add("column", JsonValue::Integer(warning.column));
        item.Add("path", JsonValue::String(warning.path));
        item.Add("reason", JsonValue::String(warning.reason));
        if (!warning.suggestion.empty()) {
            item.Add("suggestion", JsonValue::String(warning.suggestion));
        }
    }
}

void VerbReport::Line(const std::string& line) {
    if (!json_) {
        out_ << line << '\n';
    }
}

int VerbReport::Unusable(const LiveViewJson::InputError& error) {
    err_ << "liveview: " << error.ToString() << '\n';
    if (json_) {
        JsonValue unusable = JsonValue::Object();
        unusable.Add("file", JsonValue::String(error.file));
        unusable.Add("line", JsonValue::Integer(error.line));
        unusable.Add("column", JsonValue::Integer(error.column));
        unusable.Add("reason", JsonValue::String(error.reason));
        document_.Add("unusable", std::move(unusable));
    }
    return Done(STATUS_UNUSABLE);
}

namespace {
JsonValue TextOrNull(const std::string& text) {
    return text.empty() ? JsonValue() : JsonValue::String(text);
}
}  // namespace

void VerbReport::AddVerdict(const Refusal& verdict) {
    document_.Add("code", JsonValue::Integer(verdict.code));
    document_.Add("message", JsonValue::String(verdict.message));
    document_.Add("section", TextOrNull(verdict.section));
    document_.Add("path", TextOrNull(verdict.hintPath));
    document_.Add("hint", TextOrNull(verdict.hint));
}

int VerbReport::Accepted(const std::string& line, const std::string& message) {
    if (json_) {
        AddVerdict(Refusal{0, message, "", "", ""});
    } else {
        out_ << line << '\n';
    }
    return Done(STATUS_OK);
}

int VerbReport::Refused(const Refusal& refusal) {
    if (json_) {
        AddVerdict(refusal);
    } else {
        out_ << refusal.code << ' ' << refusal.message << '\n';
        if (!refusal.section.empty()) {
            out_ << "section: " << refusal.section << '\n';
        }
        if (!refusal.hint.empty()) {
            out_ << "hint: " << refusal.hint << '\n';
        }
    }
    return Done(STATUS_REFUSED);
}

int VerbReport::Done(int status) {
    if (json_) {
        document_.Add("status", JsonValue::Integer(status));
        document_.Add("warnings", std::move(warnings_));
        out_ << LiveViewJson::WriteJson(document_) << '\n';
    }
    return status;
}

}  // namespace LiveViewCli
