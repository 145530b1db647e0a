// The wire codec of notification requests: a request with every member set comes back equal and
// re-encodes to the same text, null pointers stay null, and every malformed member is refused with
// its path.
#include <gtest/gtest.h>

#include <cjson/cJSON.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <string>

#include "notification_request.h"
#include "request_wire.h"

namespace Tavi::Host::Wire {
namespace {

using AbilityRuntime::WantAgent::WantAgent;
using namespace AAFwk;
using Media::PixelFormat;
using Media::PixelMap;
using Notification::NotificationActionButton;
using Notification::NotificationContent;
using Notification::NotificationLiveViewContent;
using Notification::NotificationRequest;
using Notification::NotificationUserInput;

// A picture whose bytes are all different, so that a shifted or truncated copy shows.
std::shared_ptr<PixelMap> Picture(int32_t width, int32_t height, PixelFormat format) {
    std::shared_ptr<PixelMap> picture = PixelMap::Create({{width, height}, format});
    for (int32_t i = 0; i < picture->GetByteCount(); ++i) {
        picture->GetWritablePixels()[i] = static_cast<uint8_t>(0xF0 - i);
    }
    return picture;
}

template <typename Box, typename T>
sptr<IInterface> ArrayOf(const InterfaceID& type, const std::vector<T>& values) {
    sptr<Array> array(new Array(static_cast<long>(values.size()) + 1, type));
    for (size_t i = 0; i < values.size(); ++i) {
        array->Set(static_cast<long>(i), sptr<IInterface>(Box::Box(values[i])));
    }
    return sptr<IInterface>(array);  // the last element stays null
}

std::shared_ptr<WantParams> EveryBox() {
    WantParams inner;
    inner.SetParam("deep", sptr<IInterface>(String::Box("bottom")));
    WantParams nested;
    nested.SetParam("count", sptr<IInterface>(Integer::Box(3)));
    nested.SetParam("inner", sptr<IInterface>(WantParamWrapper::Box(inner)));
    sptr<Array> arrays(new Array(2, g_IID_IArray));
    arrays->Set(0, ArrayOf<Integer>(g_IID_IInteger, std::vector<int>{1, 2}));
    auto params = std::make_shared<WantParams>();
    params->SetParam("text", sptr<IInterface>(String::Box("caf\xC3\xA9 \"quoted\"\n")));
    params->SetParam("int", sptr<IInterface>(Integer::Box(std::numeric_limits<int>::min())));
    params->SetParam("longSmall", sptr<IInterface>(Long::Box(1700000000000L)));
    params->SetParam("longHuge", sptr<IInterface>(Long::Box(std::numeric_limits<long>::min())));
    params->SetParam("longPastSafe", sptr<IInterface>(Long::Box((1L << 53) + 1)));
    params->SetParam("flag", sptr<IInterface>(Boolean::Box(true)));
    params->SetParam("fraction", sptr<IInterface>(Double::Box(0.1)));
    params->SetParam("infinite", sptr<IInterface>(Double::Box(-HUGE_VAL)));
    params->SetParam("none", nullptr);
    params->SetParam("nested", sptr<IInterface>(WantParamWrapper::Box(nested)));
    params->SetParam("texts", ArrayOf<String>(g_IID_IString, std::vector<std::string>{"a", ""}));
    params->SetParam("ints", ArrayOf<Integer>(g_IID_IInteger, std::vector<int>{-1, 7}));
    params->SetParam("longs", ArrayOf<Long>(g_IID_ILong, std::vector<long>{1L << 60}));
    params->SetParam("flags", ArrayOf<Boolean>(g_IID_IBoolean, std::vector<bool>{false}));
    params->SetParam("doubles", ArrayOf<Double>(g_IID_IDouble, std::vector<double>{2.5e-300}));
    params->SetParam("maps", ArrayOf<WantParamWrapper>(g_IID_IWantParams,
                                                       std::vector<WantParams>{inner, nested}));
    params->SetParam("arrays", sptr<IInterface>(arrays));
    return params;
}

sptr<NotificationRequest> EveryField() {
    auto liveView = std::make_shared<NotificationLiveViewContent>();
    liveView->SetTitle("Order 42");
    liveView->SetText("On its way");
    liveView->SetSinglePicture(Picture(3, 2, PixelFormat::ALPHA_8));
    liveView->SetLiveViewStatus(NotificationLiveViewContent::LiveViewStatus::LIVE_VIEW_FULL_UPDATE);
    liveView->SetVersion(0xFFFFFFFE);
    liveView->SetIsOnlyLocalUpdate(true);
    liveView->SetExtraInfo(EveryBox());
    liveView->SetPicture(
        {{"icons",
          {Picture(2, 2, PixelFormat::RGB_565), nullptr, Picture(1, 1, PixelFormat::ARGB_8888)}},
         {"back", {Picture(2, 1, PixelFormat::BGRA_8888), Picture(1, 2, PixelFormat::RGBA_8888)}},
         {"empty", {}}});
    sptr<NotificationRequest> request(new NotificationRequest(-5));
    request->SetSlotType(Notification::NotificationConstant::LIVE_VIEW);
    request->SetInProgress(true);
    request->SetAutoDeletedTime(std::numeric_limits<int64_t>::max());
    request->SetWantAgent(std::make_shared<WantAgent>("com.example.food/Order"));
    request->SetContent(std::make_shared<NotificationContent>(liveView));
    request->AddActionButton(NotificationActionButton::Create(
        Picture(1, 3, PixelFormat::RGBA_8888), "Reply", std::make_shared<WantAgent>("reply"),
        EveryBox(), NotificationActionButton::ActionButton::REPLY_ACTION_BUTTON, false,
        {std::make_shared<NotificationUserInput>("image/png"), nullptr},
        std::make_shared<NotificationUserInput>("answer"), true));
    request->AddActionButton(NotificationActionButton::Create(nullptr, "", nullptr));
    request->SetIsCoverActionButtons(true);
    request->SetOwnerBundleName("com.example.food");
    request->SetOwnerUid(20010001);
    return request;
}

void ExpectSamePicture(const std::shared_ptr<PixelMap>& a, const std::shared_ptr<PixelMap>& b) {
    ASSERT_EQ(a == nullptr, b == nullptr);
    if (a == nullptr) {
        return;
    }
    EXPECT_EQ(a->GetWidth(), b->GetWidth());
    EXPECT_EQ(a->GetHeight(), b->GetHeight());
    EXPECT_EQ(a->GetPixelFormat(), b->GetPixelFormat());
    ASSERT_EQ(a->GetByteCount(), b->GetByteCount());
    EXPECT_EQ(std::memcmp(a->GetPixels(), b->GetPixels(), a->GetByteCount()), 0);
}

void ExpectSameParams(const std::shared_ptr<WantParams>& a, const std::shared_ptr<WantParams>& b) {
    ASSERT_EQ(a == nullptr, b == nullptr);
    if (a != nullptr) {
        EXPECT_TRUE(*a == *b);
    }
}

void ExpectSameAgent(const std::shared_ptr<WantAgent>& a, const std::shared_ptr<WantAgent>& b) {
    ASSERT_EQ(a == nullptr, b == nullptr);
    if (a != nullptr) {
        EXPECT_EQ(a->GetTarget(), b->GetTarget());
    }
}

void ExpectSameInput(const std::shared_ptr<NotificationUserInput>& a,
                     const std::shared_ptr<NotificationUserInput>& b) {
    ASSERT_EQ(a == nullptr, b == nullptr);
    if (a != nullptr) {
        EXPECT_EQ(a->GetInputKey(), b->GetInputKey());
    }
}

void ExpectSameRequest(const NotificationRequest& a, const NotificationRequest& b) {
    EXPECT_EQ(a.GetNotificationId(), b.GetNotificationId());
    EXPECT_EQ(a.GetSlotType(), b.GetSlotType());
    EXPECT_EQ(a.IsInProgress(), b.IsInProgress());
    EXPECT_EQ(a.GetAutoDeletedTime(), b.GetAutoDeletedTime());
    ExpectSameAgent(a.GetWantAgent(), b.GetWantAgent());
    EXPECT_EQ(a.IsCoverActionButtons(), b.IsCoverActionButtons());
    EXPECT_EQ(a.GetOwnerBundleName(), b.GetOwnerBundleName());
    EXPECT_EQ(a.GetOwnerUid(), b.GetOwnerUid());
    const auto buttonsA = a.GetActionButtons();
    const auto buttonsB = b.GetActionButtons();
    ASSERT_EQ(buttonsA.size(), buttonsB.size());
    for (size_t i = 0; i < buttonsA.size(); ++i) {
        SCOPED_TRACE("button " + std::to_string(i));
        const auto& x = *buttonsA[i];
        const auto& y = *buttonsB[i];
        ExpectSamePicture(x.GetIcon(), y.GetIcon());
        EXPECT_EQ(x.GetTitle(), y.GetTitle());
        ExpectSameAgent(x.GetWantAgent(), y.GetWantAgent());
        ExpectSameParams(x.GetAdditionalData(), y.GetAdditionalData());
        EXPECT_EQ(x.GetSemanticActionButton(), y.GetSemanticActionButton());
        EXPECT_EQ(x.IsAutoCreatedReplies(), y.IsAutoCreatedReplies());
        ASSERT_EQ(x.GetMimeTypeOnlyUserInputs().size(), y.GetMimeTypeOnlyUserInputs().size());
        for (size_t k = 0; k < x.GetMimeTypeOnlyUserInputs().size(); ++k) {
            ExpectSameInput(x.GetMimeTypeOnlyUserInputs()[k], y.GetMimeTypeOnlyUserInputs()[k]);
        }
        ExpectSameInput(x.GetUserInput(), y.GetUserInput());
        EXPECT_EQ(x.IsContextDependent(), y.IsContextDependent());
    }
    ASSERT_EQ(a.GetContent() == nullptr, b.GetContent() == nullptr);
    if (a.GetContent() == nullptr) {
        return;
    }
    EXPECT_EQ(a.GetContent()->GetContentType(), b.GetContent()->GetContentType());
    const auto x = std::dynamic_pointer_cast<NotificationLiveViewContent>(
        a.GetContent()->GetNotificationContent());
    const auto y = std::dynamic_pointer_cast<NotificationLiveViewContent>(
        b.GetContent()->GetNotificationContent());
    ASSERT_EQ(x == nullptr, y == nullptr);
    if (x == nullptr) {
        return;
    }
    EXPECT_EQ(x->GetTitle(), y->GetTitle());
    EXPECT_EQ(x->GetText(), y->GetText());
    ExpectSamePicture(x->GetSinglePicture(), y->GetSinglePicture());
    EXPECT_EQ(x->GetLiveViewStatus(), y->GetLiveViewStatus());
    EXPECT_EQ(x->GetVersion(), y->GetVersion());
    EXPECT_EQ(x->GetIsOnlyLocalUpdate(), y->GetIsOnlyLocalUpdate());
    ExpectSameParams(x->GetExtraInfo(), y->GetExtraInfo());
    const auto picturesA = x->GetPicture();
    const auto picturesB = y->GetPicture();
    ASSERT_EQ(picturesA.size(), picturesB.size());
    for (const auto& [key, list] : picturesA) {
        SCOPED_TRACE("pictures " + key);
        ASSERT_EQ(picturesB.count(key), 1u);
        ASSERT_EQ(list.size(), picturesB.at(key).size());
        for (size_t i = 0; i < list.size(); ++i) {
            ExpectSamePicture(list[i], picturesB.at(key)[i]);
        }
    }
}

// Encodes request, decodes the text, and checks that nothing changed either way.
void ExpectRoundTrip(const NotificationRequest& request) {
    const std::string text = RequestToText(request);
    sptr<NotificationRequest> back;
    std::string error;
    ASSERT_TRUE(RequestFromText(text, back, error)) << error;
    ASSERT_NE(back, nullptr);
    ExpectSameRequest(request, *back);
    EXPECT_EQ(RequestToText(*back), text);
}

TEST(RequestWireTest, EveryFieldComesBackAndReencodesToTheSameText) {
    ExpectRoundTrip(*EveryField());
}

TEST(RequestWireTest, NullPointersStayNull) {
    {
        SCOPED_TRACE("no content");
        ExpectRoundTrip(NotificationRequest());
    }
    NotificationRequest request(1);
    {
        SCOPED_TRACE("content without an object");
        request.SetContent(std::make_shared<NotificationContent>(nullptr));
        ExpectRoundTrip(request);
    }
    SCOPED_TRACE("live view content with nothing set");
    request.SetContent(
        std::make_shared<NotificationContent>(std::make_shared<NotificationLiveViewContent>()));
    ExpectRoundTrip(request);
}

// A small valid request whose text the refusals below change one member of.
std::string SmallText() {
    auto extra = std::make_shared<WantParams>();
    extra->SetParam("score", sptr<IInterface>(Integer::Box(9)));
    extra->SetParam("list", ArrayOf<String>(g_IID_IString, std::vector<std::string>{"x"}));
    auto liveView = std::make_shared<NotificationLiveViewContent>();
    liveView->SetExtraInfo(extra);
    liveView->SetPicture({{"pic", {Picture(1, 1, PixelFormat::ALPHA_8)}}});
    NotificationRequest request(7);
    request.SetContent(std::make_shared<NotificationContent>(liveView));
    request.AddActionButton(NotificationActionButton::Create(
        Picture(2, 1, PixelFormat::ALPHA_8), "Go", std::make_shared<WantAgent>("go")));
    return RequestToText(request);
}

std::string Nested(int depth) {
    return std::string(static_cast<size_t>(depth), '[') +
           std::string(static_cast<size_t>(depth), ']');
}

TEST(RequestWireTest, MalformedMembersAreRefusedWithTheirPath) {
    const std::string base = SmallText();
    const struct {
        const char* label;
        std::string from;  // replaced once in base; empty: the whole text is to
        std::string to;
        std::string error;
    } rows[] = {
        {"not JSON", "", "{\"id\":x}", "(root): not JSON (syntax error at byte 6)"},
        {"text after the value", "", "{} {}", "(root): not JSON (syntax error at byte 3)"},
        {"nested too deep", "", Nested(65), "(root): not JSON (nested deeper than 64 levels)"},
        {"root not an object", "", Nested(64), "(root): expected an object"},
        {"unknown member", "\"id\":7", "\"ID\":7", "ID: unknown member"},
        {"duplicate member", "\"id\":7", "\"id\":7,\"id\":7", "id: duplicate member"},
        {"missing member", "\"id\":7,", "", "id: missing"},
        {"text for a number", "\"id\":7", "\"id\":\"7\"", "id: expected a number"},
        {"not whole", "\"id\":7", "\"id\":7.5", "id: expected a whole number"},
        {"past int32", "\"id\":7", "\"id\":2147483648", "id: out of range -2147483648..2147483647"},
        {"version past uint32", "\"version\":4294967295", "\"version\":4294967296",
         "content.version: out of range 0..4294967295"},
        {"int64 past 2^53 as a number", "\"autoDeletedTime\":-1",
         "\"autoDeletedTime\":9007199254740994",
         "autoDeletedTime: out of range -9007199254740992..9007199254740992"},
        {"int64 within 2^53 as text", "\"autoDeletedTime\":-1", "\"autoDeletedTime\":\"-1\"",
         "autoDeletedTime: within ±2^53: expected a number, not text"},
        {"int64 text past 64 bits", "\"autoDeletedTime\":-1",
         "\"autoDeletedTime\":\"9223372036854775808\"",
         "autoDeletedTime: expected a whole number or its decimal text"},
        {"wrong type for a flag", "\"inProgress\":false", "\"inProgress\":0",
         "inProgress: expected true or false"},
        {"unknown content type", "\"contentType\":1", "\"contentType\":2",
         "content.contentType: unknown content type 2"},
        {"members beside content type 0", "\"contentType\":1", "\"contentType\":0",
         "content.title: unknown member"},
        {"unknown status", "\"status\":0", "\"status\":4", "content.status: unknown status 4"},
        {"unknown format", "\"format\":6,\"pixels\":\"8A==\"", "\"format\":0,\"pixels\":\"8A==\"",
         "content.pictures.pic[0].format: unknown format 0"},
        {"unknown semantic", "\"semantic\":0", "\"semantic\":3",
         "actionButtons[0].semantic: unknown semantic 3"},
        {"null button", "\"actionButtons\":[", "\"actionButtons\":[null,",
         "actionButtons[0]: expected an object"},
        {"extra info of the wrong type", "\"value\":9", "\"value\":\"9\"",
         "content.extraInfo.score.value: expected a number"},
        {"unknown box type", "\"type\":5", "\"type\":7",
         "content.extraInfo.score.type: unknown box type 7"},
        {"element of another type", "\"value\":[{\"type\":9,\"value\":\"x\"}",
         "\"value\":[{\"type\":5,\"value\":1}",
         "content.extraInfo.list.value[0].type: expected 9, the array's elementType"},
        {"not base64", "\"pixels\":\"8A==\"", "\"pixels\":\"8A=\"",
         "content.pictures.pic[0].pixels: not base64"},
        {"bits after the last byte", "\"pixels\":\"8A==\"", "\"pixels\":\"8B==\"",
         "content.pictures.pic[0].pixels: not base64"},
        {"pixel count", "\"pixels\":\"8A==\"", "\"pixels\":\"8PA=\"",
         "content.pictures.pic[0].pixels: expected 1 bytes, got 2"},
        {"side not positive", "\"height\":1,\"format\":6,\"pixels\":\"8A==\"",
         "\"height\":0,\"format\":6,\"pixels\":\"8A==\"",
         "content.pictures.pic[0].height: out of range 1..2147483647"},
        {"pictures over 64 MiB", "\"width\":1,\"height\":1,\"format\":6,\"pixels\":\"8A==\"",
         "\"width\":8193,\"height\":8192,\"format\":6,\"pixels\":\"8A==\"",
         "content.pictures.pic[0]: pictures over 67108864 bytes in all"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        std::string text = row.to;
        if (!row.from.empty()) {
            const size_t at = base.find(row.from);
            ASSERT_NE(at, std::string::npos);
            ASSERT_EQ(base.find(row.from, at + 1), std::string::npos) << "ambiguous row";
            text = base;
            text.replace(at, row.from.size(), row.to);
        }
        const sptr<NotificationRequest> before(new NotificationRequest(99));
        sptr<NotificationRequest> request = before;
        std::string error;
        EXPECT_FALSE(RequestFromText(text, request, error));
        EXPECT_EQ(error, row.error);
        EXPECT_EQ(request, before);
    }
}

// A tree made by other means than ParseJsonText may be deeper than the text bound; the reader
// bounds its own recursion.
TEST(RequestWireTest, ATreeNestedTooDeepIsRefusedWithItsPath) {
    std::string params = "{}";
    std::string path = "content.extraInfo";
    // extraInfo is at depth 3; each nested map adds a box and its map.
    for (int depth = 3; depth + 2 <= MAX_NESTING + 1; depth += 2) {
        params = "{\"a\":{\"type\":101,\"value\":" + params + "}}";
        path += ".a.value";
    }
    std::string text = SmallText();
    const std::string from = "\"extraInfo\":{";
    const size_t start = text.find(from) + from.size() - 1;
    text.replace(start, text.find("}}", start) + 2 - start, params);
    cJSON* tree = cJSON_Parse(text.c_str());
    ASSERT_NE(tree, nullptr);
    sptr<NotificationRequest> request;
    std::string error;
    EXPECT_FALSE(RequestFromJson(tree, request, error));
    EXPECT_EQ(error, path + ": nested deeper than 64 levels");
    cJSON_Delete(tree);
}

}  // namespace
}  // namespace Tavi::Host::Wire
