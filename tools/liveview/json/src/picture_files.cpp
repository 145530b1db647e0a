#include "picture_files.h"

#include "byte_size.h"
#include "picture_reader.h"

namespace LiveViewJson {

using Tavi::Media::PixelMap;

bool PictureFiles::Read(const std::string& path, PngRead what, std::shared_ptr<PixelMap>& picture,
                        std::string& reason) {
    InputFile file;
    FileIdentity identity;
    if (!OpenInputFile(path, MAX_INPUT_FILE_BYTES, file, identity, reason)) {
        return false;
    }
    const auto known = files_.find(identity);
    if (known != files_.end() && (known->second.decoded || what == PngRead::SIZE)) {
        picture = known->second.picture;
        return true;
    }
    // The header first: its size decides whether the pixels may be decoded at all.
    std::shared_ptr<PixelMap> read;
    if (!ReadPng(file.get(), PngRead::SIZE, MAX_PICTURE_DECODED_BYTES, read, reason)) {
        return false;
    }
    if (what == PngRead::PIXELS) {
        const auto bytes = static_cast<uint64_t>(read->GetByteCount());
        if (decodedBytes_ + bytes > MAX_INPUT_DECODED_BYTES) {
            reason = "the pictures of this input would take more than " +
                     ByteSizeText(MAX_INPUT_DECODED_BYTES) + " decoded";
            return false;
        }
        std::rewind(file.get());
        if (!ReadPng(file.get(), PngRead::PIXELS, MAX_PICTURE_DECODED_BYTES, read, reason)) {
            return false;
        }
        decodedBytes_ += bytes;
    }
    files_[identity] = Entry{read, what == PngRead::PIXELS};
    picture = read;
    return true;
}

}  // namespace LiveViewJson
