// The renderer through its public entry, on what could hurt a page: hostile text is escaped
// wherever it lands and colours not of their form are dropped rather than injected; pixel maps
// are encoded as PNG holding their colours whatever their pixel format, and are never touched
// when too big.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <png.h>

#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "host_control.h"
#include "live_view_manager.h"
#include "record_builders.h"
#include "render_page.h"
#include "render_presentations.h"

namespace RenderTest {
namespace {

using namespace Tavi::Wisp::LiveView;
using namespace Tavi::Wisp::LiveView::Builders;
using ::testing::HasSubstr;
using ::testing::Not;

class RendererTest : public ::testing::Test {
protected:
    void SetUp() override {
        Tavi::Host::ResetAll();
        Tavi::Host::SetAllModes(Tavi::Host::SinkMode::DISCARD);
    }
    void TearDown() override { Tavi::Host::ResetAll(); }
};

// A text field exactly: data-part="part">text<.
std::string Field(const std::string& part, const std::string& text) {
    return "data-part=\"" + part + "\">" + text + "<";
}

TEST_F(RendererTest, EscapesEveryTextAndDropsColoursNotOfTheirForm) {
    const std::string hostile = "<script>alert(\"x\")</script>'";
    const std::string escaped = "&lt;script&gt;alert(&quot;x&quot;)&lt;/script&gt;&#39;";
    RequestParts parts;
    const auto set = [&parts](const std::string& key, const std::string& value) {
        parts.extra->SetParam(key, Tavi::AAFwk::String::Box(value));
    };
    set(LiveViewConstant::EVENT, hostile);
    set(LiveViewConstant::PRIMARY_DATA_TITLE, hostile);
    set(LiveViewConstant::PRIMARY_DATA_CONTENT,
        R"J([{"text":"<img src=x onerror=alert(1)>","textColor":"red;background:url(//x)"}])J");
    parts.extra->SetParam(LiveViewConstant::CAPSULE_DATA_TYPE, Tavi::AAFwk::Integer::Box(1));
    set(LiveViewConstant::CAPSULE_DATA_BACKGROUND_COLOR, "#FF000000\" onmouseover=\"x");
    set(LiveViewConstant::CAPSULE_DATA_ICON_RES, "res://a\"b<c");
    set(LiveViewConstant::TEXT_CAPSULE_TITLE, hostile);
    set(LiveViewConstant::EXTERNAL_DATA_TITLE, hostile);
    set(LiveViewConstant::EXTERNAL_DATA_BACKGROUND_COLOR, "#123456;color:red");
    parts.request->AddActionButton(Tavi::Notification::NotificationActionButton::Create(
        nullptr, hostile, ClickAction("x\"><script>")));
    parts.request->SetOwnerBundleName(hostile);
    const auto drawn = LiveViewRender::RenderPresentations(parts.Build(), {});

    ASSERT_EQ(drawn.readBack.code, 0) << drawn.readBack.message;
    for (const char* part : {"title", "app", "event"}) {
        EXPECT_THAT(drawn.card, HasSubstr(Field(part, escaped)));
    }
    EXPECT_THAT(drawn.card, HasSubstr(Field("run", "&lt;img src=x onerror=alert(1)&gt;")));
    EXPECT_THAT(drawn.card, HasSubstr("data-part=\"button\" title=\"x&quot;&gt;&lt;script&gt;\">" +
                                      escaped + "<"));
    EXPECT_THAT(drawn.capsule, HasSubstr(Field("title", escaped)));
    EXPECT_THAT(drawn.capsule, HasSubstr("data-res=\"res://a&quot;b&lt;c\""));
    EXPECT_THAT(drawn.external, HasSubstr(Field("title", escaped)));
    for (const std::string& fragment :
         {drawn.card, drawn.lockScreen, drawn.capsule, drawn.external}) {
        EXPECT_THAT(fragment, Not(HasSubstr("<script")));
        EXPECT_THAT(fragment, Not(HasSubstr("<img src=x")));
        EXPECT_THAT(fragment, Not(HasSubstr("style=")));
        EXPECT_THAT(fragment, Not(HasSubstr("\" onmouseover")));
    }
    EXPECT_THAT(LiveViewRender::PreviewPage(hostile, drawn),
                HasSubstr("<title>" + escaped + "</title>"));

    const std::string panel = LiveViewRender::RefusalPanel(401, "a<b", "use \"c\"");
    EXPECT_THAT(panel, HasSubstr(Field("message", "a&lt;b")));
    EXPECT_THAT(panel, HasSubstr(Field("hint", "use &quot;c&quot;")));
}

// The capsule drawn for a request whose only section is a text capsule with the given icon.
std::string CapsuleWithIcon(const std::shared_ptr<Tavi::Media::PixelMap>& pixels,
                            const std::string& resource = "",
                            const LiveViewRender::RenderOptions& options = {}) {
    RequestParts parts;
    parts.extra->SetParam(LiveViewConstant::CAPSULE_DATA_TYPE, Tavi::AAFwk::Integer::Box(1));
    if (pixels != nullptr) {
        parts.pictures[LiveViewConstant::CAPSULE_DATA_ICON] = {pixels};
    } else {
        parts.extra->SetParam(LiveViewConstant::CAPSULE_DATA_ICON_RES,
                              Tavi::AAFwk::String::Box(resource));
    }
    return LiveViewRender::RenderPresentations(parts.Build(), options).capsule;
}

TEST_F(RendererTest, ReadsResourcesOnlyAsSmallRegularPngFilesInsideTheFolder) {
    namespace fs = std::filesystem;
    const fs::path root = fs::temp_directory_path() / ("render_res_" + std::to_string(getpid()));
    fs::create_directories(root / "res" / "folder.png");
    const auto write = [](const fs::path& path, const std::string& bytes) {
        std::ofstream(path, std::ios::binary) << bytes;
    };
    const std::string signature = "\x89PNG\r\n\x1a\n";
    write(root / "res" / "known.png", signature + "known");
    write(root / "res" / "big.png", signature + std::string(200, 'x'));
    write(root / "res" / "notpng.png", "GIF89a");
    write(root / "outside.png", signature + "outside");
    LiveViewRender::RenderOptions options;
    options.resourceDir = (root / "res").string();
    options.maxResourceBytes = 100;
    const std::string known = "src=\"data:image/png;base64,iVBORw0KGgprbm93bg==\"";
    const std::pair<const char*, std::string> rows[] = {
        {"res://known", known},
        {"res://missing", "title=\"missing\""},
        {"res://notpng", "title=\"notpng\""},
        {"res://folder", "title=\"folder\""},
        {"res://big", "title=\"big\""},
        {"res://../outside", "title=\"../outside\""},
    };
    for (const auto& [resource, expected] : rows) {
        SCOPED_TRACE(resource);
        const std::string capsule = CapsuleWithIcon(nullptr, resource, options);
        EXPECT_THAT(capsule, HasSubstr(expected));
        EXPECT_EQ(capsule.find("<img") != std::string::npos, expected == known);
    }
    fs::remove_all(root);
}

// The RGBA pixels of the first PNG data: URI in html; empty when there is none or it is damaged.
std::vector<uint8_t> FirstPicture(const std::string& html) {
    const std::string marker = "data:image/png;base64,";
    const size_t at = html.find(marker);
    const std::string alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string png;
    uint32_t group = 0;
    int bits = 0;
    for (size_t i = at + marker.size(); at != std::string::npos; ++i) {
        const size_t value = alphabet.find(html[i]);
        if (value == std::string::npos) {
            break;
        }
        group = group << 6 | static_cast<uint32_t>(value);
        if ((bits += 6) >= 8) {
            png += static_cast<char>((group >> (bits -= 8)) & 0xFF);
        }
    }
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_memory(&image, png.data(), png.size()) == 0) {
        return {};
    }
    image.format = PNG_FORMAT_RGBA;
    std::vector<uint8_t> pixels(PNG_IMAGE_SIZE(image));
    png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr);
    return pixels;
}

TEST_F(RendererTest, EncodesEveryPixelFormatAsTheColoursItHolds) {
    using Tavi::Media::PixelFormat;
    // ARGB 0x80C0FFEE: red C0, green FF, blue EE, alpha 80; 565 keeps 5, 6 and 5 bits of it.
    const struct {
        PixelFormat format;
        std::vector<uint8_t> rgba;
    } rows[] = {
        {PixelFormat::ARGB_8888, {0xC0, 0xFF, 0xEE, 0x80}},
        {PixelFormat::RGBA_8888, {0xC0, 0xFF, 0xEE, 0x80}},
        {PixelFormat::BGRA_8888, {0xC0, 0xFF, 0xEE, 0x80}},
        {PixelFormat::RGB_565, {0xC6, 0xFF, 0xEF, 0xFF}},
        {PixelFormat::ALPHA_8, {0, 0, 0, 0x80}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(static_cast<int>(row.format));
        const uint32_t color = 0x80C0FFEE;
        Tavi::Media::InitializationOptions options;
        options.size = {1, 1};
        options.pixelFormat = row.format;
        const std::string drawn = CapsuleWithIcon(std::shared_ptr<Tavi::Media::PixelMap>(
            Tavi::Media::PixelMap::Create(&color, 1, options)));
        EXPECT_THAT(drawn, HasSubstr("data-size=\"1x1\""));
        EXPECT_EQ(FirstPicture(drawn), row.rgba);
    }
    // Too many pixels to encode: a placeholder with the size, and the pixels are never touched.
    EXPECT_THAT(CapsuleWithIcon(Picture(3000, 3000, PixelFormat::ALPHA_8)),
                HasSubstr("placeholder pic-xs\" data-part=\"icon\" title=\"3000x3000\""));
}

}  // namespace
}  // namespace RenderTest
