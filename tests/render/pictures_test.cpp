// Pictures as the renderer draws them: resource strings looked up in the resource folder, and
// pixel maps encoded as PNG whatever their pixel format.
#include <png.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "render_test_support.h"

namespace RenderTest {
namespace {

namespace fs = std::filesystem;
using LiveViewRender::Presentations;

const std::string kPngSignature("\x89PNG\r\n\x1a\n", 8);

void WriteFile(const fs::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

// A request whose only section is a text capsule with the given icon.
Tavi::sptr<Tavi::Notification::NotificationRequest> CapsuleWithIcon(
    const std::string& resource, const std::shared_ptr<Tavi::Media::PixelMap>& pixels) {
    RequestParts parts;
    parts.extra->SetParam(LiveViewConstant::CAPSULE_DATA_TYPE, Tavi::AAFwk::Integer::Box(1));
    if (!resource.empty()) {
        parts.extra->SetParam(LiveViewConstant::CAPSULE_DATA_ICON_RES,
                              Tavi::AAFwk::String::Box(resource));
    }
    if (pixels != nullptr) {
        parts.pictures[LiveViewConstant::CAPSULE_DATA_ICON] = {pixels};
    }
    return parts.Build();
}

std::string DecodeBase64(const std::string& text) {
    static const std::string kAlphabet =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string out;
    uint32_t group = 0;
    int bits = 0;
    for (const char c : text) {
        const size_t value = kAlphabet.find(c);
        if (value == std::string::npos) {
            break;
        }
        group = group << 6 | static_cast<uint32_t>(value);
        bits += 6;
        if (bits >= 8) {
            bits -= 8;
            out += static_cast<char>((group >> bits) & 0xFF);
        }
    }
    return out;
}

// The RGBA pixels of the first PNG data: URI in html.
std::vector<uint8_t> FirstPicture(const std::string& html) {
    const std::string marker = "data:image/png;base64,";
    const size_t at = html.find(marker);
    if (at == std::string::npos) {
        return {};
    }
    const std::string png = DecodeBase64(html.substr(at + marker.size()));
    png_image image;
    std::memset(&image, 0, sizeof(image));
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_memory(&image, png.data(), png.size()) == 0) {
        return {};
    }
    image.format = PNG_FORMAT_RGBA;
    std::vector<uint8_t> pixels(PNG_IMAGE_SIZE(image));
    if (png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr) == 0) {
        return {};
    }
    return pixels;
}

using RenderPicturesTest = RenderFixture;

TEST_F(RenderPicturesTest, FindsResourcesInTheFolderOnlyAsSmallRegularPngFiles) {
    const fs::path root = fs::temp_directory_path() / ("render_res_" + std::to_string(getpid()));
    const fs::path folder = root / "res";
    fs::create_directories(folder / "folder.png");
    WriteFile(folder / "known.png", kPngSignature + "known");
    WriteFile(folder / "big.png", kPngSignature + std::string(200, 'x'));
    WriteFile(folder / "notpng.png", "GIF89a");
    WriteFile(root / "outside.png", kPngSignature + "outside");
    LiveViewRender::RenderOptions options;
    options.resourceDir = folder.string();
    options.maxResourceBytes = 100;

    struct Row {
        const char* resource;
        bool inFolder;
        std::string expected;
    };
    const std::string knownUri = "src=\"data:image/png;base64,iVBORw0KGgprbm93bg==\"";
    const std::vector<Row> rows = {
        {"res://known", true, "alt=\"known\" data-res=\"res://known\" " + knownUri},
        {"known", true, knownUri},
        {"res://known", false, "placeholder pic-xs\" data-part=\"icon\" title=\"known\""},
        {"res://missing", true, "title=\"missing\" data-res=\"res://missing\">m<"},
        {"res://notpng", true, "title=\"notpng\""},
        {"res://folder", true, "title=\"folder\""},
        {"res://big", true, "title=\"big\""},
        {"res://../outside", true, "title=\"../outside\""},
        {"res://", true, "title=\"res://\""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.resource) + (row.inFolder ? " with the folder" : ""));
        const Presentations drawn =
            Render(CapsuleWithIcon(row.resource, nullptr),
                   row.inFolder ? options : LiveViewRender::RenderOptions{});
        EXPECT_THAT(drawn.capsule, HasSubstr(row.expected));
        EXPECT_EQ(drawn.capsule.find("<img") != std::string::npos,
                  row.expected.find("src=") != std::string::npos);
    }
    fs::remove_all(root);
}

TEST_F(RenderPicturesTest, EncodesEveryPixelFormatAsTheColoursItHolds) {
    using Tavi::Media::PixelFormat;
    struct Row {
        const char* name;
        PixelFormat format;
        std::vector<uint8_t> rgba;
    };
    // ARGB 0x80C0FFEE: red C0, green FF, blue EE, alpha 80; 565 keeps 5, 6 and 5 bits of it.
    const std::vector<Row> rows = {
        {"ARGB_8888", PixelFormat::ARGB_8888, {0xC0, 0xFF, 0xEE, 0x80}},
        {"RGBA_8888", PixelFormat::RGBA_8888, {0xC0, 0xFF, 0xEE, 0x80}},
        {"BGRA_8888", PixelFormat::BGRA_8888, {0xC0, 0xFF, 0xEE, 0x80}},
        {"RGB_565", PixelFormat::RGB_565, {0xC6, 0xFF, 0xEF, 0xFF}},
        {"ALPHA_8", PixelFormat::ALPHA_8, {0, 0, 0, 0x80}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const uint32_t color = 0x80C0FFEE;
        Tavi::Media::InitializationOptions options;
        options.size = {1, 1};
        options.pixelFormat = row.format;
        std::shared_ptr<Tavi::Media::PixelMap> pixels(
            Tavi::Media::PixelMap::Create(&color, 1, options));
        const Presentations drawn = Render(CapsuleWithIcon("", pixels));
        EXPECT_THAT(drawn.capsule, HasSubstr("data-size=\"1x1\""));
        EXPECT_EQ(FirstPicture(drawn.capsule), row.rgba);
    }

    // Too many pixels to encode: a placeholder with the size, and the pixels are never touched.
    const Presentations huge =
        Render(CapsuleWithIcon("", Picture(3000, 3000, PixelFormat::ALPHA_8)));
    EXPECT_THAT(huge.capsule,
                HasSubstr("placeholder pic-xs\" data-part=\"icon\" title=\"3000x3000\""));
}

}  // namespace
}  // namespace RenderTest
