// The live view records that the benchmarks send, and the floor: the same extra-info keys and
// values and the same pictures written straight into fresh maps, with nothing checked.
#ifndef LIVE_VIEW_BENCH_BENCH_RECORDS_H
#define LIVE_VIEW_BENCH_BENCH_RECORDS_H

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "live_view_manager.h"

namespace LiveViewBench {

namespace LV = Tavi::Wisp::LiveView;
using PictureMap = LV::LiveViewParamConversion::PictureMap;

// The full records are numbered 0 .. LAYOUT_KIND_COUNT - 1, one for each layout kind that has
// fields of its own.
constexpr int LAYOUT_KIND_COUNT = 5;

const char* LayoutName(int kindIndex);
// The capsule kind that goes with each layout, so that every capsule kind is covered.
LV::CapsuleData::CapsuleType CapsuleKindFor(int kindIndex);
const char* CapsuleName(LV::CapsuleData::CapsuleType type);

// The full record of kindIndex (full_records.h): every section, every field set.
std::unique_ptr<LV::LiveView> MakeFullRecord(int kindIndex, int id);

// The shared small start record (record_builders.h): primary data with one run and a pickup
// layout with resource strings only.
std::unique_ptr<LV::LiveView> MakeSmallRecord(int id);

// A record whose only section is a timer capsule with status 1, its type, an icon resource string
// and a background colour: its capsule check is dominated by the colour check.
std::unique_ptr<LV::LiveView> MakeColorCapsuleRecord();

// A record whose primary data has a title, a click action and runs rich-text runs of one
// character, all of the same colour.
std::unique_ptr<LV::LiveView> MakeRichTextRecord(int runs);

// The outputs of one section's conversion, as the request pipeline prepares them.
struct Outputs {
    Outputs();
    Tavi::Notification::NotificationRequest request;
    std::shared_ptr<Tavi::Notification::NotificationLiveViewContent> content;
    std::shared_ptr<Tavi::AAFwk::WantParams> extraInfo;
    PictureMap pictureMap;
};

// The request that a start publishes, built by the request pipeline; false when a check fails.
bool ValidateAndConvertForStart(const LV::LiveView& liveView,
                                Tavi::Notification::NotificationRequest& request);

// The floor's plan: every extra-info value as a plain value, and every picture list, taken once
// from what the library wrote for a record.
class FloorPlan {
public:
    FloorPlan(const Tavi::AAFwk::WantParams& extraInfo, const PictureMap& pictureMap);

    // Boxes every value into params and inserts every picture list into pictureMap.
    void Write(Tavi::AAFwk::WantParams& params, PictureMap& pictureMap) const;

    size_t KeyCount() const;

private:
    std::vector<std::pair<std::string, std::string>> strings_;
    std::vector<std::pair<std::string, int>> ints_;
    std::vector<std::pair<std::string, long>> longs_;
    std::vector<std::pair<std::string, bool>> bools_;
    std::vector<std::pair<std::string, Tavi::AAFwk::WantParams>> nested_;
    std::vector<std::pair<std::string, std::vector<std::string>>> stringArrays_;
    std::vector<std::pair<std::string, std::vector<std::shared_ptr<Tavi::Media::PixelMap>>>>
        pictures_;
};

}  // namespace LiveViewBench

#endif  // LIVE_VIEW_BENCH_BENCH_RECORDS_H
