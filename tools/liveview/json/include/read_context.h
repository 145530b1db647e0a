// What the readers of one JSON file share while they fill records: the file, the folder that
// picture files are relative to, the first reason that made the input unusable, the members
// each reader knows (so that the others can be reported), and, with the other files of the same
// input (a scenario and the live view files it names), the load options, the warnings and the
// picture files already read.
//
// Thread safety: none; an input is read on one thread.
#ifndef LIVEVIEW_JSON_READ_CONTEXT_H
#define LIVEVIEW_JSON_READ_CONTEXT_H

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "input_error.h"
#include "json_value.h"

namespace LiveViewJson {

struct LoadOptions {
    // An unknown member makes the input unusable instead of giving a warning.
    bool strict = false;
};

// An input keeps this many warnings; one more says that the rest were left out.
constexpr size_t MAX_WARNINGS = 100;

class PictureFiles;
class MemberTracker;
struct InputState;

class ReadContext {
public:
    // The context of the first (or only) file of an input.
    ReadContext(std::string sourceFile, std::string baseDir, InputError error = {},
                LoadOptions options = {});
    // The context of another file of the input that sameInput reads.
    ReadContext(const ReadContext& sameInput, std::string sourceFile, std::string baseDir);
    ReadContext(const ReadContext&) = delete;
    ReadContext& operator=(const ReadContext&) = delete;
    ~ReadContext();

    std::string sourceFile;
    std::string baseDir;
    InputError error;

    bool Usable() const { return !error.IsSet(); }
    // Keeps the first reason only; RefuseAt gives it a place in this file.
    void Refuse(const std::string& reason);
    void RefuseAt(JsonPlace place, const std::string& reason);

    const LoadOptions& Options() const;
    // The warnings of the whole input so far, in the order met.
    const std::vector<InputWarning>& Warnings() const;

    // object was read as a record of this file; its members are known as they are asked for.
    void Visit(const JsonValue* object);
    void Ask(const JsonValue* object, const std::string& name);
    // Every member of object is known: its names are data.
    void KnowAll(const JsonValue* object);
    // Each member of a visited object under root (this file's top) that no reader asked for
    // becomes a warning ("unknown member", with a "did you mean" when a known name is close);
    // with LoadOptions::strict, the first one makes the input unusable instead. Answers Usable().
    bool ReportUnknownMembers(const JsonValue& root);

    PictureFiles& Pictures();

private:
    std::shared_ptr<InputState> input_;
    std::unique_ptr<MemberTracker> members_;
};

}  // namespace LiveViewJson

#endif  // LIVEVIEW_JSON_READ_CONTEXT_H
