#include "live_view_param_validate.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "common_utils.h"
#include "error_code.h"
#include "flight_layout.h"
#include "live_view_logger.h"
#include "live_view_rule_hint.h"
#include "navigation_layout.h"
#include "pickup_layout.h"
#include "pixel_map.h"
#include "progress_capsule.h"
#include "progress_layout.h"
#include "rich_text.h"
#include "score_layout.h"
#include "text_capsule.h"
#include "timer_capsule.h"
#include "want_params.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {

namespace {

// The message of the rule that a value breaks, or nullptr when every rule holds.
using Failure = const char*;

// When an absent value breaks its rule, as the rule hint says it.
constexpr const char* REQUIRED = "required";
constexpr const char* REQUIRED_ON_START = "required on start";

// A rule with one message; `path` is the JSON path of the member that the rule is about.
struct RuleMessage {
    const char* path;
    const char* message;
};

// What a field rule reports: the value is malformed, or it is absent where it is required.
struct FieldMessages {
    const char* path;
    const char* invalid;
    const char* mandatory;
    const char* requirement = REQUIRED_ON_START;  // when an absent value fails
};

// What a picture rule reports; a picture is given as a resource string or as an image.
struct PictureMessages {
    const char* path;
    const char* length;     // the image is too large
    const char* type;       // the resource string is empty
    const char* mandatory;  // neither is given where one is required
    const char* requirement = REQUIRED_ON_START;
};

// What an icon list rule reports.
struct IconListMessages {
    const char* path;
    const char* count;        // a list has too few or too many entries, or a bad image
    const char* emptyString;  // a resource string of the list is empty
    const char* mandatory;    // neither list is given where one is required; null if never
    const char* requirement = REQUIRED_ON_START;
};

// Which form of a picture is tested first; the two orders decide which message wins when both
// forms are bad.
enum class PictureOrder { IMAGE_FIRST, STRING_FIRST };

// Where the info line of a record that is not of its kind says it comes from.
struct LogPlace {
    const char* function;
    unsigned int line;
};

// Lines named by the info log lines: fixed, so that the log does not change with this file.
constexpr unsigned int LINE_EXTENSION_ABSENT = 240;
constexpr unsigned int LINE_EXTERNAL_ABSENT = 280;
constexpr unsigned int LINE_CAPSULE_ABSENT = 320;
constexpr LogPlace CAPSULE_KIND_ABSENT{"CapsuleDataParamValidate", 350};
constexpr LogPlace LAYOUT_KIND_ABSENT{"LayoutDataParamValidate", 420};

constexpr size_t EVENT_MAX_LENGTH = 127;
constexpr uint64_t TEXT_LIMIT = 128;
constexpr uint64_t LONG_TEXT_LIMIT = 1024;
constexpr uint64_t IMMERSIVE_PIC_LIMIT = 256;
constexpr int32_t MAX_IMAGE_BYTES = 30720;
constexpr int MAX_IMMERSIVE_PARAMETERS = 50;
constexpr int MIN_KEEP_TIME = 0;
constexpr int MAX_KEEP_TIME = 3600;
constexpr size_t MIN_ICONS = 2;
constexpr size_t MAX_NODE_ICONS = 5;
constexpr size_t MAX_NAVIGATION_ICONS = 6;
constexpr uint32_t PROGRESS_BOUND = 101;
constexpr uint32_t EXTENSION_TYPE_BOUND = 5;
constexpr uint32_t STYLE_TYPE_BOUND = 3;  // line and indicator types
constexpr int CAPSULE_STATUS_CHECKED = 1;
constexpr int CAPSULE_STATUS_ACCEPTED = -1;
constexpr size_t ARGB_DIGITS = 8;
constexpr size_t RGB_DIGITS = 6;
constexpr int32_t COLOR_VALID = 0;

constexpr RuleMessage ID_MANDATORY{
    "id",
    "Parameter error. The type of liveView.id mustbe number [or the parameter is mandatory]."};
constexpr RuleMessage EVENT_LENGTH{
    "event",
    "Parameter error. The type of liveView.event mustbe string [or the parameter length exceeds "
    "the limit]."};
constexpr RuleMessage SEQUENCE_RANGE{
    "sequence",
    "Parameter error. The type of liveView.sequence mustbe number [or the parameter range is "
    "incorrect]."};
constexpr RuleMessage LIVE_VIEW_DATA_MANDATORY{
    "liveViewData",
    "Parameter error. The type of liveView.liveViewData mustbe LiveViewData [or the parameter is "
    "mandatory]."};
constexpr RuleMessage TIMER_TIME_RANGE{
    "timer.time", "Parameter error. The type of liveView.timer.time mustbe larger than or equal 0"};

constexpr RuleMessage PRIMARY_MANDATORY{
    "liveViewData.primary",
    "Parameter error. The type of liveViewData.primary mustbe PrimaryData [or the parameter is "
    "mandatory]."};
constexpr FieldMessages PRIMARY_TITLE{
    "liveViewData.primary.title",
    "Parameter error. The type of primary.title mustbe string [or the parameter length exceeds "
    "the limit].",
    "Parameter error. The type of primary.title mustbe string [or the parameter is mandatory]."};
constexpr FieldMessages PRIMARY_CONTENT{
    "liveViewData.primary.content",
    "Parameter error. The type of primary.content mustbe Array<RichText> [or the parameter length "
    "exceeds the limit].",
    "Parameter error. The type of primary.content mustbe Array<RichText> [or the parameter is "
    "mandatory]."};
constexpr RuleMessage PRIMARY_CLICK_ACTION_MANDATORY{
    "liveViewData.primary.clickAction",
    "Parameter error. The type of primary.clickAction mustbe WantAgent [or the parameter is "
    "mandatory]."};
constexpr FieldMessages PRIMARY_IMMERSIVE_PIC{
    "liveViewData.primary.immersivePic",
    "Parameter error. The type of primary.immersivePic mustbe string | image.PixelMap [or the "
    "parameter length exceeds the limit].",
    nullptr};
constexpr FieldMessages PRIMARY_IMMERSIVE_ABILITY_NAME{
    "liveViewData.primary.immersiveAbilityName",
    "Parameter error. The type of primary.immersiveAbilityName mustbe string [or the parameter "
    "length exceeds the limit].",
    nullptr};
constexpr RuleMessage PRIMARY_IMMERSIVE_PARAMETERS_COUNT{
    "liveViewData.primary.immersiveParameters",
    "Parameter error. The type of primary.immersiveParameters mustbe Record<string, string>. [or "
    "the parameter length exceeds the limit]."};
constexpr RuleMessage PRIMARY_IMMERSIVE_PARAMETERS_TYPE{
    "liveViewData.primary.immersiveParameters",
    "Parameter error. The type of primary.immersiveParameters mustbe Record<string, string>."};

constexpr const char* RICH_TEXT_LENGTH =
    "Parameter error. The type of richText.text mustbe string [or the parameter length exceeds "
    "the limit].";
constexpr const char* RICH_TEXT_TYPE = "Parameter error. The type of richText.text mustbe string.";
constexpr const char* RICH_TEXT_COLOR_INVALID =
    "Parameter error. The type of richText.textColor mustbe string [or the parameter length "
    "exceeds the limit].";
constexpr const char* RICH_TEXT_COLOR_RANGE =
    "Parameter error. The type of richText.textColor mustbe string [or the parameter range is "
    "incorrect].";

constexpr RuleMessage EXTENSION_TYPE{
    "liveViewData.primary.extensionData.type",
    "Parameter error. The type of extensionData.type mustbe ExtensionType."};
constexpr FieldMessages EXTENSION_TEXT{
    "liveViewData.primary.extensionData.text",
    "Parameter error. The type of extensionData.text mustbe string [or the parameter length "
    "exceeds the limit].",
    "Parameter error. The type of extensionData.text mustbe string [or the parameter is "
    "mandatory].",
    "required when type is 1 or 2"};
constexpr PictureMessages EXTENSION_PIC{
    "liveViewData.primary.extensionData.pic",
    "Parameter error. The type of extensionData.pic mustbe string | image.PixelMap [or the "
    "parameter length exceeds the limit].",
    "Parameter error. The type of extensionData.pic mustbe string | image.PixelMap.",
    "Parameter error. The type of extensionData.pic mustbe string | image.PixelMap [or the "
    "parameter is mandatory].",
    "required when type is 3 or 4"};

constexpr FieldMessages EXTERNAL_TITLE{
    "liveViewData.external.title",
    "Parameter error. The type of external.title mustbe string [or the parameter length exceeds "
    "the limit].",
    "Parameter error. The type of external.title mustbe string [or the parameter is mandatory]."};
constexpr FieldMessages EXTERNAL_CONTENT{
    "liveViewData.external.content",
    "Parameter error. The type of external.content mustbe Array<RichTxtt> [or the parameter "
    "length exceeds the limit].",
    "Parameter error. The type of external.content mustbe Array<RichText> [or the parameter is "
    "mandatory]."};
constexpr RuleMessage EXTERNAL_BACKGROUND_COLOR{
    "liveViewData.external.backgroundColor",
    "Parameter error. The type of external.backgroundColor mustbe string [or the parameter length "
    "exceeds the limit]."};

constexpr FieldMessages CAPSULE_STATUS{
    "liveViewData.capsule.status",
    "Parameter error. The type of capsule.status mustbe number [or the parameter range is "
    "incorrect].",
    "Parameter error. The type of capsule.status mustbe number [or the parameter is mandatory].",
    REQUIRED};
constexpr RuleMessage CAPSULE_TYPE{"liveViewData.capsule.type",
                                   "Parameter error. The type of capsule.type mustbe capsuleType."};
constexpr PictureMessages CAPSULE_ICON{
    "liveViewData.capsule.icon",
    "Parameter error. The type of capsule.icon mustbe string | image.PixelMap [or the parameter "
    "length exceeds the limit].",
    "Parameter error. The type of capsule.icon mustbe string | image.PixelMap.",
    "Parameter error. The type of capsule.icon mustbe string | image.PixelMap [or the parameter "
    "is mandatory]."};
constexpr FieldMessages CAPSULE_BACKGROUND_COLOR{
    "liveViewData.capsule.backgroundColor",
    "Parameter error. The type of capsule.backgroundColor mustbe string [or the parameter length "
    "exceeds the limit].",
    "Parameter error. The type of capsule.backgroundColor mustbe string [or the parameter is "
    "mandatory]."};
constexpr FieldMessages CAPSULE_TITLE{
    "liveViewData.capsule.title",
    "Parameter error. The type of capsule.title mustbe string [or the parameter length exceeds "
    "the limit].",
    "Parameter error. The type of capsule.title mustbe string [or the parameter is mandatory]."};
constexpr FieldMessages CAPSULE_CONTENT{
    "liveViewData.capsule.content",
    "Parameter error. The type of capsule.content mustbe string [or the parameter length exceeds "
    "the limit].",
    nullptr};
constexpr RuleMessage CAPSULE_MAX_RANGE{
    "liveViewData.capsule.max",
    "Parameter error. The type of capsule.max mustbe number [or the parameter range is "
    "incorrect]."};
constexpr RuleMessage CAPSULE_PROGRESS_RANGE{
    "liveViewData.capsule.progress",
    "Parameter error. The type of capsule.progress mustbe number [or the parameter range is "
    "incorrect]."};

constexpr RuleMessage LAYOUT_MANDATORY{
    "liveViewData.primary.layoutData",
    "Parameter error. The type of primary.layoutData mustbe LayoutData [or the parameter is "
    "mandatory]."};
constexpr RuleMessage LAYOUT_TYPE{
    "liveViewData.primary.layoutData.layoutType",
    "Parameter error. The type of layoutData.layoutType mustbe LayoutType."};

constexpr FieldMessages PROGRESS_VALUE{
    "liveViewData.primary.layoutData.progress",
    "Parameter error. The type of layoutData.progress mustbe number [or the parameter range is "
    "incorrect",
    "Parameter error. The type of layoutData.progress mustbe number [or the parameter is "
    "mandatory].",
    REQUIRED};
constexpr FieldMessages PROGRESS_COLOR{
    "liveViewData.primary.layoutData.color",
    "Parameter error. The type of layoutData.color mustbe string [or the parameter length exceeds "
    "the limit].",
    nullptr};
constexpr FieldMessages PROGRESS_BACKGROUND_COLOR{
    "liveViewData.primary.layoutData.backgroundColor",
    "Parameter error. The type of layoutData.backgroundColor mustbe string [or the parameter "
    "length exceeds the limit].",
    nullptr};
constexpr RuleMessage PROGRESS_LINE_TYPE{
    "liveViewData.primary.layoutData.lineType",
    "Parameter error. The type of layoutData.lineType mustbe LineType"};
constexpr RuleMessage PROGRESS_INDICATOR_TYPE{
    "liveViewData.primary.layoutData.indicatorType",
    "Parameter error. The type of layoutData.indicatorTypetype mustbe IndicatorType"};
constexpr PictureMessages PROGRESS_INDICATOR_ICON{
    "liveViewData.primary.layoutData.indicatorIcon",
    "Parameter error. The type of layoutData.indicatorIcon mustbe string [or the parameter length "
    "exceeds the limit].",
    "Parameter error. The type of layoutData.indicatorIcon mustbe string | image.PixelMap.",
    "Parameter error. The type of layoutData.indicatorIcon mustbe string | image.PixelMap [or the "
    "parameter is mandatory].",
    "required on start when indicatorType is 1 or 2"};
constexpr IconListMessages PROGRESS_NODE_ICONS{
    "liveViewData.primary.layoutData.nodeIcons",
    "Parameter error. The type of layoutData.nodeIcons mustbe Array<string | image.PixelMap> [or "
    "the parameter length exceeds the limit].",
    "Parameter error. The type of layoutData.nodeIcons mustbe Array<string | image.PixelMap>",
    "Parameter error. The type of layoutData.nodeIcons mustbe Array<string | image.PixelMap> [or "
    "the parameter is mandatory]."};

constexpr FieldMessages PICKUP_TITLE{
    "liveViewData.primary.layoutData.title",
    "Parameter error. The type of layoutData.title mustbe string [or the parameter length exceeds "
    "the limit].",
    "Parameter error. The type of layoutData.title mustbe string [or the parameter is mandatory]."};
constexpr FieldMessages PICKUP_CONTENT{
    "liveViewData.primary.layoutData.content",
    "Parameter error. The type of layoutData.content mustbe string [or the parameter length "
    "exceeds the limit].",
    "Parameter error. The type of layoutData.content mustbe string [or the parameter is "
    "mandatory]."};
constexpr FieldMessages PICKUP_UNDERLINE_COLOR{
    "liveViewData.primary.layoutData.underlineColor",
    "Parameter error. The type of layoutData.underlineColor mustbe string [or the parameter length "
    "exceeds the limit].",
    nullptr};
constexpr PictureMessages PICKUP_DESC_PIC{
    "liveViewData.primary.layoutData.descPic",
    "Parameter error. The type of layoutData.descPic mustbe string [or the parameter length "
    "exceeds the limit].",
    "Parameter error. The type of layoutData.descPic mustbe string | image.PixelMap.",
    "Parameter error. The type of layoutData.descPic mustbe string | image.PixelMap [or the "
    "parameter is mandatory]."};

constexpr FieldMessages FLIGHT_FIRST_TITLE{
    "liveViewData.primary.layoutData.firstTitle",
    "Parameter error. The type of layoutData.firstTitle mustbe string [or the parameter length "
    "exceeds the limit].",
    "Parameter error. The type of layoutData.firstTitle mustbe string [or the parameter is "
    "mandatory]."};
constexpr FieldMessages FLIGHT_FIRST_CONTENT{
    "liveViewData.primary.layoutData.firstContent",
    "Parameter error. The type of layoutData.firstContent mustbe string [or the parameter length "
    "exceeds the limit].",
    "Parameter error. The type of layoutData.firstContent mustbe string [or the parameter is "
    "mandatory]."};
constexpr FieldMessages FLIGHT_LAST_TITLE{
    "liveViewData.primary.layoutData.lastTitle",
    "Parameter error. The type of layoutData.lastTitle mustbe string [or the parameter length "
    "exceeds the limit].",
    "Parameter error. The type of layoutData.lastTitle mustbe string [or the parameter is "
    "mandatory]."};
constexpr FieldMessages FLIGHT_LAST_CONTENT{
    "liveViewData.primary.layoutData.lastContent",
    "Parameter error. The type of layoutData.lastContent mustbe string [or the parameter length "
    "exceeds the limit].",
    "Parameter error. The type of layoutData.lastContent mustbe string [or the parameter is "
    "mandatory]."};
constexpr PictureMessages FLIGHT_SPACE_ICON{
    "liveViewData.primary.layoutData.spaceIcon",
    "Parameter error. The type of layoutData.spaceIcon mustbe string [or the parameter length "
    "exceeds the limit].",
    "Parameter error. The type of layoutData.spaceIcon mustbe string | image.PixelMap.",
    "Parameter error. The type of layoutData.spaceIcon mustbe string | image.PixelMap [or the "
    "parameter is mandatory]."};
constexpr FieldMessages FLIGHT_ADDITIONAL_TEXT{
    "liveViewData.primary.layoutData.additionalText",
    "Parameter error. The type of layoutData.additionalText mustbe string [or the parameter length "
    "exceeds the limit].",
    nullptr};

constexpr FieldMessages SCORE_HOST_NAME{
    "liveViewData.primary.layoutData.hostName",
    "Parameter error. The type of layoutData.hostName mustbe string [or the parameter length "
    "exceeds the limit].",
    "Parameter error. The type of layoutData.hostName mustbe string [or the parameter is "
    "mandatory]."};
constexpr PictureMessages SCORE_HOST_ICON{
    "liveViewData.primary.layoutData.hostIcon",
    "Parameter error. The type of layoutData.hostIcon mustbe string | image.PixelMap [or the "
    "parameter length exceeds the limit].",
    "Parameter error. The type of layoutData.hostIcon mustbe string | image.PixelMap.",
    "Parameter error. The type of layoutData.hostIcon mustbe string | image.PixelMap [or the "
    "parameter is mandatory]."};
constexpr FieldMessages SCORE_HOST_SCORE{
    "liveViewData.primary.layoutData.hostScore",
    "Parameter error. The type of layoutData.hostScore mustbe string [or the parameter length "
    "exceeds the limit].",
    "Parameter error. The type of layoutData.hostScore mustbe string [or the parameter is "
    "mandatory]."};
constexpr FieldMessages SCORE_GUEST_NAME{
    "liveViewData.primary.layoutData.guestName",
    "Parameter error. The type of layoutData.guestName mustbe string [or the parameter length "
    "exceeds the limit].",
    "Parameter error. The type of layoutData.guestName mustbe string [or the parameter is "
    "mandatory]."};
constexpr PictureMessages SCORE_GUEST_ICON{
    "liveViewData.primary.layoutData.guestIcon",
    "Parameter error. The type of layoutData.guestIcon mustbe string | image.PixelMap [or the "
    "parameter length exceeds the limit].",
    "Parameter error. The type of layoutData.guestIcon mustbe string | image.PixelMap.",
    "Parameter error. The type of layoutData.guestIcon mustbe string | image.PixelMap [or the "
    "parameter is mandatory]."};
constexpr FieldMessages SCORE_GUEST_SCORE{
    "liveViewData.primary.layoutData.guestScore",
    "Parameter error. The type of layoutData.guestScore mustbe string [or the parameter length "
    "exceeds the limit].",
    "Parameter error. The type of layoutData.guestScore mustbe string [or the parameter is "
    "mandatory]."};
constexpr FieldMessages SCORE_COMPETITION_DESC_TEXT{
    "liveViewData.primary.layoutData.competitionDesc",
    "Parameter error. The type of layoutData.competitionDesc mustbe string [or the parameter "
    "length exceeds the limit].",
    nullptr};
constexpr FieldMessages SCORE_COMPETITION_DESC{
    "liveViewData.primary.layoutData.competitionDescVector",
    "Parameter error. The type of layoutData.competitionDesc mustbe string | Array<RichText> [or "
    "the parameter length exceeds the limit].",
    "Parameter error. The type of layoutData.competitionDesc mustbe string | Array<RichText> [or "
    "the parameter is mandatory].",
    "required on start unless competitionDesc is given"};
constexpr FieldMessages SCORE_COMPETITION_TIME{
    "liveViewData.primary.layoutData.competitionTime",
    "Parameter error. The type of layoutData.competitionTime mustbe string [or the parameter "
    "length exceeds the limit].",
    "Parameter error. The type of layoutData.competitionTime mustbe string [or the parameter is "
    "mandatory]."};

constexpr PictureMessages NAVIGATION_CURRENT_ICON{
    "liveViewData.primary.layoutData.currentNavigationIcon",
    "Parameter error. The type of layoutData.currentNavigationIcon mustbe string | image.PixelMap "
    "[or the parameter length exceeds the limit].",
    "Parameter error. The type of layoutData.currentNavigationIconStr mustbe string | "
    "image.PixelMap.",
    "Parameter error. The type of layoutData.currentNavigationIcon mustbe string | image.PixelMap "
    "[or the parameter is mandatory]."};
constexpr IconListMessages NAVIGATION_ICONS{
    "liveViewData.primary.layoutData.navigationIcons",
    "Parameter error. The type of layoutData.navigationIcons mustbe Array<string | image.PixelMap> "
    "[or the parameter length exceeds the limit].",
    "Parameter error. The type of layoutData.navigationIcons mustbe Array<string | "
    "image.PixelMap>",
    nullptr};

BaseRsp Fail(Failure message) {
    return BaseRsp(ERR_PARAM_INVALID, "%s", message);
}

BaseRsp ToRsp(Failure failure) {
    return failure == nullptr ? BaseRsp() : Fail(failure);
}

// ---- rule hints: built only on a failure, and only while a hint scope is alive

// Answers `message` once the broken rule is described as "<path>: <makeText()>".
template <typename MakeText>
Failure Broken(Failure message, const char* path, MakeText&& makeText) {
    RecordRuleHint([&] { return RuleHint{path, makeText()}; });
    return message;
}

template <typename MakeText>
Failure Broken(const RuleMessage& rule, MakeText&& makeText) {
    return Broken(rule.message, rule.path, std::forward<MakeText>(makeText));
}

// The mandatory failure of a field or picture whose value is absent.
template <typename Messages>
Failure Missing(const Messages& messages) {
    return Broken(messages.mandatory, messages.path,
                  [&] { return std::string("missing; ") + messages.requirement; });
}

Failure Missing(const RuleMessage& rule, const char* requirement) {
    return Broken(rule, [&] { return std::string("missing; ") + requirement; });
}

// A number against its valid range, e.g. "101; 0 to 100".
Failure OutOfRange(Failure message, const char* path, int64_t value, const char* range) {
    return Broken(message, path, [&] { return FormatNumber(value) + "; " + range; });
}

Failure OutOfRange(const RuleMessage& rule, int64_t value, const char* range) {
    return OutOfRange(rule.message, rule.path, value, range);
}

std::string LengthRule(uint64_t maxBytes) {
    return "at most " + FormatNumber(static_cast<int64_t>(maxBytes)) + " bytes, not blank";
}

// The value found by the length rule: blank (quoted), or its size.
std::string LengthFound(const std::string& value, size_t size, const char* unit) {
    return CommonUtils::IsBlank(value) ? QuoteText(value) + " is blank"
                                       : FormatNumber(static_cast<int64_t>(size)) + unit;
}

std::string ImageBytesText(const Media::PixelMap& image) {
    return FormatNumber(image.GetByteCount()) + " bytes; at most " + FormatNumber(MAX_IMAGE_BYTES) +
           " bytes";
}

std::string NotColorText(const std::string& color, const char* form) {
    return QuoteText(color) + " is not " + form;
}

// "1 picture", "3 pictures": a count and its noun, with an "s" unless the count is 1.
std::string Counted(size_t count, const char* noun) {
    return FormatNumber(static_cast<int64_t>(count)) + " " + noun + (count == 1 ? "" : "s");
}

std::string ItemPath(const char* listPath, size_t index, const char* member) {
    return std::string(listPath) + "[" + std::to_string(index) + "]." + member;
}

// ---- rules

// Fails with the record's param-failed text verbatim when it is not empty; such a failure has
// no hint, its text already names the member.
BaseRsp CheckParamFailed(const LiveViewBase& record) {
    const std::string paramFailed = record.GetParamFailed();
    return paramFailed.empty() ? BaseRsp() : BaseRsp(ERR_PARAM_INVALID, paramFailed);
}

// Enumerations whose valid values are 0 .. bound - 1 compare unsigned, so negatives fail.
bool IsBelowUnsigned(int value, uint32_t bound) {
    return static_cast<uint32_t>(value) < bound;
}

// The length rule: not blank, and the untrimmed value shorter than limit bytes.
bool IsWithinLimit(const std::string& value, const uint64_t& limit) {
    return !CommonUtils::IsBlank(value) && value.size() < limit;
}

// How a value breaks the length rule of `limit`.
std::string LengthText(const std::string& value, const uint64_t& limit) {
    return LengthFound(value, value.size(), " bytes") + "; " + LengthRule(limit - 1);
}

// A present text obeys the length rule; an absent one fails only when required.
Failure CheckText(const std::shared_ptr<std::string>& text, const uint64_t& limit, bool required,
                  const FieldMessages& messages) {
    if (text == nullptr) {
        return required ? Missing(messages) : nullptr;
    }
    if (IsWithinLimit(*text, limit)) {
        return nullptr;
    }
    return Broken(messages.invalid, messages.path, [&] { return LengthText(*text, limit); });
}

// "#" then exactly `digits` hexadecimal digits of either case, nothing before or after: what the
// patterns ^#([A-Fa-f0-9]{8})$ and ^#([A-Fa-f0-9]{6})$ accept, matched by hand in one pass of
// bounded length (a compiled pattern costs ten times as much per colour).
bool IsHashAndHexDigits(const std::string& color, size_t digits) {
    if (color.size() != digits + 1 || color[0] != '#') {
        return false;
    }
    return std::all_of(color.begin() + 1, color.end(),
                       [](char c) { return CommonUtils::HexDigitValue(c) >= 0; });
}

// 0 for "#" and eight hexadecimal ARGB digits, nothing else around them; 401 otherwise.
int32_t CheckArgbHexColor(const std::string& color) {
    return IsHashAndHexDigits(color, ARGB_DIGITS) ? COLOR_VALID : ERR_PARAM_INVALID;
}

// "#" and six hexadecimal RGB digits: the external background only.
bool IsRgbHexColor(const std::string& color) {
    return IsHashAndHexDigits(color, RGB_DIGITS);
}

// A present colour is ARGB; an absent one fails only when required.
Failure CheckColor(const std::shared_ptr<std::string>& color, bool required,
                   const FieldMessages& messages) {
    if (color == nullptr) {
        return required ? Missing(messages) : nullptr;
    }
    if (CheckArgbHexColor(*color) == COLOR_VALID) {
        return nullptr;
    }
    return Broken(messages.invalid, messages.path,
                  [&] { return NotColorText(*color, "#AARRGGBB"); });
}

bool ExceedsImageLimit(const std::shared_ptr<Media::PixelMap>& image) {
    return image != nullptr && image->GetByteCount() > MAX_IMAGE_BYTES;
}

bool IsPictureMissing(const std::shared_ptr<std::string>& text,
                      const std::shared_ptr<Media::PixelMap>& image) {
    return text == nullptr && image == nullptr;
}

// The form rules of a picture: the image within the byte limit, the resource string not empty
// (neither trimmed nor bounded).
Failure CheckPictureForm(const std::shared_ptr<std::string>& text,
                         const std::shared_ptr<Media::PixelMap>& image, PictureOrder order,
                         const PictureMessages& messages) {
    const bool isEmptyText = text != nullptr && text->empty();
    const auto emptyText = [&messages] {
        return Broken(messages.type, messages.path, [] {
            return std::string("\"\" is empty; a resource name that is not empty");
        });
    };
    if (order == PictureOrder::STRING_FIRST && isEmptyText) {
        return emptyText();
    }
    if (ExceedsImageLimit(image)) {
        return Broken(messages.length, messages.path, [&] { return ImageBytesText(*image); });
    }
    return isEmptyText ? emptyText() : nullptr;
}

// The form rules, then one of the two forms must be given when required.
Failure CheckPicture(const std::shared_ptr<std::string>& text,
                     const std::shared_ptr<Media::PixelMap>& image, PictureOrder order,
                     bool required, const PictureMessages& messages) {
    if (Failure failure = CheckPictureForm(text, image, order, messages)) {
        return failure;
    }
    return required && IsPictureMissing(text, image) ? Missing(messages) : nullptr;
}

bool IsIconCountValid(size_t count, size_t maxCount) {
    return count >= MIN_ICONS && count <= maxCount;
}

// The count rule of one form of an icon list, e.g. "6 items; 2 to 5" when the list holds one
// form only, "1 picture beside 3 resource strings; 2 to 5 of each form" otherwise.
Failure BadIconCount(const IconListMessages& messages, size_t count, const char* form,
                     size_t otherCount, const char* otherForm, size_t maxCount) {
    return Broken(messages.count, messages.path, [&] {
        const std::string range = std::to_string(MIN_ICONS) + " to " + std::to_string(maxCount);
        if (otherCount == 0) {
            return Counted(count, "item") + "; " + range;
        }
        return Counted(count, form) + " beside " + Counted(otherCount, otherForm) + "; " + range +
               " of each form";
    });
}

// An entry of one form of an icon list, numbered from 1 within its form, then makeRule()'s
// "<what is wrong>; <rule>".
template <typename MakeRule>
Failure BadIconEntry(Failure message, const IconListMessages& messages, const char* form,
                     std::ptrdiff_t index, size_t count, MakeRule&& makeRule) {
    return Broken(message, messages.path, [&] {
        return std::string(form) + " " + std::to_string(index + 1) + " of " +
               std::to_string(count) + makeRule();
    });
}

// An icon list that is given at all holds MIN_ICONS to maxCount entries, strings not empty and
// images present within the byte limit. Strings are checked before images.
Failure CheckIconLists(const std::vector<std::string>& texts,
                       const std::vector<std::shared_ptr<Media::PixelMap>>& images, size_t maxCount,
                       const IconListMessages& messages) {
    if (!texts.empty()) {
        if (!IsIconCountValid(texts.size(), maxCount)) {
            return BadIconCount(messages, texts.size(), "resource string", images.size(), "picture",
                                maxCount);
        }
        const auto emptyText = std::find_if(texts.begin(), texts.end(),
                                            [](const std::string& text) { return text.empty(); });
        if (emptyText != texts.end()) {
            return BadIconEntry(
                messages.emptyString, messages, "resource string", emptyText - texts.begin(),
                texts.size(), [] { return std::string(" is empty; no resource string is empty"); });
        }
    }
    if (!images.empty()) {
        if (!IsIconCountValid(images.size(), maxCount)) {
            return BadIconCount(messages, images.size(), "picture", texts.size(), "resource string",
                                maxCount);
        }
        const auto badImage = std::find_if(images.begin(), images.end(),
                                           [](const std::shared_ptr<Media::PixelMap>& image) {
                                               return image == nullptr || ExceedsImageLimit(image);
                                           });
        if (badImage != images.end()) {
            return BadIconEntry(
                messages.count, messages, "picture", badImage - images.begin(), images.size(), [&] {
                    return *badImage == nullptr ? std::string(" is missing; every picture is given")
                                                : " has " + ImageBytesText(**badImage);
                });
        }
    }
    return nullptr;
}

// Every item and the sum of all items obey the limit; null items are skipped; all items that
// carry a colour carry the same one, byte for byte. `listPath` is the list's JSON path.
BaseRsp CheckRichText(const std::vector<std::shared_ptr<RichText>>& richTexts,
                      const uint64_t& limit, const char* listPath) {
    if (richTexts.empty()) {
        return Fail(
            Broken(RICH_TEXT_LENGTH, listPath, [] { return std::string("no items; at least 1"); }));
    }
    uint64_t totalLength = 0;
    std::string sharedColor;
    for (size_t index = 0; index < richTexts.size(); ++index) {
        const auto& richText = richTexts[index];
        if (richText == nullptr) {
            continue;
        }
        const auto text = richText->GetText();
        if (text == nullptr) {
            RecordRuleHint([&] {
                return RuleHint{ItemPath(listPath, index, "text"),
                                "missing; every item has a text"};
            });
            return Fail(RICH_TEXT_TYPE);
        }
        if (!IsWithinLimit(*text, limit)) {
            RecordRuleHint([&] {
                return RuleHint{ItemPath(listPath, index, "text"), LengthText(*text, limit)};
            });
            return Fail(RICH_TEXT_LENGTH);
        }
        totalLength += text->size();
        const auto color = richText->GetTextColor();
        if (color == nullptr) {
            continue;
        }
        // The shared colour already passed the pattern: the same text needs no second match.
        if (!sharedColor.empty() && *color == sharedColor) {
            continue;
        }
        if (CheckArgbHexColor(*color) != COLOR_VALID) {
            RecordRuleHint([&] {
                return RuleHint{ItemPath(listPath, index, "textColor"),
                                NotColorText(*color, "#AARRGGBB")};
            });
            return Fail(RICH_TEXT_COLOR_INVALID);
        }
        if (sharedColor.empty()) {
            sharedColor = *color;
        }
        if (*color != sharedColor) {
            RecordRuleHint([&] {
                return RuleHint{ItemPath(listPath, index, "textColor"),
                                QuoteText(*color) + " differs from " + QuoteText(sharedColor) +
                                    "; every coloured item of one list has the same colour"};
            });
            return Fail(RICH_TEXT_COLOR_RANGE);
        }
    }
    if (totalLength < 1 || totalLength >= limit) {
        return Fail(Broken(RICH_TEXT_LENGTH, listPath, [&] {
            return FormatNumber(static_cast<int64_t>(totalLength)) + " bytes in all; 1 to " +
                   FormatNumber(static_cast<int64_t>(limit - 1)) + " bytes in all";
        }));
    }
    return BaseRsp();
}

// A non-empty list passes CheckRichText, whose own message gives way to the field's (its hint
// stays: it names the item at fault); an empty one fails only when required.
Failure CheckRichTextField(const std::vector<std::shared_ptr<RichText>>& richTexts,
                           const uint64_t& limit, bool required, const FieldMessages& messages) {
    if (richTexts.empty()) {
        return required ? Missing(messages) : nullptr;
    }
    return CheckRichText(richTexts, limit, messages.path).Succeed() ? nullptr : messages.invalid;
}

// Takes the record as its kind and applies the kind's rules; a record that is not of that kind
// is accepted with an info line.
template <typename Kind>
BaseRsp CheckKind(const std::shared_ptr<Kind>& record, const char* kindName, const LogPlace& place,
                  Failure (*rules)(const Kind&, bool), bool isStart) {
    if (record == nullptr) {
        LV_LOGI_FN(place.line, place.function, "The %{public}s is nullptr", kindName);
        return BaseRsp();
    }
    return ToRsp(rules(*record, isStart));
}

void ClampKeepTime(PrimaryData& primary) {
    const auto keepTime = primary.GetKeepTime();
    if (keepTime == nullptr) {
        return;
    }
    const int clamped = std::clamp(*keepTime, MIN_KEEP_TIME, MAX_KEEP_TIME);
    if (clamped != *keepTime) {
        primary.SetKeepTime(std::make_shared<int>(clamped));
    }
}

// What a parameter value that is not a string is, for the hint.
const char* ValueKindName(int type) {
    switch (type) {
        case AAFwk::WantParams::VALUE_TYPE_BOOLEAN:
            return "a boolean";
        case AAFwk::WantParams::VALUE_TYPE_INT:
        case AAFwk::WantParams::VALUE_TYPE_LONG:
        case AAFwk::WantParams::VALUE_TYPE_DOUBLE:
            return "a number";
        case AAFwk::WantParams::VALUE_TYPE_WANTPARAMS:
            return "an object";
        case AAFwk::WantParams::VALUE_TYPE_ARRAY:
            return "an array";
        case AAFwk::WantParams::VALUE_TYPE_NULL:
            return "null";
        default:
            return "not a string";
    }
}

// The immersive fields, checked only once the rest of the primary data passed.
Failure CheckImmersive(const PrimaryData& primary, bool isStart) {
    if (Failure failure = CheckText(primary.GetImmersivePicStr(), IMMERSIVE_PIC_LIMIT, false,
                                    PRIMARY_IMMERSIVE_PIC)) {
        return failure;
    }
    if (isStart) {
        if (Failure failure = CheckText(primary.GetImmersiveAbilityName(), TEXT_LIMIT, false,
                                        PRIMARY_IMMERSIVE_ABILITY_NAME)) {
            return failure;
        }
    }
    const auto parameters = primary.GetImmersiveParameters();
    if (parameters == nullptr) {
        return nullptr;
    }
    const int count = parameters->Size();
    if (count < 1 || count > MAX_IMMERSIVE_PARAMETERS) {
        return Broken(PRIMARY_IMMERSIVE_PARAMETERS_COUNT, [&] {
            return Counted(count, "parameter") + "; 1 to " + FormatNumber(MAX_IMMERSIVE_PARAMETERS);
        });
    }
    for (const auto& entry : parameters->GetParams()) {
        const int type = AAFwk::WantParams::GetDataType(entry.second);
        if (type != AAFwk::WantParams::VALUE_TYPE_STRING) {
            RecordRuleHint([&] {
                return RuleHint{
                    std::string(PRIMARY_IMMERSIVE_PARAMETERS_TYPE.path) + "." + entry.first,
                    std::string(ValueKindName(type)) + "; every value is a string"};
            });
            return PRIMARY_IMMERSIVE_PARAMETERS_TYPE.message;
        }
    }
    return nullptr;
}

// Type, icon and background colour: what every capsule with status 1 must satisfy.
Failure CheckCapsuleCommon(const CapsuleData& capsule, bool isStart) {
    switch (capsule.GetType()) {
        case CapsuleData::TEXT:
        case CapsuleData::TIMER:
        case CapsuleData::PROGRESS:
            break;
        default:
            return OutOfRange(CAPSULE_TYPE, capsule.GetType(), "1, 2 or 3");
    }
    if (Failure failure = CheckPicture(capsule.GetIconStr(), capsule.GetIcon(),
                                       PictureOrder::IMAGE_FIRST, isStart, CAPSULE_ICON)) {
        return failure;
    }
    return CheckColor(capsule.GetBackgroundColor(), isStart, CAPSULE_BACKGROUND_COLOR);
}

Failure CheckTextCapsule(const TextCapsule& capsule, bool isStart) {
    if (Failure failure = CheckText(capsule.GetTitle(), TEXT_LIMIT, isStart, CAPSULE_TITLE)) {
        return failure;
    }
    return CheckText(capsule.GetContent(), TEXT_LIMIT, false, CAPSULE_CONTENT);
}

Failure CheckTimerCapsule(const TimerCapsule& capsule, bool /* isStart */) {
    return CheckText(capsule.GetContent(), TEXT_LIMIT, false, CAPSULE_CONTENT);
}

// Progress is not compared with max.
Failure CheckProgressCapsule(const ProgressCapsule& capsule, bool /* isStart */) {
    const auto max = capsule.GetMax();
    if (max != nullptr && *max < 1) {
        return OutOfRange(CAPSULE_MAX_RANGE, *max, "1 or more");
    }
    const auto progress = capsule.GetProgress();
    if (progress != nullptr && *progress < 0) {
        return OutOfRange(CAPSULE_PROGRESS_RANGE, *progress, "0 or more");
    }
    return nullptr;
}

// The progress is mandatory for every operation.
Failure CheckProgressLayout(const ProgressLayout& layout, bool isStart) {
    const auto progress = layout.GetProgress();
    if (progress == nullptr) {
        return Missing(PROGRESS_VALUE);
    }
    if (!IsBelowUnsigned(*progress, PROGRESS_BOUND)) {
        return OutOfRange(PROGRESS_VALUE.invalid, PROGRESS_VALUE.path, *progress, "0 to 100");
    }
    if (Failure failure = CheckColor(layout.GetColor(), false, PROGRESS_COLOR)) {
        return failure;
    }
    if (Failure failure =
            CheckColor(layout.GetBackgroundColor(), false, PROGRESS_BACKGROUND_COLOR)) {
        return failure;
    }
    const auto lineType = layout.GetLineType();
    if (lineType != nullptr && !IsBelowUnsigned(*lineType, STYLE_TYPE_BOUND)) {
        return OutOfRange(PROGRESS_LINE_TYPE, *lineType, "0 to 2");
    }
    const auto indicatorType = layout.GetIndicatorType();
    if (indicatorType != nullptr && !IsBelowUnsigned(*indicatorType, STYLE_TYPE_BOUND)) {
        return OutOfRange(PROGRESS_INDICATOR_TYPE, *indicatorType, "0 to 2");
    }
    const bool needsIndicatorIcon = isStart && indicatorType != nullptr &&
                                    (*indicatorType == ProgressLayout::INDICATOR_TYPE_ICON_1 ||
                                     *indicatorType == ProgressLayout::INDICATOR_TYPE_ICON_2);
    if (Failure failure =
            CheckPicture(layout.GetIndicatorIconStr(), layout.GetIndicatorIcon(),
                         PictureOrder::STRING_FIRST, needsIndicatorIcon, PROGRESS_INDICATOR_ICON)) {
        return failure;
    }
    const auto nodeIconsStr = layout.GetNodeIconsStr();
    const auto nodeIcons = layout.GetNodeIcons();
    if (isStart && nodeIconsStr.empty() && nodeIcons.empty()) {
        return Missing(PROGRESS_NODE_ICONS);
    }
    return CheckIconLists(nodeIconsStr, nodeIcons, MAX_NODE_ICONS, PROGRESS_NODE_ICONS);
}

Failure CheckPickupLayout(const PickupLayout& layout, bool isStart) {
    if (Failure failure = CheckText(layout.GetTitle(), TEXT_LIMIT, isStart, PICKUP_TITLE)) {
        return failure;
    }
    if (Failure failure = CheckText(layout.GetContent(), TEXT_LIMIT, isStart, PICKUP_CONTENT)) {
        return failure;
    }
    if (Failure failure = CheckColor(layout.GetUnderlineColor(), false, PICKUP_UNDERLINE_COLOR)) {
        return failure;
    }
    return CheckPicture(layout.GetDescPicStr(), layout.GetDescPic(), PictureOrder::IMAGE_FIRST,
                        isStart, PICKUP_DESC_PIC);
}

// The space icon's mandatory rule comes after the additional text.
Failure CheckFlightLayout(const FlightLayout& layout, bool isStart) {
    if (Failure failure =
            CheckText(layout.GetFirstTitle(), TEXT_LIMIT, isStart, FLIGHT_FIRST_TITLE)) {
        return failure;
    }
    if (Failure failure =
            CheckText(layout.GetFirstContent(), TEXT_LIMIT, isStart, FLIGHT_FIRST_CONTENT)) {
        return failure;
    }
    if (Failure failure =
            CheckText(layout.GetLastTitle(), TEXT_LIMIT, isStart, FLIGHT_LAST_TITLE)) {
        return failure;
    }
    if (Failure failure =
            CheckText(layout.GetLastContent(), TEXT_LIMIT, isStart, FLIGHT_LAST_CONTENT)) {
        return failure;
    }
    const auto spaceIconStr = layout.GetSpaceIconStr();
    const auto spaceIcon = layout.GetSpaceIcon();
    if (Failure failure = CheckPictureForm(spaceIconStr, spaceIcon, PictureOrder::IMAGE_FIRST,
                                           FLIGHT_SPACE_ICON)) {
        return failure;
    }
    if (Failure failure =
            CheckText(layout.GetAdditionalText(), LONG_TEXT_LIMIT, false, FLIGHT_ADDITIONAL_TEXT)) {
        return failure;
    }
    return isStart && IsPictureMissing(spaceIconStr, spaceIcon) ? Missing(FLIGHT_SPACE_ICON)
                                                                : nullptr;
}

// On start the competition description is given as a text or as a non-empty rich-text list.
Failure CheckScoreLayout(const ScoreLayout& layout, bool isStart) {
    if (Failure failure = CheckText(layout.GetHostName(), TEXT_LIMIT, isStart, SCORE_HOST_NAME)) {
        return failure;
    }
    if (Failure failure = CheckPicture(layout.GetHostIconStr(), layout.GetHostIcon(),
                                       PictureOrder::IMAGE_FIRST, isStart, SCORE_HOST_ICON)) {
        return failure;
    }
    if (Failure failure = CheckText(layout.GetHostScore(), TEXT_LIMIT, isStart, SCORE_HOST_SCORE)) {
        return failure;
    }
    if (Failure failure = CheckText(layout.GetGuestName(), TEXT_LIMIT, isStart, SCORE_GUEST_NAME)) {
        return failure;
    }
    if (Failure failure = CheckPicture(layout.GetGuestIconStr(), layout.GetGuestIcon(),
                                       PictureOrder::IMAGE_FIRST, isStart, SCORE_GUEST_ICON)) {
        return failure;
    }
    if (Failure failure =
            CheckText(layout.GetGuestScore(), TEXT_LIMIT, isStart, SCORE_GUEST_SCORE)) {
        return failure;
    }
    const auto competitionDesc = layout.GetCompetitionDesc();
    if (Failure failure =
            CheckText(competitionDesc, TEXT_LIMIT, false, SCORE_COMPETITION_DESC_TEXT)) {
        return failure;
    }
    const bool isDescTextMissing = isStart && competitionDesc == nullptr;
    if (Failure failure = CheckRichTextField(layout.GetCompetitionDescVector(), TEXT_LIMIT,
                                             isDescTextMissing, SCORE_COMPETITION_DESC)) {
        return failure;
    }
    return CheckText(layout.GetCompetitionTime(), TEXT_LIMIT, isStart, SCORE_COMPETITION_TIME);
}

// Navigation icon lists are never mandatory.
Failure CheckNavigationLayout(const NavigationLayout& layout, bool isStart) {
    if (Failure failure =
            CheckPicture(layout.GetCurrentNavigationIconStr(), layout.GetCurrentNavigationIcon(),
                         PictureOrder::STRING_FIRST, isStart, NAVIGATION_CURRENT_ICON)) {
        return failure;
    }
    return CheckIconLists(layout.GetNavigationIconsStr(), layout.GetNavigationIcons(),
                          MAX_NAVIGATION_ICONS, NAVIGATION_ICONS);
}

// The optional sections in the order in which both entry points try them.
using SectionCheck = BaseRsp (*)(const LiveView&, const LiveView::Operation&, bool&);

BaseRsp CheckExtensionSection(const LiveView& liveView, const LiveView::Operation& /* operation */,
                              bool& isPresent) {
    return LiveViewParamValidate::ExtendDataParamValidate(liveView, isPresent);
}

constexpr SectionCheck OPTIONAL_SECTIONS[] = {
    CheckExtensionSection,
    LiveViewParamValidate::LayoutDataParamValidate,
    LiveViewParamValidate::CapsuleDataParamValidate,
    LiveViewParamValidate::ExternalDataParamValidate,
};

}  // namespace

