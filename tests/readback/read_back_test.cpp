// Reading a live view back from requests assembled by hand: missing parts, "not set" sentinels,
// lenient typed reads, rich-text parsing, kind dispatch, pictures and action buttons.
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "array_wrapper.h"
#include "base_obj.h"
#include "live_view_constant.h"
#include "notification_action_button.h"
#include "readback_support.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace {

using AAFwk::IInterface;
using Keys = LiveViewConstant;
using Notification::NotificationRequest;

const std::string WHERE = "[notification_request_conversion.cpp:";
const std::vector<std::string> NO_LOGS;

sptr<IInterface> Int(int value) {
    return AAFwk::Integer::Box(value);
}
sptr<IInterface> Text(const std::string& value) {
    return AAFwk::String::Box(value);
}

sptr<IInterface> ArrayOf(const AAFwk::InterfaceID& type, const sptr<IInterface>& item) {
    sptr<AAFwk::Array> array = new AAFwk::Array(1, type);
    array->Set(0, item);
    return array;
}

// The object behind a pointer; a missing one fails the test instead of crashing it.
template <typename T>
T& Must(const std::shared_ptr<T>& object) {
    if (object == nullptr) {
        throw std::runtime_error("missing record object");
    }
    return *object;
}

bool HasValue(const std::string& text) {
    return !text.empty();
}
template <typename T>
bool HasValue(const std::shared_ptr<T>& value) {
    return value != nullptr;
}
template <typename T>
bool HasValue(const std::vector<T>& list) {
    return !list.empty();
}

PrimaryData& Primary(const LiveView& v) {
    return Must(LiveView::GetPrimaryData(v));
}
std::shared_ptr<LayoutData> Layout(const LiveView& v) {
    return LiveView::GetLayoutData(v);
}
std::shared_ptr<CapsuleData> Capsule(const LiveView& v) {
    return LiveView::GetCapsuleData(v);
}

#define IS_SET(expr) [](const LiveView& v) { return HasValue(expr); }
#define LAYOUT_FIELD(cast, getter) IS_SET(Must(cast(Layout(v))).getter())
#define CAPSULE_FIELD(cast, getter) IS_SET(Must(cast(Capsule(v))).getter())

// "<class> <type>" of the record's capsule, or "none".
std::string CapsuleKind(const LiveView& v) {
    const auto capsule = Capsule(v);
    if (capsule == nullptr) {
        return "none";
    }
    const char* kind = AsTextCapsule(capsule)       ? "text"
                       : AsTimerCapsule(capsule)    ? "timer"
                       : AsProgressCapsule(capsule) ? "progress"
                                                    : "bare";
    return kind + (" " + std::to_string(capsule->GetType()));
}

// "<class> <type>" of the record's layout, or "none".
std::string LayoutKind(const LiveView& v) {
    const auto layout = Layout(v);
    if (layout == nullptr) {
        return "none";
    }
    const char* kind = AsProgressLayout(layout)     ? "progress"
                       : AsPickupLayout(layout)     ? "pickup"
                       : AsFlightLayout(layout)     ? "flight"
                       : AsScoreLayout(layout)      ? "score"
                       : AsNavigationLayout(layout) ? "navigation"
                                                    : "bare";
    return kind + (" " + std::to_string(layout->GetLayoutType()));
}

// What a request with an empty extra-info map reads back as (RequestParts' id is 7).
LiveView Skeleton() {
    LiveView v;
    v.SetId(std::make_shared<int>(7));
    v.SetTimer(std::make_shared<LiveViewTimer>());
    auto data = std::make_shared<LiveViewData>();
    data->SetPrimary(std::make_shared<PrimaryData>());
    data->SetExternal(std::make_shared<ExternalData>());
    v.SetLiveViewData(data);
    return v;
}

