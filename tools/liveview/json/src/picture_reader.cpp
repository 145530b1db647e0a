#include "picture_reader.h"

#include <filesystem>

#include "picture_files.h"

namespace LiveViewJson {

using Tavi::Media::PixelFormat;
using Tavi::Media::PixelMap;

namespace {

const char* const PICTURE_TYPE = "string | image.PixelMap";

struct FormatName {
    const char* name;
    PixelFormat format;
};

constexpr FormatName FORMATS[] = {
    {"ALPHA_8", PixelFormat::ALPHA_8},     {"RGB_565", PixelFormat::RGB_565},
    {"RGBA_8888", PixelFormat::RGBA_8888}, {"ARGB_8888", PixelFormat::ARGB_8888},
    {"BGRA_8888", PixelFormat::BGRA_8888},
};

const char* const FORMAT_TYPE = "ALPHA_8 | RGB_565 | RGBA_8888 | ARGB_8888 | BGRA_8888";

std::string Resolve(const std::string& baseDir, const std::string& file) {
    std::filesystem::path path(file);
    if (path.is_relative() && !baseDir.empty()) {
        path = std::filesystem::path(baseDir) / path;
    }
    return path.string();
}

std::shared_ptr<PixelMap> ReadFile(const FieldReader& reader, const std::string& file,
                                   const std::string& path, JsonPlace place, PngRead what) {
    // Once the input is unusable no more files are read.
    if (!reader.Context().Usable()) {
        return nullptr;
    }
    const std::string resolved = Resolve(reader.Context().baseDir, file);
    std::shared_ptr<PixelMap> picture;
    std::string reason;
    if (!reader.Context().Pictures().Read(resolved, what, picture, reason)) {
        reader.Context().RefuseAt(place, path + ": picture file " + resolved + ": " + reason);
        return nullptr;
    }
    return picture;
}

// {"width": W, "height": H, "format": F}: a blank picture of that size.
std::shared_ptr<PixelMap> ReadDescription(const FieldReader& pictureReader,
                                          const std::string& path) {
    const auto width = pictureReader.Int("width");
    const auto height = pictureReader.Int("height");
    const auto formatName = pictureReader.String("format");
    Tavi::Media::InitializationOptions options;
    if (formatName != nullptr) {
        options.pixelFormat = PixelFormat::UNKNOWN;
        for (const auto& format : FORMATS) {
            if (*formatName == format.name) {
                options.pixelFormat = format.format;
            }
        }
        if (options.pixelFormat == PixelFormat::UNKNOWN) {
            pictureReader.Fail(pictureReader.Path("format"), FORMAT_TYPE);
            return nullptr;
        }
    }
    options.size = {width == nullptr ? 0 : *width, height == nullptr ? 0 : *height};
    std::shared_ptr<PixelMap> picture = PixelMap::Create(options);
    if (picture == nullptr) {
        pictureReader.Fail(path, "image.PixelMap", RANGE_SUFFIX);
    }
    return picture;
}

Picture ReadItem(const FieldReader& reader, const JsonValue* value, const std::string& path,
                 PngRead what) {
    Picture picture;
    if (value != nullptr && value->IsString()) {
        picture.resource = std::make_shared<std::string>(value->Text());
        return picture;
    }
    const JsonValue* object = reader.Expect(value, JsonType::OBJECT, path, PICTURE_TYPE);
    if (object == nullptr) {
        return picture;
    }
    const FieldReader pictureReader = reader.Nested(object, path, reader.Record());
    const auto file = pictureReader.String("file");
    if (file == nullptr) {
        picture.pixels = ReadDescription(pictureReader, path);
        return picture;
    }
    // A file picture has no size of its own: the other members are left alone.
    for (const char* ignored : {"width", "height", "format"}) {
        pictureReader.Known(ignored);
    }
    picture.pixels = ReadFile(reader, *file, path, object->Place(), what);
    return picture;
}

}  // namespace

Picture ReadPictureValue(const FieldReader& reader, const JsonValue* value,
                         const std::string& path) {
    return ReadItem(reader, value, path, PngRead::PIXELS);
}

Picture ReadPictureMember(const FieldReader& reader, const char* name) {
    return ReadPictureValue(reader, reader.Raw(name), reader.Path(name));
}

void ReadPictureList(const FieldReader& reader, const char* name,
                     std::vector<std::string>& resources,
                     std::vector<std::shared_ptr<PixelMap>>& pixels) {
    const JsonValue* list =
        reader.Member(name, JsonType::ARRAY, std::string("Array<") + PICTURE_TYPE + ">");
    if (list == nullptr) {
        return;
    }
    size_t strings = 0;
    size_t others = 0;
    for (const JsonValue& item : list->Items()) {
        if (item.IsString()) {
            ++strings;
        } else if (!item.IsNull()) {
            ++others;
        }
    }
    // Counted before anything is decoded: a list that validation refuses for its length whatever
    // it holds costs no decoding.
    const PngRead what =
        strings > MAX_LIST_PICTURES || others > MAX_LIST_PICTURES ? PngRead::SIZE : PngRead::PIXELS;
    for (size_t index = 0; index < list->Items().size(); ++index) {
        const JsonValue& item = list->Items()[index];
        if (item.IsNull()) {
            continue;
        }
        const std::string path = reader.Path(name) + "[" + std::to_string(index) + "]";
        const Picture picture = ReadItem(reader, &item, path, what);
        if (picture.resource != nullptr) {
            resources.push_back(*picture.resource);
        } else if (picture.pixels != nullptr) {
            pixels.push_back(picture.pixels);
        }
    }
}

}  // namespace LiveViewJson