BaseRsp LiveViewParamValidate::ValidateStartLiveViewParam(const LiveView& liveView,
                                                          const LiveView::Operation& operation) {
    BaseRsp rsp = CommonDataParamValidate(liveView);
    if (!rsp.Succeed()) {
        return rsp;
    }
    rsp = PrimaryDataParamValidate(liveView, operation);
    if (!rsp.Succeed()) {
        return rsp;
    }
    bool isPresent = false;
    for (SectionCheck check : OPTIONAL_SECTIONS) {
        rsp = check(liveView, operation, isPresent);
        if (!rsp.Succeed()) {
            return rsp;
        }
    }
    return BaseRsp();
}

BaseRsp LiveViewParamValidate::ValidateUpdateLiveViewParam(const LiveView& liveView,
                                                           const LiveView::Operation& operation) {
    BaseRsp rsp = CommonDataParamValidate(liveView);
    if (!rsp.Succeed()) {
        return rsp;
    }
    BaseRsp result = PrimaryDataParamValidate(liveView, operation);
    if (result.Succeed()) {
        return result;
    }
    // The answer is the last failure, or a success: the hint follows it.
    RuleHint* const sink = RuleHintScope::Active();
    for (SectionCheck check : OPTIONAL_SECTIONS) {
        bool isPresent = false;
        RuleHint sectionHint;
        std::optional<RuleHintScope> scope;
        if (sink != nullptr) {
            scope.emplace(sectionHint);
        }
        rsp = check(liveView, operation, isPresent);
        if (!rsp.Succeed()) {
            result = rsp;
            if (sink != nullptr) {
                *sink = std::move(sectionHint);
            }
        } else if (isPresent) {
            if (sink != nullptr) {
                *sink = RuleHint();
            }
            return rsp;
        }
    }
    return result;
}

