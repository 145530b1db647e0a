#include "capsule_reader.h"

#include "picture_reader.h"
#include "progress_capsule.h"
#include "text_capsule.h"
#include "timer_capsule.h"

namespace LiveViewJson {

using namespace Tavi::Wisp::LiveView;

namespace {

const char* const CAPSULE_PATH = "capsule";

void ReadCommon(const FieldReader& r, CapsuleData& capsule) {
    capsule.SetStatus(r.Int("status"));
    ReadPicture(r, "icon", capsule, &CapsuleData::SetIconStr, &CapsuleData::SetIcon);
    capsule.SetBackgroundColor(r.String("backgroundColor"));
}

void ReadText(const FieldReader& r, TextCapsule& capsule) {
    capsule.SetTitle(r.String("title"));
    capsule.SetContent(r.String("content"));
}

void ReadTimer(const FieldReader& r, TimerCapsule& capsule) {
    capsule.SetContent(r.String("content"));
    capsule.SetTime(r.Long("time"));
    capsule.SetIsCountdown(r.Bool("isCountdown"));
    capsule.SetIsPaused(r.Bool("isPaused"));
}

void ReadProgress(const FieldReader& r, ProgressCapsule& capsule) {
    capsule.SetMax(r.Int("max"));
    capsule.SetProgress(r.Int("progress"));
    capsule.SetIndeterminate(r.Bool("indeterminate"));
}

void ReadPlain(const FieldReader&, CapsuleData&) {}

// Makes the kind, then reads the members that every capsule has and the kind's own.
template <typename Kind>
std::shared_ptr<CapsuleData> Read(const FieldReader& holder, const JsonValue* object,
                                  void (*readKind)(const FieldReader&, Kind&)) {
    auto capsule = std::make_shared<Kind>();
    const FieldReader reader = holder.Nested(object, CAPSULE_PATH, *capsule);
    ReadCommon(reader, *capsule);
    readKind(reader, *capsule);
    return capsule;
}

std::shared_ptr<CapsuleData> MakeCapsule(const FieldReader& holder, const JsonValue* object,
                                         int type) {
    switch (type) {
        case CapsuleData::TEXT:
            return Read<TextCapsule>(holder, object, ReadText);
        case CapsuleData::TIMER:
            return Read<TimerCapsule>(holder, object, ReadTimer);
        case CapsuleData::PROGRESS:
            return Read<ProgressCapsule>(holder, object, ReadProgress);
        default:
            return Read<CapsuleData>(holder, object, ReadPlain);
    }
}

}  // namespace

std::shared_ptr<CapsuleData> ReadCapsule(const FieldReader& holder, const char* name) {
    const JsonValue* object = holder.Member(name, JsonType::OBJECT, "CapsuleData");
    if (object == nullptr) {
        return nullptr;
    }
    // The kind is not known before its type is read: a type error is held here, and is the
    // capsule's first text.
    LiveViewBase typeErrors;
    const auto type = holder.Nested(object, CAPSULE_PATH, typeErrors).Int("type");
    auto capsule =
        MakeCapsule(holder, object, type == nullptr ? CapsuleData::CAPSULE_TYPE_NONE : *type);
    if (type != nullptr) {
        capsule->SetType(static_cast<CapsuleData::CapsuleType>(*type));
    }
    if (!typeErrors.GetParamFailed().empty()) {
        capsule->SetParamFailed(typeErrors.GetParamFailed());
    }
    return capsule;
}

}  // namespace LiveViewJson