TEST_F(ReadBackTest, MissingRequestPartsFailAndLeaveTheRecordUntouched) {
    struct Row {
        const char* label;
        std::function<sptr<NotificationRequest>()> make;
        std::string where;
        std::string message;
    };
    const Row rows[] = {
        {"no request", [] { return sptr<NotificationRequest>(); }, "1050] ConvertToLiveView# ",
         "The notificationRequest is nullptr."},
        {"no content", [] { return sptr<NotificationRequest>(new NotificationRequest(7)); },
         "1056] ConvertToLiveView# ", "The liveViewContent is nullptr."},
        {"content of no kind",
         [] {
             sptr<NotificationRequest> request = new NotificationRequest(7);
             request->SetContent(std::make_shared<Notification::NotificationContent>(nullptr));
             return request;
         },
         "1056] ConvertToLiveView# ", "The liveViewContent is nullptr."},
        {"no extra info",
         [] {
             RequestParts parts;
             parts.extra = nullptr;
             return parts.Build();
         },
         "1061] ConvertToLiveView# ", "The liveViewExtraInfo is nullptr."},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.label);
        LiveView liveView;
        liveView.SetEvent("kept");
        const BaseRsp rsp = NotificationRequestConversion::ConvertToLiveView(row.make(), liveView);
        EXPECT_EQ(rsp.GetErrAsInt32(), 1003500001);
        EXPECT_EQ(rsp.GetInfo(), row.message);
        EXPECT_EQ(Logs(), std::vector<std::string>{"6 " + WHERE + row.where + row.message});
        EXPECT_EQ(Dump(liveView).Lines(),
                  std::vector<std::string>({"liveView.GetId=<unset>", "liveView.GetEvent=\"kept\"",
                                            "liveView.GetSequence=<unset>",
                                            "liveView.GetIsMute=<unset>"}));
    }
}

TEST_F(ReadBackTest, EmptyExtraInfoGivesTheSkeletonWithTheRequestsOwnFields) {
    RequestParts parts;
    parts.content->SetVersion(3);
    parts.request->SetAutoDeletedTime(30);
    const auto agent = std::make_shared<WantAgent>("app/Page");
    parts.request->SetWantAgent(agent);
    const auto picture = Picture(4);
    parts.content->SetSinglePicture(picture);

    LiveView expected = Skeleton();
    expected.SetSequence(std::make_shared<int>(3));
    PrimaryData& primary = Primary(expected);
    primary.SetKeepTime(std::make_shared<int>(30));
    primary.SetClickAction(agent);
    primary.SetImmersivePic(picture);
    EXPECT_EQ(Dump(ReadBack(parts)).Lines(), Dump(expected).Lines());
    EXPECT_EQ(Logs(), NO_LOGS);
}

std::optional<int> ValueOf(const std::shared_ptr<int>& value) {
    return value == nullptr ? std::nullopt : std::optional<int>(*value);
}

TEST_F(ReadBackTest, VersionAndAutoDeletedTimeCountOnlyTheirLow32Bits) {
    struct Row {
        const char* label;
        uint32_t version;
        int64_t autoDeletedTime;
        std::optional<int> sequence;
        std::optional<int> keepTime;
    };
    const Row rows[] = {
        {"not set", 0xFFFFFFFF, -1, std::nullopt, std::nullopt},
        {"zero", 0, 0, 0, 0},
        {"ordinary", 12, 30, 12, 30},
        {"high bits ignored", 5, 0x100000005, 5, 5},
        {"low bits all ones", 1, 0xFFFFFFFF, 1, std::nullopt},
        {"high bits and low all ones", 1, 0x1FFFFFFFF, 1, std::nullopt},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.label);
        RequestParts parts;
        parts.content->SetVersion(row.version);
        parts.request->SetAutoDeletedTime(row.autoDeletedTime);
        const LiveView liveView = ReadBack(parts);
        EXPECT_EQ(ValueOf(liveView.GetSequence()), row.sequence);
        EXPECT_EQ(ValueOf(Primary(liveView).GetKeepTime()), row.keepTime);
    }
}