BaseRsp LiveViewParamValidate::CommonDataParamValidate(const LiveView& liveView) {
    BaseRsp rsp = CheckParamFailed(liveView);
    if (!rsp.Succeed()) {
        return rsp;
    }
    if (liveView.GetId() == nullptr) {
        return Fail(Missing(ID_MANDATORY, REQUIRED));
    }
    const size_t eventLength = CommonUtils::TrimString(liveView.GetEvent()).size();
    if (eventLength == 0 || eventLength > EVENT_MAX_LENGTH) {
        return Fail(Broken(EVENT_LENGTH, [&] {
            return LengthFound(liveView.GetEvent(), eventLength, " bytes once trimmed") + "; " +
                   LengthRule(EVENT_MAX_LENGTH);
        }));
    }
    const auto sequence = liveView.GetSequence();
    if (sequence != nullptr && *sequence < 0) {
        return Fail(OutOfRange(SEQUENCE_RANGE, *sequence, "0 or more"));
    }
    if (liveView.GetLiveViewData() == nullptr) {
        return Fail(Missing(LIVE_VIEW_DATA_MANDATORY, REQUIRED));
    }
    return BaseRsp();
}

BaseRsp LiveViewParamValidate::TimerDataParamValidate(const LiveView& liveView) {
    const auto timer = liveView.GetTimer();
    if (timer == nullptr) {
        return BaseRsp();
    }
    BaseRsp rsp = CheckParamFailed(*timer);
    if (!rsp.Succeed()) {
        return rsp;
    }
    const auto time = timer->GetTime();
    if (time != nullptr && *time < 0) {
        return Fail(OutOfRange(TIMER_TIME_RANGE, *time, "0 or more"));
    }
    return BaseRsp();
}

