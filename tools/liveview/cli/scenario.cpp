#include "scenario.h"

#include <filesystem>

#include "field_reader.h"
#include "live_view_reader.h"

namespace LiveViewCli {

using LiveViewJson::FieldReader;
using LiveViewJson::InputError;
using LiveViewJson::InputWarning;
using LiveViewJson::JsonType;
using LiveViewJson::JsonValue;
using LiveViewJson::LoadOptions;
using Tavi::Wisp::LiveView::LiveView;
using Tavi::Wisp::LiveView::LiveViewBase;

namespace {

struct Action {
    const char* name;
    StepKind kind;
};

constexpr Action ACTIONS[] = {
    {"start", StepKind::START},
    {"update", StepKind::UPDATE},
    {"stop", StepKind::STOP},
    {"get", StepKind::GET},
    {"enabled", StepKind::ENABLED},
    {"advanceClock", StepKind::ADVANCE_CLOCK},
    {"pressButton", StepKind::PRESS_BUTTON},
    {"setSlotEnabled", StepKind::SET_SLOT_ENABLED},
    {"setRateLimit", StepKind::SET_RATE_LIMIT},
    {"failNext", StepKind::FAIL_NEXT},
};

const Action* FindAction(const std::string& name) {
    for (const auto& action : ACTIONS) {
        if (name == action.name) {
            return &action;
        }
    }
    return nullptr;
}

// Reads a scenario; the first problem met is the reason it is unusable. Type errors of its
// members are found by the front end's typed-member reader, recorded into errors_.
class ScenarioReader {
public:
    ScenarioReader(const std::string& path, const LoadOptions& options)
        : context_(path, LiveViewJson::FolderOf(path), {}, options) {}

    bool Read(const JsonValue* root, Scenario& scenario);
    const InputError& Error() const { return context_.error; }
    const std::vector<InputWarning>& Warnings() const { return context_.Warnings(); }

private:
    FieldReader Reader(const JsonValue* object, const std::string& path) {
        return FieldReader(object, path, errors_, context_);
    }
    bool Fail(const std::string& reason) {
        context_.Refuse(reason);
        return false;
    }
    // False with the reason when a type error was met.
    bool NoTypeError() {
        return errors_.GetParamFailed().empty() || Fail(errors_.GetParamFailed());
    }
    // True with out set when value is present and no type error was met.
    template <typename T>
    bool Got(const std::shared_ptr<T>& value, const std::string& path, const char* type, T& out) {
        if (!NoTypeError()) {
            return false;
        }
        if (value == nullptr) {
            return Fail(path + ": " + type + " required");
        }
        out = *value;
        return true;
    }
    // True when value is at least min.
    template <typename T>
    bool AtLeast(T value, T min, const std::string& path, const char* type) {
        return value >= min || Fail(path + ": " + type + " of at least " + std::to_string(min) +
                                    " required, not " + std::to_string(value));
    }
    // Got, and then at least min.
    template <typename T>
    bool GotAtLeast(const std::shared_ptr<T>& value, const std::string& path, const char* type,
                    T min, T& out) {
        return Got(value, path, type, out) && AtLeast(out, min, path, type);
    }

    bool ReadApp(const FieldReader& top, Scenario& scenario);
    bool ReadStep(const JsonValue& item, const std::string& path, Step& step);
    bool ReadAction(const FieldReader& r, const std::string& path, Step& step);
    bool ReadEnabled(const FieldReader& r, const std::string& path, Step& step);
    bool ReadLiveView(const FieldReader& r, const std::string& path, Step& step);
    bool ReadFailNext(const FieldReader& r, const std::string& path, Step& step);