enum class Box { TEXT, INT, LONG, BOOL, PARAMS, TEXT_LIST };

// TEXT is valid for every key that carries text: plain text, resource or rich-text JSON.
sptr<IInterface> RightBox(Box box) {
    switch (box) {
        case Box::TEXT:
            return Text(R"([{"text":"v"}])");
        case Box::INT:
            return Int(2);
        case Box::LONG:
            return AAFwk::Long::Box(2);
        case Box::BOOL:
            return AAFwk::Boolean::Box(false);
        case Box::PARAMS:
            return AAFwk::WantParamWrapper::Box(AAFwk::WantParams());
        case Box::TEXT_LIST:
            return ArrayOf(AAFwk::g_IID_IString, Text("r"));
    }
    return nullptr;
}

std::vector<std::pair<std::string, sptr<IInterface>>> WrongBoxes(Box box) {
    std::vector<std::pair<std::string, sptr<IInterface>>> boxes;
    boxes.reserve(4);
    boxes.emplace_back("null", nullptr);
    if (box == Box::TEXT || box == Box::LONG || box == Box::BOOL) {
        boxes.emplace_back("Integer", Int(1));
    } else {
        boxes.emplace_back("String", Text("2"));
    }
    if (box == Box::INT) {
        boxes.emplace_back("Long", AAFwk::Long::Box(2));
    }
    if (box == Box::TEXT_LIST) {
        boxes.emplace_back("Integer array", ArrayOf(AAFwk::g_IID_IInteger, Int(1)));
    }
    return boxes;
}