BaseRsp LiveViewParamValidate::PrimaryDataParamValidate(const LiveView& liveView,
                                                        const LiveView::Operation& operation) {
    const auto primary = LiveView::GetPrimaryData(liveView);
    if (primary == nullptr) {
        return Fail(Missing(PRIMARY_MANDATORY, REQUIRED));
    }
    BaseRsp rsp = CheckParamFailed(*primary);
    if (!rsp.Succeed()) {
        return rsp;
    }
    const bool isStart = operation == LiveView::START;
    if (Failure failure = CheckText(primary->GetTitle(), LONG_TEXT_LIMIT, isStart, PRIMARY_TITLE)) {
        return Fail(failure);
    }
    if (Failure failure =
            CheckRichTextField(primary->GetContent(), LONG_TEXT_LIMIT, isStart, PRIMARY_CONTENT)) {
        return Fail(failure);
    }
    if (operation == LiveView::STOP) {
        ClampKeepTime(*primary);
    }
    if (isStart && primary->GetClickAction() == nullptr) {
        return Fail(Missing(PRIMARY_CLICK_ACTION_MANDATORY, REQUIRED_ON_START));
    }
    return ToRsp(CheckImmersive(*primary, isStart));
}

BaseRsp LiveViewParamValidate::ExtendDataParamValidate(const LiveView& liveView, bool& isPresent) {
    const auto extension = LiveView::GetExtensionData(liveView);
    if (extension == nullptr) {
        LV_LOGI(LINE_EXTENSION_ABSENT, "The extensionData is nullptr");
        return BaseRsp();
    }
    isPresent = true;
    BaseRsp rsp = CheckParamFailed(*extension);
    if (!rsp.Succeed()) {
        return rsp;
    }
    const ExtensionData::ExtensionType type = extension->GetType();
    if (!IsBelowUnsigned(type, EXTENSION_TYPE_BOUND)) {
        return Fail(OutOfRange(EXTENSION_TYPE, type, "0 to 4"));
    }
    const bool needsText = type == ExtensionData::EXTENSION_TYPE_TEXT_1 ||
                           type == ExtensionData::EXTENSION_TYPE_TEXT_2;
    if (Failure failure = CheckText(extension->GetText(), TEXT_LIMIT, needsText, EXTENSION_TEXT)) {
        return Fail(failure);
    }
    const bool needsPicture = type == ExtensionData::EXTENSION_TYPE_PICTURE_1 ||
                              type == ExtensionData::EXTENSION_TYPE_PICTURE_2;
    return ToRsp(CheckPicture(extension->GetPicStr(), extension->GetPic(),
                              PictureOrder::IMAGE_FIRST, needsPicture, EXTENSION_PIC));
}

