#include "read_context.h"

#include <utility>

#include "member_tracker.h"
#include "picture_files.h"

namespace LiveViewJson {

// What every file of one input shares.
struct InputState {
    LoadOptions options;
    std::vector<InputWarning> warnings;
    PictureFiles pictures;
};

ReadContext::ReadContext(std::string sourceFile, std::string baseDir, InputError error,
                         LoadOptions options)
    : sourceFile(std::move(sourceFile)),
      baseDir(std::move(baseDir)),
      error(std::move(error)),
      input_(std::make_shared<InputState>()),
      members_(std::make_unique<MemberTracker>()) {
    input_->options = options;
}

ReadContext::ReadContext(const ReadContext& sameInput, std::string sourceFile, std::string baseDir)
    : sourceFile(std::move(sourceFile)),
      baseDir(std::move(baseDir)),
      input_(sameInput.input_),
      members_(std::make_unique<MemberTracker>()) {}

ReadContext::~ReadContext() = default;

void ReadContext::Refuse(const std::string& reason) {
    RefuseAt(JsonPlace{}, reason);
}

void ReadContext::RefuseAt(JsonPlace place, const std::string& reason) {
    if (!error.IsSet()) {
        error = InputError{sourceFile, static_cast<int>(place.line), static_cast<int>(place.column),
                           reason};
    }
}

const LoadOptions& ReadContext::Options() const {
    return input_->options;
}

const std::vector<InputWarning>& ReadContext::Warnings() const {
    return input_->warnings;
}

void ReadContext::Visit(const JsonValue* object) {
    members_->Visit(object);
}

void ReadContext::Ask(const JsonValue* object, const std::string& name) {
    members_->Ask(object, name);
}

void ReadContext::KnowAll(const JsonValue* object) {
    members_->KnowAll(object);
}

bool ReadContext::ReportUnknownMembers(const JsonValue& root) {
    members_->ForEachUnknown(root, [this](const JsonMember& member, const std::string& path,
                                          const std::string& suggestion) {
        const std::string reason =
            "unknown member" +
            (suggestion.empty() ? std::string() : " (did you mean \"" + suggestion + "\"?)");
        if (input_->options.strict) {
            RefuseAt(member.place, path + ": " + reason);
            return;
        }
        std::vector<InputWarning>& warnings = input_->warnings;
        if (warnings.size() < MAX_WARNINGS) {
            warnings.push_back(InputWarning{sourceFile, static_cast<int>(member.place.line),
                                            static_cast<int>(member.place.column), path, reason,
                                            suggestion});
        } else if (warnings.size() == MAX_WARNINGS) {
            warnings.push_back(InputWarning{
                sourceFile, 0, 0, path, "more unknown members follow; they are not listed", ""});
        }
    });
    return Usable();
}

PictureFiles& ReadContext::Pictures() {
    return input_->pictures;
}

}  // namespace LiveViewJson