TEST_F(ReadBackTest, EveryKeyReadsOnlyItsOwnBoxTypeAndSkipsOthersSilently) {
    struct Row {
        const std::string& key;
        Box box;
        std::string contextKey;  // a kind type that makes the key's section read
        int contextType;
        std::function<bool(const LiveView&)> isSet;
    };
    const std::string& L = Keys::LAYOUT_DATA_LAYOUT_TYPE;
    const std::string& C = Keys::CAPSULE_DATA_TYPE;
    const std::string& E = Keys::EXTEND_DATA_TYPE;
    const Row rows[] = {
        {Keys::EVENT, Box::TEXT, "", 0, IS_SET(v.GetEvent())},
        {Keys::IS_MUTE, Box::BOOL, "", 0, IS_SET(v.GetIsMute())},
        {Keys::LIVE_VIEW_TIMER_TIME, Box::LONG, "", 0, IS_SET(v.GetTimer()->GetTime())},
        {Keys::LIVE_VIEW_TIMER_ISCOUNTDOWN, Box::BOOL, "", 0,
         IS_SET(v.GetTimer()->GetIsCountdown())},
        {Keys::LIVE_VIEW_TIMER_ISPAUSED, Box::BOOL, "", 0, IS_SET(v.GetTimer()->GetIsPaused())},
        {Keys::PRIMARY_DATA_TITLE, Box::TEXT, "", 0, IS_SET(Primary(v).GetTitle())},
        {Keys::PRIMARY_DATA_CONTENT, Box::TEXT, "", 0, IS_SET(Primary(v).GetContent())},
        {Keys::PRIMARY_DATA_IMMERSIVEPIC_RES, Box::TEXT, "", 0,
         IS_SET(Primary(v).GetImmersivePicStr())},
        {Keys::PRIMARY_DATA_IMMERSIVEPIC_ABILITY_NAME, Box::TEXT, "", 0,
         IS_SET(Primary(v).GetImmersiveAbilityName())},
        {Keys::PRIMARY_DATA_IMMERSIVEPIC_PARAMETERS, Box::PARAMS, "", 0,
         IS_SET(Primary(v).GetImmersiveParameters())},
        {Keys::EXTEND_DATA_TEXT, Box::TEXT, E, 1, IS_SET(Primary(v).GetExtensionData()->GetText())},
        {Keys::EXTEND_DATA_PIC_RES, Box::TEXT, E, 1,
         IS_SET(Primary(v).GetExtensionData()->GetPicStr())},
        {Keys::PROGRESS_LAYOUT_PROGERESS, Box::INT, L, 3,
         LAYOUT_FIELD(AsProgressLayout, GetProgress)},
        {Keys::PROGRESS_LAYOUT_COLOR, Box::TEXT, L, 3, LAYOUT_FIELD(AsProgressLayout, GetColor)},
        {Keys::PROGRESS_LAYOUT_BACKGROUND_COLOR, Box::TEXT, L, 3,
         LAYOUT_FIELD(AsProgressLayout, GetBackgroundColor)},
        {Keys::PROGRESS_LAYOUT_INDICATOR_TYPE, Box::INT, L, 3,
         LAYOUT_FIELD(AsProgressLayout, GetIndicatorType)},
        {Keys::PROGRESS_LAYOUT_INDICATOR_ICON_RES, Box::TEXT, L, 3,
         LAYOUT_FIELD(AsProgressLayout, GetIndicatorIconStr)},
        {Keys::PROGRESS_LAYOUT_LINE_TYPE, Box::INT, L, 3,
         LAYOUT_FIELD(AsProgressLayout, GetIndicatorType)},
        {Keys::PROGRESS_LAYOUT_NODE_ICONS_RES, Box::TEXT_LIST, L, 3,
         LAYOUT_FIELD(AsProgressLayout, GetNodeIconsStr)},
        {Keys::PICKUP_LAYOUT_TITLE, Box::TEXT, L, 4, LAYOUT_FIELD(AsPickupLayout, GetTitle)},
        {Keys::PICKUP_LAYOUT_CONTENT, Box::TEXT, L, 4, LAYOUT_FIELD(AsPickupLayout, GetContent)},
        {Keys::PICKUP_LAYOUT_UNDERLINE_COLOR, Box::TEXT, L, 4,
         LAYOUT_FIELD(AsPickupLayout, GetUnderlineColor)},
        {Keys::PICKUP_LAYOUT_DESC_PIC_RES, Box::TEXT, L, 4,
         LAYOUT_FIELD(AsPickupLayout, GetDescPicStr)},
        {Keys::FLIGHT_LAYOUT_FIRST_TITLE, Box::TEXT, L, 5,
         LAYOUT_FIELD(AsFlightLayout, GetFirstTitle)},
        {Keys::FLIGHT_LAYOUT_FIRST_CONTENT, Box::TEXT, L, 5,
         LAYOUT_FIELD(AsFlightLayout, GetFirstContent)},
        {Keys::FLIGHT_LAYOUT_LAST_TITLE, Box::TEXT, L, 5,
         LAYOUT_FIELD(AsFlightLayout, GetLastTitle)},
        {Keys::FLIGHT_LAYOUT_LAST_CONTENT, Box::TEXT, L, 5,
         LAYOUT_FIELD(AsFlightLayout, GetLastContent)},
        {Keys::FLIGHT_LAYOUT_SPACE_ICON_RES, Box::TEXT, L, 5,
         LAYOUT_FIELD(AsFlightLayout, GetSpaceIconStr)},
        {Keys::FLIGHT_LAYOUT_IS_DISPLAY_HORIZONTAL_LINE, Box::BOOL, L, 5,
         LAYOUT_FIELD(AsFlightLayout, GetIsHorizontalLineDisplayed)},
        {Keys::FLIGHT_LAYOUT_ADDITIONAL_TEXT, Box::TEXT, L, 5,
         LAYOUT_FIELD(AsFlightLayout, GetAdditionalText)},
        {Keys::SCORE_LAYOUT_HOST_NAME, Box::TEXT, L, 7, LAYOUT_FIELD(AsScoreLayout, GetHostName)},
        {Keys::SCORE_LAYOUT_HOST_ICON_RES, Box::TEXT, L, 7,
         LAYOUT_FIELD(AsScoreLayout, GetHostIconStr)},
        {Keys::SCORE_LAYOUT_HOST_SCORE, Box::TEXT, L, 7, LAYOUT_FIELD(AsScoreLayout, GetHostScore)},
        {Keys::SCORE_LAYOUT_GUEST_NAME, Box::TEXT, L, 7, LAYOUT_FIELD(AsScoreLayout, GetGuestName)},
        {Keys::SCORE_LAYOUT_GUEST_ICON_RES, Box::TEXT, L, 7,
         LAYOUT_FIELD(AsScoreLayout, GetGuestIconStr)},
        {Keys::SCORE_LAYOUT_GUEST_SCORE, Box::TEXT, L, 7,
         LAYOUT_FIELD(AsScoreLayout, GetGuestScore)},
        {Keys::SCORE_LAYOUT_COMPETITION_DESC, Box::TEXT, L, 7,
         LAYOUT_FIELD(AsScoreLayout, GetCompetitionDescVector)},
        {Keys::SCORE_LAYOUT_COMPETITION_TIME, Box::TEXT, L, 7,
         LAYOUT_FIELD(AsScoreLayout, GetCompetitionTime)},
        {Keys::SCORE_LAYOUT_IS_DISPLAY_HORIZONTAL_LINE, Box::BOOL, L, 7,
         LAYOUT_FIELD(AsScoreLayout, GetIsHorizontalLineDisplayed)},
        {Keys::NAVIGATION_LAYOUT_CURRENT_ICON_RES, Box::TEXT, L, 8,
         LAYOUT_FIELD(AsNavigationLayout, GetCurrentNavigationIconStr)},
        {Keys::NAVIGATION_LAYOUT_ICONS_RES, Box::TEXT_LIST, L, 8,
         LAYOUT_FIELD(AsNavigationLayout, GetNavigationIconsStr)},
        {Keys::CAPSULE_DATA_STATUS, Box::INT, C, 1, IS_SET(Must(Capsule(v)).GetStatus())},
        {Keys::CAPSULE_DATA_ICON_RES, Box::TEXT, C, 1, IS_SET(Must(Capsule(v)).GetIconStr())},
        {Keys::CAPSULE_DATA_BACKGROUND_COLOR, Box::TEXT, C, 1,
         IS_SET(Must(Capsule(v)).GetBackgroundColor())},
        {Keys::TEXT_CAPSULE_TITLE, Box::TEXT, C, 1, CAPSULE_FIELD(AsTextCapsule, GetTitle)},
        {Keys::TEXT_CAPSULE_CONTENT, Box::TEXT, C, 1, CAPSULE_FIELD(AsTextCapsule, GetContent)},
        {Keys::TIMER_CAPSULE_CONTENT, Box::TEXT, C, 2, CAPSULE_FIELD(AsTimerCapsule, GetContent)},
        {Keys::TIMER_CAPSULE_INITIALTIME, Box::LONG, C, 2, CAPSULE_FIELD(AsTimerCapsule, GetTime)},
        {Keys::TIMER_CAPSULE_IS_CONTDOWN, Box::BOOL, C, 2,
         CAPSULE_FIELD(AsTimerCapsule, GetIsCountdown)},
        {Keys::TIMER_CAPSULE_IS_PAUSE, Box::BOOL, C, 2, CAPSULE_FIELD(AsTimerCapsule, GetIsPaused)},
        {Keys::PROGRESS_CAPSULE_MAX, Box::INT, C, 3, CAPSULE_FIELD(AsProgressCapsule, GetMax)},
        {Keys::PROGRESS_CAPSULE_PROGRESS, Box::INT, C, 3,
         CAPSULE_FIELD(AsProgressCapsule, GetProgress)},
        {Keys::PROGRESS_CAPSULE_INDETERMINATE, Box::BOOL, C, 3,
         CAPSULE_FIELD(AsProgressCapsule, GetIndeterminate)},
        {Keys::EXTERNAL_DATA_TITLE, Box::TEXT, "", 0,
         IS_SET(LiveView::GetExternalData(v)->GetTitle())},
        {Keys::EXTERNAL_DATA_CONTENT, Box::TEXT, "", 0,
         IS_SET(LiveView::GetExternalData(v)->GetContent())},
        {Keys::EXTERNAL_DATA_BACKGROUND_COLOR, Box::TEXT, "", 0,
         IS_SET(LiveView::GetExternalData(v)->GetBackgroundColor())},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.key);
        const auto readWith = [&](const sptr<IInterface>& value) {
            RequestParts parts;
            if (!row.contextKey.empty()) {
                parts.extra->SetParam(row.contextKey, Int(row.contextType));
            }
            parts.extra->SetParam(row.key, value);
            return row.isSet(ReadBack(parts));
        };
        EXPECT_TRUE(readWith(RightBox(row.box)));
        for (const auto& wrong : WrongBoxes(row.box)) {
            SCOPED_TRACE(wrong.first);
            EXPECT_FALSE(readWith(wrong.second));
        }
        EXPECT_EQ(Logs(), NO_LOGS);
    }
}