BaseRsp LiveViewParamValidate::LayoutDataParamValidate(const LiveView& liveView,
                                                       const LiveView::Operation& operation,
                                                       bool& isPresent) {
    const bool isStart = operation == LiveView::START;
    const auto layout = LiveView::GetLayoutData(liveView);
    if (layout == nullptr) {
        return isStart ? Fail(Missing(LAYOUT_MANDATORY, REQUIRED_ON_START)) : BaseRsp();
    }
    isPresent = true;
    BaseRsp rsp = CheckParamFailed(*layout);
    if (!rsp.Succeed()) {
        return rsp;
    }
    switch (layout->GetLayoutType()) {
        case LayoutData::LAYOUT_TYPE_NONE:
            return BaseRsp();
        case LayoutData::PROGRESS:
            return CheckKind(AsProgressLayout(layout), "progressLayout", LAYOUT_KIND_ABSENT,
                             CheckProgressLayout, isStart);
        case LayoutData::PICKUP:
            return CheckKind(AsPickupLayout(layout), "pickupLayout", LAYOUT_KIND_ABSENT,
                             CheckPickupLayout, isStart);
        case LayoutData::FLIGHT:
            return CheckKind(AsFlightLayout(layout), "flightLayout", LAYOUT_KIND_ABSENT,
                             CheckFlightLayout, isStart);
        case LayoutData::SCORE:
            return CheckKind(AsScoreLayout(layout), "scoreLayout", LAYOUT_KIND_ABSENT,
                             CheckScoreLayout, isStart);
        case LayoutData::NAVIGATION:
            return CheckKind(AsNavigationLayout(layout), "navigationLayout", LAYOUT_KIND_ABSENT,
                             CheckNavigationLayout, isStart);
        default:
            return Fail(OutOfRange(LAYOUT_TYPE, layout->GetLayoutType(), "-1, 3, 4, 5, 7 or 8"));
    }
}

