#include "scenario.h"

#include <cstring>
#include <filesystem>

#include "field_reader.h"
#include "live_view_reader.h"

namespace LiveViewCli {

using LiveViewJson::FieldReader;
using LiveViewJson::InputError;
using LiveViewJson::JsonType;
using Tavi::Host::ServiceCall;
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

struct CallName {
    const char* name;
    ServiceCall call;
};

constexpr CallName CALLS[] = {
    {"publish", ServiceCall::PUBLISH},
    {"subscribe", ServiceCall::SUBSCRIBE},
    {"getActive", ServiceCall::GET_ACTIVE},
    {"getEnabled", ServiceCall::GET_ENABLED},
};

const Action* FindAction(const char* name) {
    for (const auto& action : ACTIONS) {
        if (std::strcmp(action.name, name) == 0) {
            return &action;
        }
    }
    return nullptr;
}

// Reads a scenario; the first problem met is the reason it is unusable. Type errors of its
// members are found by the front end's typed-member reader, recorded into errors_.
class ScenarioReader {
public:
    explicit ScenarioReader(const std::string& path)
        : context_{path, LiveViewJson::FolderOf(path), {}} {}

    bool Read(const cJSON* root, Scenario& scenario);
    const InputError& Error() const { return context_.error; }

private:
    FieldReader Reader(const cJSON* object, const std::string& path) {
        return FieldReader(object, path, errors_, context_);
    }
    bool Fail(const std::string& reason) {
        context_.Refuse(reason);
        return false;
    }
    // True with out set when value is present and no type error was met.
    template <typename T>
    bool Got(const std::shared_ptr<T>& value, const std::string& path, const char* type, T& out) {
        if (!errors_.GetParamFailed().empty()) {
            return Fail(errors_.GetParamFailed());
        }
        if (value == nullptr) {
            return Fail(path + ": " + type + " required");
        }
        out = *value;
        return true;
    }

    bool ReadApp(const FieldReader& top, Scenario& scenario);
    bool ReadStep(const cJSON* item, const std::string& path, Step& step);
    bool ReadAction(const FieldReader& r, const std::string& path, Step& step);
    bool ReadLiveView(const FieldReader& r, const std::string& path, Step& step);
    bool ReadFailNext(const FieldReader& r, const std::string& path, Step& step);

    LiveViewJson::ReadContext context_;
    LiveViewBase errors_;
};

bool ScenarioReader::Read(const cJSON* root, Scenario& scenario) {
    if (!cJSON_IsObject(root)) {
        return Fail("a scenario must be a JSON object");
    }
    const FieldReader top = Reader(root, "scenario");
    if (!ReadApp(top, scenario)) {
        return false;
    }
    const cJSON* steps = top.Member("steps", JsonType::ARRAY, "Array<Step>");
    if (!errors_.GetParamFailed().empty() || steps == nullptr) {
        return Fail(errors_.GetParamFailed().empty() ? "scenario.steps: an array is required"
                                                     : errors_.GetParamFailed());
    }
    int index = 0;
    const cJSON* item = nullptr;
    cJSON_ArrayForEach(item, steps) {
        Step step;
        if (!ReadStep(item, "steps[" + std::to_string(index++) + "]", step)) {
            return false;
        }
        scenario.steps.push_back(std::move(step));
    }
    return true;
}

bool ScenarioReader::ReadApp(const FieldReader& top, Scenario& scenario) {
    const cJSON* app = top.Member("app", JsonType::OBJECT, "object");
    if (app != nullptr) {
        const FieldReader r = Reader(app, "scenario.app");
        if (const auto bundle = r.String("bundle")) {
            scenario.bundle = *bundle;
        }
        if (const auto uid = r.Int("uid")) {
            scenario.uid = *uid;
        }
    }
    return errors_.GetParamFailed().empty() || Fail(errors_.GetParamFailed());
}

bool ScenarioReader::ReadStep(const cJSON* item, const std::string& path, Step& step) {
    if (!cJSON_IsObject(item)) {
        return Fail(path + ": a step must be a JSON object");
    }
    const Action* action = nullptr;
    const cJSON* member = nullptr;
    cJSON_ArrayForEach(member, item) {
        const Action* found = FindAction(member->string);
        if (found != nullptr && action != nullptr) {
            return Fail(path + ": more than one action (" + action->name + ", " + found->name +
                        ")");
        }
        if (found != nullptr) {
            action = found;
        } else if (std::strcmp(member->string, "expect") != 0 &&
                   std::strcmp(member->string, "note") != 0) {
            return Fail(path + ": unknown member \"" + member->string + "\"");
        }
    }
    if (action == nullptr) {
        return Fail(path + ": no action (start, update, stop, get, enabled, advanceClock, " +
                    "pressButton, setSlotEnabled, setRateLimit or failNext)");
    }
    step.kind = action->kind;
    step.name = action->name;
    const FieldReader r = Reader(item, path);
    if (const auto expect = r.Int("expect")) {
        step.expect = *expect;
    }
    if (const auto note = r.String("note")) {
        step.note = *note;
    }
    if (!errors_.GetParamFailed().empty()) {
        return Fail(errors_.GetParamFailed());
    }
    return ReadAction(r, path, step);
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
            return true;
        case StepKind::ADVANCE_CLOCK: {
            long millis = 0;
            const bool got = Got(r.Long(name), valuePath, "milliseconds", millis);
            step.number = millis;
            return got;
        }
        case StepKind::SET_SLOT_ENABLED:
            return Got(r.Bool(name), valuePath, "a boolean", step.flag);
        case StepKind::SET_RATE_LIMIT: {
            int limit = 0;
            const bool got = Got(r.Int(name), valuePath, "a number", limit);
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

bool ScenarioReader::ReadLiveView(const FieldReader& r, const std::string& path, Step& step) {
    const cJSON* value = r.Member(step.name.c_str(), JsonType::OBJECT, "LiveView");
    if (value == nullptr) {
        return Fail(path + ": a live view object or {\"file\": ...} required");
    }
    step.liveView = std::make_shared<LiveView>();
    const cJSON* file = cJSON_GetObjectItemCaseSensitive(value, "file");
    if (cJSON_IsString(file) && cJSON_GetArraySize(value) == 1) {
        std::filesystem::path resolved(file->valuestring);
        if (resolved.is_relative()) {
            resolved = std::filesystem::path(context_.baseDir) / resolved;
        }
        step.source = file->valuestring;
        return LiveViewJson::LoadLiveView(resolved.string(), *step.liveView, context_.error);
    }
    step.source = "inline";
    return LiveViewJson::ReadLiveView(value, context_, *step.liveView);
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
        step.times = *times;
    }
    for (const auto& call : CALLS) {
        if (callName == call.name) {
            step.call = call.call;
            return errors_.GetParamFailed().empty() || Fail(errors_.GetParamFailed());
        }
    }
    return Fail(path + ".call: one of publish, subscribe, getActive, getEnabled required");
}

}  // namespace

bool LoadScenario(const std::string& path, Scenario& scenario, InputError& error) {
    LiveViewJson::JsonDocument document;
    if (!LiveViewJson::LoadJsonFile(path, document, error)) {
        return false;
    }
    ScenarioReader reader(path);
    if (!reader.Read(document.Root(), scenario)) {
        error = reader.Error();
        return false;
    }
    return true;
}

}  // namespace LiveViewCli