TEST_F(ReadBackTest, RichTextJsonIsParsedLenientlyAndRefusedWhenMalformed) {
    const std::string notObject =
        "5 " + WHERE + "108] ParseContentJson# The element is not object.";
    const std::string notParsed =
        "6 " + WHERE + "98] ParseContentJson# Failed to parse json string.";
    const std::string deep64 = std::string(64, '[') + std::string(64, ']');
    const std::string quoteAndBrackets = "\\\"" + std::string(70, '[');
    struct Row {
        const char* label;
        std::string json;
        std::string items;  // as Describe lists them
        std::vector<std::string> logs;
    };
    const Row rows[] = {
        {"empty array", "[]", "[]", {}},
        {"object root",
         "{}",
         "[]",
         {"6 " + WHERE + "103] ParseContentJson# The json object is not array."}},
        {"not json", "x", "[]", {notParsed}},
        {"empty text", "", "[]", {notParsed}},
        {"truncated", R"([{"text":"a"})", "[]", {notParsed}},
        {"member names ignore case, non-objects stay as empty items",
         R"([{"TEXT":"a"},5])",
         R"(["a" <unset>,<unset> <unset>,])",
         {notObject}},
        {"both members and an empty object",
         R"([{"text":"a","TextColor":"#FF000000"},{}])",
         R"(["a" "#FF000000",<unset> <unset>,])",
         {}},
        {"members that are not strings",
         R"([{"text":1,"textColor":null}])",
         "[<unset> <unset>,]",
         {}},
        {"64 levels", deep64, "[<unset> <unset>,]", {notObject}},
        {"65 levels", "[" + deep64 + "]", "[]", {notParsed}},
        {"65 levels after a string", R"([{"text":"a"},)" + deep64 + "]", "[]", {notParsed}},
        // The escaped quote must not end the string, or the brackets after it would nest.
        {"brackets inside a string",
         R"([{"text":")" + quoteAndBrackets + R"("}])",
         "[\"\"" + std::string(70, '[') + "\" <unset>,]",
         {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.label);
        RequestParts parts;
        parts.extra->SetParam(Keys::PRIMARY_DATA_CONTENT, Text(row.json));
        parts.extra->SetParam(Keys::PRIMARY_DATA_TITLE, Text("title"));
        const LiveView liveView = ReadBack(parts);
        EXPECT_EQ(Describe(Primary(liveView).GetContent()), row.items);
        EXPECT_EQ(Logs(), row.logs);
        EXPECT_EQ(Describe(Primary(liveView).GetTitle()), "\"title\"");
    }
}

TEST_F(ReadBackTest, KindTypesChooseTheCapsuleAndTheLayout) {
    struct Row {
        const std::string& key;
        sptr<IInterface> type;
        bool store;
        std::string kind;
    };
    const std::string& C = Keys::CAPSULE_DATA_TYPE;
    const std::string& L = Keys::LAYOUT_DATA_LAYOUT_TYPE;
    const Row rows[] = {
        {C, nullptr, false, "none"},   {C, Int(1), true, "text 1"},
        {C, Int(2), true, "timer 2"},  {C, Int(3), true, "progress 3"},
        {C, Int(0), true, "none"},     {C, Int(4), true, "none"},
        {C, Int(-1), true, "none"},    {C, Text("1"), true, "none"},
        {C, nullptr, true, "none"},    {L, nullptr, false, "none"},
        {L, Int(-1), true, "bare -1"}, {L, Int(3), true, "progress 3"},
        {L, Int(4), true, "pickup 4"}, {L, Int(5), true, "flight 5"},
        {L, Int(7), true, "score 7"},  {L, Int(8), true, "navigation 8"},
        {L, Int(6), true, "none"},     {L, Int(0), true, "none"},
        {L, Int(2), true, "none"},     {L, Int(9), true, "none"},
        {L, Int(-2), true, "none"},    {L, Text("3"), true, "none"},
        {L, nullptr, true, "none"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.key + " " + row.kind);
        RequestParts parts;
        if (row.store) {
            parts.extra->SetParam(row.key, row.type);
        }
        const LiveView liveView = ReadBack(parts);
        EXPECT_EQ(row.key == C ? CapsuleKind(liveView) : LayoutKind(liveView), row.kind);
    }
    EXPECT_EQ(Logs(), NO_LOGS);
}

TEST_F(ReadBackTest, TimerCapsuleWithoutFieldsHasOnlyItsType) {
    RequestParts parts;
    parts.extra->SetParam(Keys::CAPSULE_DATA_TYPE, Int(2));
    LiveView expected = Skeleton();
    auto timer = std::make_shared<TimerCapsule>();
    timer->SetType(CapsuleData::TIMER);
    expected.GetLiveViewData()->SetCapsule(timer);
    EXPECT_EQ(Dump(ReadBack(parts)).Lines(), Dump(expected).Lines());
}

TEST_F(ReadBackTest, ExtensionNeedsItsTypeKeyAndTakesTheFirstButtonsAction) {
    struct Row {
        const char* label;
        sptr<IInterface> type;
        bool store;
        std::vector<std::string> lines;  // the extension's lines of the record's listing
    };
    const auto lines = [](const std::string& type) {
        return std::vector<std::string>{
            "extension.GetText=\"more\"",           "extension.GetType=" + type,
            "extension.GetPicStr=<unset>",          "extension.GetPic=<unset>",
            "extension.GetClickAction=agent first", "extension.GetIsCoverClickAction=false"};
    };
    const Row rows[] = {
        {"absent", nullptr, false, {}},
        {"Integer", Int(3), true, lines("3")},
        {"out of range", Int(9), true, lines("9")},
        {"String", Text("3"), true, lines("-1")},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.label);
        RequestParts parts;
        if (row.store) {
            parts.extra->SetParam(Keys::EXTEND_DATA_TYPE, row.type);
        }
        parts.extra->SetParam(Keys::EXTEND_DATA_TEXT, Text("more"));
        for (const char* target : {"first", "second"}) {
            parts.request->AddActionButton(Notification::NotificationActionButton::Create(
                nullptr, "", std::make_shared<WantAgent>(target)));
        }
        std::vector<std::string> extensionLines;
        for (const std::string& line : Dump(ReadBack(parts)).Lines()) {
            if (line.rfind("extension.", 0) == 0) {
                extensionLines.push_back(line);
            }
        }
        EXPECT_EQ(extensionLines, row.lines);
    }
}