BaseRsp LiveViewParamValidate::CapsuleDataParamValidate(const LiveView& liveView,
                                                        const LiveView::Operation& operation,
                                                        bool& isPresent) {
    const auto capsule = LiveView::GetCapsuleData(liveView);
    if (capsule == nullptr) {
        LV_LOGI(LINE_CAPSULE_ABSENT, "The capsule is nullptr");
        return BaseRsp();
    }
    isPresent = true;
    const auto status = capsule->GetStatus();
    if (status == nullptr) {
        return Fail(Missing(CAPSULE_STATUS));
    }
    if (*status == CAPSULE_STATUS_ACCEPTED) {
        return BaseRsp();
    }
    if (*status != CAPSULE_STATUS_CHECKED) {
        return Fail(OutOfRange(CAPSULE_STATUS.invalid, CAPSULE_STATUS.path, *status, "1 or -1"));
    }
    BaseRsp rsp = CheckParamFailed(*capsule);
    if (!rsp.Succeed()) {
        return rsp;
    }
    const bool isStart = operation == LiveView::START;
    if (Failure failure = CheckCapsuleCommon(*capsule, isStart)) {
        return Fail(failure);
    }
    switch (capsule->GetType()) {
        case CapsuleData::TEXT:
            return CheckKind(AsTextCapsule(capsule), "textCapsule", CAPSULE_KIND_ABSENT,
                             CheckTextCapsule, isStart);
        case CapsuleData::TIMER:
            return CheckKind(AsTimerCapsule(capsule), "timerCapsule", CAPSULE_KIND_ABSENT,
                             CheckTimerCapsule, isStart);
        case CapsuleData::PROGRESS:
            return CheckKind(AsProgressCapsule(capsule), "progressCapsule", CAPSULE_KIND_ABSENT,
                             CheckProgressCapsule, isStart);
        default:
            return BaseRsp();
    }
}

