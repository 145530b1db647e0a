#include "live_view_reader.h"

#include <filesystem>

#include "capsule_reader.h"
#include "compound_readers.h"
#include "layout_reader.h"
#include "picture_reader.h"

namespace LiveViewJson {

using namespace Tavi::Wisp::LiveView;

namespace {

std::shared_ptr<LiveViewTimer> ReadTimer(const FieldReader& root) {
    const JsonValue* object = root.Member("timer", JsonType::OBJECT, "LiveViewTimer");
    if (object == nullptr) {
        return nullptr;
    }
    auto timer = std::make_shared<LiveViewTimer>();
    const FieldReader r = root.Nested(object, root.Path("timer"), *timer);
    timer->SetTime(r.Long("time"));
    timer->SetIsCountdown(r.Bool("isCountdown"));
    timer->SetIsPaused(r.Bool("isPaused"));
    return timer;
}

std::shared_ptr<ExtensionData> ReadExtension(const FieldReader& primary) {
    const JsonValue* object = primary.Member("extensionData", JsonType::OBJECT, "ExtensionData");
    if (object == nullptr) {
        return nullptr;
    }
    auto extension = std::make_shared<ExtensionData>();
    const FieldReader r = primary.Nested(object, "extensionData", *extension);
    extension->SetText(r.String("text"));
    if (const auto type = r.Int("type")) {
        extension->SetType(static_cast<ExtensionData::ExtensionType>(*type));
    }
    ReadPicture(r, "pic", *extension, &ExtensionData::SetPicStr, &ExtensionData::SetPic);
    extension->SetClickAction(ReadClickAction(r, "clickAction"));
    if (const auto isCover = r.Bool("isCoverClickAction")) {
        extension->SetIsCoverClickAction(*isCover);
    }
    return extension;
}

std::shared_ptr<PrimaryData> ReadPrimary(const FieldReader& data) {
    const JsonValue* object = data.Member("primary", JsonType::OBJECT, "PrimaryData");
    if (object == nullptr) {
        return nullptr;
    }
    auto primary = std::make_shared<PrimaryData>();
    const FieldReader r = data.Nested(object, "primary", *primary);
    primary->SetTitle(r.String("title"));
    std::vector<std::shared_ptr<RichText>> content;
    if (ReadRichTexts(r, "content", content)) {
        primary->SetContent(content);
    }
    primary->SetKeepTime(r.Int("keepTime"));
    primary->SetClickAction(ReadClickAction(r, "clickAction"));
    ReadPicture(r, "immersivePic", *primary, &PrimaryData::SetImmersivePicStr,
                &PrimaryData::SetImmersivePic);
    primary->SetImmersiveAbilityName(r.String("immersiveAbilityName"));
    primary->SetImmersiveParameters(ReadParameters(r, "immersiveParameters"));
    primary->SetExtensionData(ReadExtension(r));
    primary->SetLayoutData(ReadLayout(r, "layoutData"));
    return primary;
}

std::shared_ptr<ExternalData> ReadExternal(const FieldReader& data) {
    const JsonValue* object = data.Member("external", JsonType::OBJECT, "ExternalData");
    if (object == nullptr) {
        return nullptr;
    }
    auto external = std::make_shared<ExternalData>();
    const FieldReader r = data.Nested(object, "external", *external);
    external->SetTitle(r.String("title"));
    std::vector<std::shared_ptr<RichText>> content;
    if (ReadRichTexts(r, "content", content)) {
        external->SetContent(content);
    }
    external->SetBackgroundColor(r.String("backgroundColor"));
    return external;
}

// Validation never reads the param-failed text of LiveViewData: the errors of its members go to
// the live view, whose text the common check reads first.
std::shared_ptr<LiveViewData> ReadLiveViewData(const FieldReader& root, LiveView& liveView) {
    const JsonValue* object = root.Member("liveViewData", JsonType::OBJECT, "LiveViewData");
    if (object == nullptr) {
        return nullptr;
    }
    auto data = std::make_shared<LiveViewData>();
    const FieldReader r = root.Nested(object, "liveViewData", liveView);
    data->SetPrimary(ReadPrimary(r));
    data->SetCapsule(ReadCapsule(r, "capsule"));
    data->SetExternal(ReadExternal(r));
    return data;
}

}  // namespace

bool ReadLiveView(const JsonValue* object, ReadContext& context, LiveView& liveView) {
    return ReadWithinMemory(context.sourceFile, context.error, [&] {
        if (object == nullptr || !object->IsObject()) {
            context.Refuse("a live view must be a JSON object");
            return false;
        }
        const FieldReader root(object, "liveView", liveView, context);
        liveView.SetId(root.Int("id"));
        if (const auto event = root.String("event")) {
            liveView.SetEvent(*event);
        }
        liveView.SetSequence(root.Int("sequence"));
        liveView.SetIsMute(root.Bool("isMute"));
        liveView.SetTimer(ReadTimer(root));
        liveView.SetLiveViewData(ReadLiveViewData(root, liveView));
        return context.Usable();
    });
}

std::string FolderOf(const std::string& path) {
    return std::filesystem::path(path).parent_path().string();
}

namespace {

// Parses the file that context names, reads the live view in it and reports its unknown
// members.
bool LoadInto(ReadContext& context, LiveView& liveView, InputError& error) {
    return ReadWithinMemory(context.sourceFile, error, [&] {
        JsonDocument document;
        if (!LoadJsonFile(context.sourceFile, document, error)) {
            return false;
        }
        if (!ReadLiveView(document.Root(), context, liveView) ||
            !context.ReportUnknownMembers(*document.Root())) {
            error = context.error;
            return false;
        }
        return true;
    });
}

}  // namespace

bool LoadLiveView(const std::string& path, const LoadOptions& options, LiveView& liveView,
                  std::vector<InputWarning>& warnings, InputError& error) {
    ReadContext context(path, FolderOf(path), {}, options);
    return ReadWithinMemory(path, error, [&] {
        const bool usable = LoadInto(context, liveView, error);
        warnings = context.Warnings();
        return usable;
    });
}

bool LoadLiveView(const std::string& path, LiveView& liveView, InputError& error) {
    std::vector<InputWarning> warnings;
    return LoadLiveView(path, LoadOptions{}, liveView, warnings, error);
}

bool LoadLiveViewOf(const ReadContext& input, const std::string& path, LiveView& liveView,
                    InputError& error) {
    ReadContext context(input, path, FolderOf(path));
    return LoadInto(context, liveView, error);
}

}  // namespace LiveViewJson