    LiveViewJson::ReadContext context_;
    LiveViewBase errors_;
};

bool ScenarioReader::Read(const JsonValue* root, Scenario& scenario) {
    if (root == nullptr || !root->IsObject()) {
        return Fail("a scenario must be a JSON object");
    }
    const FieldReader top = Reader(root, "scenario");
    if (!ReadApp(top, scenario)) {
        return false;
    }
    const JsonValue* steps = top.Member("steps", JsonType::ARRAY, "Array<Step>");
    if (!errors_.GetParamFailed().empty() || steps == nullptr) {
        return Fail(errors_.GetParamFailed().empty() ? "scenario.steps: an array is required"
                                                     : errors_.GetParamFailed());
    }
    for (size_t index = 0; index < steps->Items().size(); ++index) {
        const JsonValue& item = steps->Items()[index];
        Step step;
        if (!ReadStep(item, "steps[" + std::to_string(index) + "]", step)) {
            // Every reason met while reading a step names the step, and the step's place when
            // it has none of its own.
            InputError& error = context_.error;
            error.reason = "step #" + std::to_string(index + 1) + ": " + error.reason;
            if (error.line == 0) {
                error.line = static_cast<int>(item.Place().line);
                error.column = static_cast<int>(item.Place().column);
            }
            return false;
        }
        scenario.steps.push_back(std::move(step));
    }
    return context_.ReportUnknownMembers(*root);
}

bool ScenarioReader::ReadApp(const FieldReader& top, Scenario& scenario) {
    const JsonValue* app = top.Member("app", JsonType::OBJECT, "object");
    if (app != nullptr) {
        const FieldReader r = Reader(app, "scenario.app");
        if (const auto bundle = r.String("bundle")) {
            scenario.bundle = *bundle;
        }
        if (const auto uid = r.Int("uid")) {
            scenario.uid = *uid;
        }
    }
    return NoTypeError();
}

bool ScenarioReader::ReadStep(const JsonValue& item, const std::string& path, Step& step) {
    if (!item.IsObject()) {
        return Fail(path + ": a step must be a JSON object");
    }
    // The members of a step are checked here, strictly: an unknown one is an error.
    context_.KnowAll(&item);
    const Action* action = nullptr;
    for (const LiveViewJson::JsonMember& member : item.Members()) {
        const Action* found = FindAction(member.name);
        if (found != nullptr && action != nullptr) {
            return Fail(path + ": more than one action (" + action->name + ", " + found->name +
                        ")");
        }
        if (found != nullptr) {
            action = found;
        } else if (member.name != "expect" && member.name != "note") {
            return Fail(path + ": unknown member \"" + member.name + "\"");
        }
    }
    if (action == nullptr) {
        return Fail(path + ": no action (start, update, stop, get, enabled, advanceClock, " +
                    "pressButton, setSlotEnabled, setRateLimit or failNext)");
    }
    step.kind = action->kind;
    step.name = action->name;
    const FieldReader r = Reader(&item, path);
    if (const auto expect = r.Int("expect")) {
        step.expect = *expect;
    }
    if (const auto note = r.String("note")) {
        step.note = *note;
    }
    return NoTypeError() && ReadAction(r, path, step);
}

bool ScenarioReader::ReadAction(const FieldReader& r, const std::string& path, Step& step) {
    const std::string valuePath = path + "." + step.name;
    const char* name = step.name.c_str();
    switch (step.kind) {
        case StepKind::START:
        case StepKind::UPDATE:
        case StepKind::STOP:
            return ReadLiveView(r, valuePath, step);
        case StepKind::GET:
            return Got(r.Int(name), valuePath, "a live view id", step.id);
        case StepKind::ENABLED:
            return ReadEnabled(r, valuePath, step);
        case StepKind::ADVANCE_CLOCK: {
            long millis = 0;
            const bool got = GotAtLeast(r.Long(name), valuePath, "milliseconds", 0L, millis);
            step.number = millis;
            return got;
        }
        case StepKind::SET_SLOT_ENABLED:
            return Got(r.Bool(name), valuePath, "a boolean", step.flag);
        case StepKind::SET_RATE_LIMIT: {
            int limit = 0;
            const bool got = GotAtLeast(r.Int(name), valuePath, "a limit", 0, limit);
            step.number = limit;
            return got;
        }
        case StepKind::PRESS_BUTTON: {
            const FieldReader press = Reader(r.Member(name, JsonType::OBJECT, "object"), valuePath);
            return Got(press.Int("id"), valuePath + ".id", "a live view id", step.id) &&
                   Got(press.String("button"), valuePath + ".button", "a button name", step.button);
        }
        case StepKind::FAIL_NEXT:
            return ReadFailNext(r, valuePath, step);
    }
    return false;
}

// {"enabled": {}}: the call takes nothing, but anything other than an object is a mistake.
bool ScenarioReader::ReadEnabled(const FieldReader& r, const std::string& path, Step& step) {
    const JsonValue* value = r.Member(step.name.c_str(), JsonType::OBJECT, "object");
    if (!NoTypeError()) {
        return false;
    }
    if (value == nullptr) {
        return Fail(path + ": an object ({}) required");
    }
    // It takes no members: any it has are unknown.
    context_.Visit(value);
    return true;
}

bool ScenarioReader::ReadLiveView(const FieldReader& r, const std::string& path, Step& step) {
    const JsonValue* value = r.Member(step.name.c_str(), JsonType::OBJECT, "LiveView");
    if (value == nullptr) {
        return Fail(path + ": a live view object or {\"file\": ...} required");
    }
    step.liveView = std::make_shared<LiveView>();
    const JsonValue* file = value->Find("file");
    if (file != nullptr && file->IsString() && value->Members().size() == 1) {
        context_.KnowAll(value);
        std::filesystem::path resolved(file->Text());
        if (resolved.is_relative()) {
            resolved = std::filesystem::path(context_.baseDir) / resolved;
        }
        step.source = file->Text();
        InputError error;
        if (!LiveViewJson::LoadLiveViewOf(context_, resolved.string(), *step.liveView, error)) {
            return Fail(path + ": " + error.ToString());
        }
        return true;
    }
    step.source = "inline";
    if (!LiveViewJson::ReadLiveView(value, context_, *step.liveView)) {
        context_.error.reason = path + ": " + context_.error.reason;
        return false;
    }
    return true;
}

bool ScenarioReader::ReadFailNext(const FieldReader& r, const std::string& path, Step& step) {
    const FieldReader fail = Reader(r.Member(step.name.c_str(), JsonType::OBJECT, "object"), path);
    std::string callName;
    int error = 0;
    if (!Got(fail.String("call"), path + ".call", "a call name", callName) ||
        !Got(fail.Int("error"), path + ".error", "an error number", error)) {
        return false;
    }
    step.number = error;
    if (const auto times = fail.Int("times")) {
        if (!AtLeast(*times, 1, path + ".times", "a count")) {
            return false;
        }
        step.times = *times;
    }
    if (!NoTypeError()) {
        return false;
    }
    if (Tavi::Host::ServiceCallNamed(callName, step.call)) {
        return true;
    }
    return Fail(path + ".call: one of publish, subscribe, getActive, getEnabled required");
}

}  // namespace

bool LoadScenario(const std::string& path, const LoadOptions& options, Scenario& scenario,
                  std::vector<InputWarning>& warnings, InputError& error) {
    ScenarioReader reader(path, options);
    return LiveViewJson::ReadWithinMemory(path, error, [&] {
        LiveViewJson::JsonDocument document;
        if (!LiveViewJson::LoadJsonFile(path, document, error)) {
            return false;
        }
        const bool usable = reader.Read(document.Root(), scenario);
        warnings = reader.Warnings();
        if (!usable) {
            error = reader.Error();
        }
        return usable;
    });
}

bool LoadScenario(const std::string& path, Scenario& scenario, InputError& error) {
    std::vector<InputWarning> warnings;
    return LoadScenario(path, LoadOptions{}, scenario, warnings, error);
}

}  // namespace LiveViewCli