BaseRsp LiveViewParamValidate::ExternalDataParamValidate(const LiveView& liveView,
                                                         const LiveView::Operation& operation,
                                                         bool& isPresent) {
    const auto external = LiveView::GetExternalData(liveView);
    if (external == nullptr) {
        LV_LOGI(LINE_EXTERNAL_ABSENT, "The externalData is null");
        return BaseRsp();
    }
    isPresent = true;
    BaseRsp rsp = CheckParamFailed(*external);
    if (!rsp.Succeed()) {
        return rsp;
    }
    const bool isStart = operation == LiveView::START;
    if (Failure failure = CheckText(external->GetTitle(), TEXT_LIMIT, isStart, EXTERNAL_TITLE)) {
        return Fail(failure);
    }
    if (Failure failure =
            CheckRichTextField(external->GetContent(), TEXT_LIMIT, isStart, EXTERNAL_CONTENT)) {
        return Fail(failure);
    }
    const auto backgroundColor = external->GetBackgroundColor();
    if (backgroundColor != nullptr && !IsRgbHexColor(*backgroundColor)) {
        return Fail(Broken(EXTERNAL_BACKGROUND_COLOR,
                           [&] { return NotColorText(*backgroundColor, "#RRGGBB"); }));
    }
    return BaseRsp();
}

}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