TEST_F(ReadBackTest, PicturePairsTakeTheFirstPictureAndOnlyANonEmptyResource) {
    struct Pair {
        const std::string& pictureKey;
        const std::string& resourceKey;
        const std::string& typeKey;
        std::function<std::shared_ptr<Media::PixelMap>(const LiveView&)> picture;
        std::function<std::shared_ptr<std::string>(const LiveView&)> resource;
    };
    const Pair pairs[] = {
        {Keys::CAPSULE_DATA_ICON, Keys::CAPSULE_DATA_ICON_RES, Keys::CAPSULE_DATA_TYPE,
         [](const LiveView& v) { return Must(Capsule(v)).GetIcon(); },
         [](const LiveView& v) { return Must(Capsule(v)).GetIconStr(); }},
        {Keys::EXTEND_DATA_PIC, Keys::EXTEND_DATA_PIC_RES, Keys::EXTEND_DATA_TYPE,
         [](const LiveView& v) { return Must(LiveView::GetExtensionData(v)).GetPic(); },
         [](const LiveView& v) { return Must(LiveView::GetExtensionData(v)).GetPicStr(); }},
    };
    struct Case {
        const char* label;
        int pictures;          // -1: no entry under the picture key
        const char* resource;  // nullptr: no resource key
        std::string expected;  // picture, then resource, as Describe gives them
    };
    const Case cases[] = {
        {"neither", -1, nullptr, "<unset> <unset>"},
        {"empty picture list", 0, nullptr, "<unset> <unset>"},
        {"two pictures, empty resource", 2, "", "picture 1 <unset>"},
        {"resource only", -1, "res", "<unset> \"res\""},
        {"both halves", 1, "res", "picture 1 \"res\""},
    };
    for (const Pair& pair : pairs) {
        for (const Case& c : cases) {
            SCOPED_TRACE(pair.pictureKey + ": " + c.label);
            RequestParts parts;
            parts.extra->SetParam(pair.typeKey, Int(3));
            parts.pictures["unrelated"] = {Picture(9)};
            if (c.pictures >= 0) {
                auto& list = parts.pictures[pair.pictureKey];
                for (int width = 1; width <= c.pictures; ++width) {
                    list.push_back(Picture(width));
                }
            }
            if (c.resource != nullptr) {
                parts.extra->SetParam(pair.resourceKey, Text(c.resource));
            }
            const LiveView liveView = ReadBack(parts);
            EXPECT_EQ(Describe(pair.picture(liveView)) + " " + Describe(pair.resource(liveView)),
                      c.expected);
        }
    }
}

TEST_F(ReadBackTest, LineTypeIsReadIntoTheIndicatorType) {
    struct Row {
        const char* label;
        std::optional<int> indicatorType;
        std::optional<int> lineType;
        std::optional<int> expectedIndicator;
    };
    const Row rows[] = {
        {"both", 1, 2, 2},
        {"indicator only", 1, std::nullopt, 1},
        {"line only", std::nullopt, 0, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.label);
        RequestParts parts;
        parts.extra->SetParam(Keys::LAYOUT_DATA_LAYOUT_TYPE, Int(3));
        if (row.indicatorType) {
            parts.extra->SetParam(Keys::PROGRESS_LAYOUT_INDICATOR_TYPE, Int(*row.indicatorType));
        }
        if (row.lineType) {
            parts.extra->SetParam(Keys::PROGRESS_LAYOUT_LINE_TYPE, Int(*row.lineType));
        }
        const LiveView liveView = ReadBack(parts);
        const ProgressLayout& layout = Must(AsProgressLayout(Layout(liveView)));
        EXPECT_EQ(ValueOf(layout.GetIndicatorType()), row.expectedIndicator);
        EXPECT_EQ(layout.GetLineType(), nullptr);
    }
}

}  // namespace
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
