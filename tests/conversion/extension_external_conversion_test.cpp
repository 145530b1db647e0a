// Extension and external data, and the log line of every optional section that is absent.
#include <gmock/gmock.h>

#include <functional>

#include "conversion_test_util.h"
#include "external_data.h"
#include "want_agent.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace Test {
namespace {

using namespace std::string_literals;
using ::testing::ElementsAre;
using ::testing::Pair;
using ActionButton = Notification::NotificationActionButton::ActionButton;

class ExtensionConversionTest : public ConversionTest {
protected:
    static Outputs Convert(const std::shared_ptr<ExtensionData>& extension) {
        Outputs out;
        LiveViewParamConversion::ExtendDataParamConversion(WithExtension(extension), out.request,
                                                           out.extra, out.pictures);
        return out;
    }
};

TEST_F(ExtensionConversionTest, TypeIsAlwaysWrittenTextOnlyWhenSet) {
    auto extension = std::make_shared<ExtensionData>();
    extension->SetType(ExtensionData::EXTENSION_TYPE_BLANK);
    Outputs out = Convert(extension);
    ExpectParams(*out.extra, {{"ExtendData.type", 0}});
    EXPECT_TRUE(out.request.GetActionButtons().empty());
    EXPECT_FALSE(out.request.IsCoverActionButtons());

    extension->SetType(ExtensionData::EXTENSION_TYPE_TEXT_2);
    extension->SetText(Str("Call driver"));
    out = Convert(extension);
    ExpectParams(*out.extra, {{"ExtendData.text", "Call driver"s}, {"ExtendData.type", 2}});
}

TEST_F(ExtensionConversionTest, PicturePair) {
    const Pic picture = NewPic(3);
    struct Row {
        const char* label;
        std::shared_ptr<std::string> pictureStr;
        Pic picture;
        ExpectedParams expected;
        PictureMap pictures;
    };
    const Row rows[] = {
        {"string only",
         Str("media:phone"),
         nullptr,
         {{"ExtendData.type", 3}, {"ExtendData.pic.res", "media:phone"s}},
         {}},
        {"pixel map only",
         nullptr,
         picture,
         {{"ExtendData.type", 3}, {"ExtendData.pic.res", ""s}},
         {{"ExtendData.pic", {picture}}}},
        {"both",
         Str("media:phone"),
         picture,
         {{"ExtendData.type", 3}, {"ExtendData.pic.res", "media:phone"s}},
         {}},
        {"neither", nullptr, nullptr, {{"ExtendData.type", 3}}, {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        auto extension = std::make_shared<ExtensionData>();
        extension->SetType(ExtensionData::EXTENSION_TYPE_PICTURE_1);
        extension->SetPicStr(row.pictureStr);
        extension->SetPic(row.picture);
        const Outputs out = Convert(extension);
        ExpectParams(*out.extra, row.expected);
        EXPECT_EQ(out.pictures, row.pictures);
    }
}

TEST_F(ExtensionConversionTest, ClickActionBecomesOneCoveringButton) {
    const auto action = std::make_shared<AbilityRuntime::WantAgent::WantAgent>("com.example/Call");
    struct Row {
        const char* label;
        std::shared_ptr<AbilityRuntime::WantAgent::WantAgent> clickAction;
        bool isCoverClickAction;
        bool covers;
    };
    const Row rows[] = {
        {"action, cover flag false", action, false, true},
        {"action, cover flag true", action, true, true},
        {"cover flag without action", nullptr, true, true},
        {"neither", nullptr, false, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        auto extension = std::make_shared<ExtensionData>();
        extension->SetType(ExtensionData::EXTENSION_TYPE_BLANK);
        extension->SetClickAction(row.clickAction);
        extension->SetIsCoverClickAction(row.isCoverClickAction);
        const Outputs out = Convert(extension);
        EXPECT_EQ(out.request.IsCoverActionButtons(), row.covers);
        const auto buttons = out.request.GetActionButtons();
        ASSERT_EQ(buttons.size(), row.clickAction == nullptr ? 0u : 1u);
        if (buttons.empty()) {
            continue;
        }
        const auto& button = buttons[0];
        ASSERT_NE(button, nullptr);
        EXPECT_EQ(button->GetTitle(), "");
        EXPECT_EQ(button->GetWantAgent(), action);
        EXPECT_EQ(button->GetIcon(), nullptr);
        EXPECT_EQ(button->GetAdditionalData(), nullptr);
        EXPECT_EQ(button->GetSemanticActionButton(), ActionButton::NONE_ACTION_BUTTON);
        EXPECT_TRUE(button->IsAutoCreatedReplies());
        EXPECT_TRUE(button->GetMimeTypeOnlyUserInputs().empty());
        EXPECT_EQ(button->GetUserInput(), nullptr);
        EXPECT_FALSE(button->IsContextDependent());
    }
}

// The cover flag is only ever raised: a request that already covers keeps covering.
TEST_F(ExtensionConversionTest, CoverFlagIsNeverLowered) {
    auto extension = std::make_shared<ExtensionData>();
    extension->SetIsCoverClickAction(false);
    Outputs out;
    out.request.SetIsCoverActionButtons(true);
    LiveViewParamConversion::ExtendDataParamConversion(WithExtension(extension), out.request,
                                                       out.extra, out.pictures);
    EXPECT_TRUE(out.request.IsCoverActionButtons());
}

TEST(ExternalConversionTest, KeysOfSetFieldsOnly) {
    auto external = std::make_shared<ExternalData>();
    external->SetTitle(Str("Flight LH 123"));
    external->AddContent(Rich(Str("Boarding"), Str("#FFFF0000")));
    external->SetBackgroundColor(Str("#102030"));
    Outputs out;
    LiveViewParamConversion::ExternalDataParamConversion(MakeLiveView(nullptr, nullptr, external),
                                                         out.extra);
    ExpectParams(*out.extra,
                 {{"ExternalData.title", "Flight LH 123"s},
                  {"ExternalData.content", R"([{"text":"Boarding","textColor":"#FFFF0000"}])"s},
                  {"ExternalData.backgroundColor", "#102030"s}});

    external->SetContent({});
    external->SetBackgroundColor(nullptr);
    out = Outputs();
    LiveViewParamConversion::ExternalDataParamConversion(MakeLiveView(nullptr, nullptr, external),
                                                         out.extra);
    ExpectParams(*out.extra, {{"ExternalData.title", "Flight LH 123"s}});
}

class AbsentSectionTest : public ConversionTest {};

TEST_F(AbsentSectionTest, WritesNothingAndOneInfoLine) {
    struct Row {
        const char* line;
        std::function<void(Outputs&)> convert;
    };
    // A live view with primary data but no section of its own below it.
    const LiveView liveView = MakeLiveView(std::make_shared<PrimaryData>());
    const Row rows[] = {
        {"] ExtendDataParamConversion# The extensionData is nullptr",
         [&](Outputs& out) {
             LiveViewParamConversion::ExtendDataParamConversion(liveView, out.request, out.extra,
                                                                out.pictures);
         }},
        {"] ExternalDataParamConversion# The externalData is null",
         [&](Outputs& out) {
             LiveViewParamConversion::ExternalDataParamConversion(liveView, out.extra);
         }},
        {"] CapsuleDataParamConversion# The capsule is nullptr.",
         [&](Outputs& out) {
             LiveViewParamConversion::CapsuleDataParamConversion(liveView, out.extra, out.pictures);
         }},
        {"] LayoutDataParamConversion# The layoutData is nullptr.",
         [&](Outputs& out) {
             LiveViewParamConversion::LayoutDataParamConversion(liveView, out.extra, out.pictures);
         }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.line);
        Outputs out;
        row.convert(out);
        EXPECT_EQ(out.extra->Size(), 0);
        EXPECT_TRUE(out.pictures.empty());
        EXPECT_FALSE(out.request.IsCoverActionButtons());
        EXPECT_THAT(Logs(), OneConversionInfoLine(row.line));
    }
}

}  // namespace
}  // namespace Test
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi
