// Writes the seed corpora of the harnesses from the example live views:
//   json_front_end_fuzzer/<name>.json  the example as it is,
//   validate_fuzzer/<name>.bin         the record the front end reads from it,
//   read_back_fuzzer/<name>.bin        the request the embedded service holds once it started,
// the same two binary seeds from the shared full records (every field of every kind set), plus a
// few seeds of hostile shapes that the examples do not have.
//
// Usage: fuzz_seed_writer <folder of example live views> <corpus folder>
#include <algorithm>
#include <climits>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "full_records.h"
#include "fuzz_codec.h"
#include "fuzz_support.h"
#include "live_view_reader.h"

namespace {

using namespace LiveViewFuzz;
namespace fs = std::filesystem;

// A seed must read back as what it was written from: the record or request that the harness
// decodes from it is written again and must give the same bytes.
bool ReadsBackAsWritten(const std::vector<uint8_t>& bytes, bool isRequest) {
    ByteReader in(bytes.data(), bytes.size());
    ByteWriter again;
    if (isRequest) {
        WriteRequest(again, ReadRequest(in));
    } else {
        LiveView liveView;
        ReadLiveView(in, liveView);
        WriteLiveView(again, liveView);
    }
    return again.Bytes() == bytes && in.Remaining() == 0;
}

bool WriteFile(const fs::path& path, const std::vector<uint8_t>& bytes) {
    std::ofstream out(path, std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()),
              static_cast<std::streamsize>(bytes.size()));
    return static_cast<bool>(out);
}

// The request the service holds after the client started liveView; null when it refused it.
sptr<Notification::NotificationRequest> HeldAfterStart(LiveView liveView) {
    FreshHost();
    LiveViewClient client;
    LiveViewClient::LiveViewResult result;
    if (!client.StartLiveView(liveView, result).Succeed()) {
        return nullptr;
    }
    const auto held = Tavi::Host::HeldLiveViews();
    return held.empty() ? nullptr : held.front().request;
}

// A request whose extra info holds rich-text JSON nested depth deep under every rich-text key.
std::vector<uint8_t> DeepRichTextRequest(size_t depth) {
    sptr<Notification::NotificationRequest> request(new Notification::NotificationRequest(3));
    auto content = std::make_shared<Notification::NotificationLiveViewContent>();
    auto extra = std::make_shared<AAFwk::WantParams>();
    const std::string json = std::string(depth, '[') + std::string(depth, ']');
    extra->SetParam(LiveViewConstant::PRIMARY_DATA_CONTENT, AAFwk::String::Box(json));
    extra->SetParam(LiveViewConstant::EXTERNAL_DATA_CONTENT, AAFwk::String::Box(json));
    extra->SetParam(LiveViewConstant::LAYOUT_DATA_LAYOUT_TYPE,
                    AAFwk::Integer::Box(LayoutData::SCORE));
    extra->SetParam(LiveViewConstant::SCORE_LAYOUT_COMPETITION_DESC, AAFwk::String::Box(json));
    content->SetExtraInfo(extra);
    request->SetContent(std::make_shared<Notification::NotificationContent>(content));
    ByteWriter out;
    WriteRequest(out, request);
    return out.Bytes();
}

// A record whose numbers sit at their extremes and whose capsule reports two gigabytes.
std::vector<uint8_t> ExtremeRecord(const LiveView& base) {
    LiveView liveView = base;
    liveView.SetId(std::make_shared<int>(INT_MIN));
    liveView.SetSequence(std::make_shared<int>(INT_MAX));
    auto timer = std::make_shared<LiveViewTimer>();
    timer->SetTime(std::make_shared<long>(LONG_MIN));
    liveView.SetTimer(timer);
    auto capsule = std::make_shared<ProgressCapsule>();
    capsule->SetType(CapsuleData::PROGRESS);
    capsule->SetStatus(std::make_shared<int>(1));
    capsule->SetMax(std::make_shared<int>(INT_MIN));
    Media::InitializationOptions options;
    options.size = {46340, 46340};
    options.pixelFormat = Media::PixelFormat::ALPHA_8;
    capsule->SetIcon(std::shared_ptr<Media::PixelMap>(Media::PixelMap::Create(options)));
    auto data = std::make_shared<LiveViewData>(*base.GetLiveViewData());
    data->SetCapsule(capsule);
    liveView.SetLiveViewData(data);
    ByteWriter out;
    WriteLiveView(out, liveView);
    return out.Bytes();
}

// Writes the record and held-request seeds of liveView under stem; false with the reason on
// stderr when a seed would not read back as written or the record does not start.
bool WriteBinarySeeds(const fs::path& corpus, const std::string& stem, const LiveView& liveView) {
    ByteWriter record;
    WriteLiveView(record, liveView);
    if (!ReadsBackAsWritten(record.Bytes(), false)) {
        std::cerr << stem << ": the record does not read back as written\n";
        return false;
    }
    WriteFile(corpus / "validate_fuzzer" / (stem + ".bin"), record.Bytes());
    const auto request = HeldAfterStart(liveView);
    if (request == nullptr) {
        std::cerr << stem << ": the record does not start\n";
        return false;
    }
    ByteWriter held;
    WriteRequest(held, request);
    if (!ReadsBackAsWritten(held.Bytes(), true)) {
        std::cerr << stem << ": the request does not read back as written\n";
        return false;
    }
    WriteFile(corpus / "read_back_fuzzer" / (stem + ".bin"), held.Bytes());
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: fuzz_seed_writer <folder of example live views> <corpus folder>\n";
        return 2;
    }
    const fs::path examples(argv[1]);
    const fs::path corpus(argv[2]);
    for (const char* name : {"json_front_end_fuzzer", "validate_fuzzer", "read_back_fuzzer"}) {
        fs::create_directories(corpus / name);
    }
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(examples)) {
        if (entry.path().extension() == ".json") {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    LiveView lastRecord;
    for (const fs::path& file : files) {
        const std::string stem = file.stem().string();
        LiveView liveView;
        LiveViewJson::InputError error;
        if (!LiveViewJson::LoadLiveView(file.string(), liveView, error)) {
            std::cerr << error.ToString() << "\n";
            return 1;
        }
        fs::copy_file(file, corpus / "json_front_end_fuzzer" / (stem + ".json"),
                      fs::copy_options::overwrite_existing);
        if (!WriteBinarySeeds(corpus, stem, liveView)) {
            return 1;
        }
        lastRecord = liveView;
    }
    for (const auto& kinds : Builders::FullRecordKindList()) {
        if (!WriteBinarySeeds(corpus, std::string("full-") + kinds.layoutName,
                              *Builders::FullRecord(kinds, 1))) {
            return 1;
        }
    }
    WriteFile(corpus / "read_back_fuzzer" / "rich-text-64-deep.bin", DeepRichTextRequest(64));
    WriteFile(corpus / "read_back_fuzzer" / "rich-text-1001-deep.bin", DeepRichTextRequest(1001));
    if (!files.empty()) {
        WriteFile(corpus / "validate_fuzzer" / "extreme-numbers.bin", ExtremeRecord(lastRecord));
    }
    Tavi::Host::ResetAll();
    return 0;
}
