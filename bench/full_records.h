// Full, valid live view records: every section present and every field set, pictures in both
// forms across the sections, each record passing every check of a start: what the benchmarks
// send. They are built with the tests' section builders (tests/support/record_builders.h).
//
// Thread safety: each call builds a record of its own.
#ifndef LIVE_VIEW_BENCH_FULL_RECORDS_H
#define LIVE_VIEW_BENCH_FULL_RECORDS_H

#include <memory>
#include <vector>

#include "live_view_manager.h"

namespace Tavi {
namespace Wisp {
namespace LiveView {
namespace Builders {

// A layout kind with fields of its own and the capsule kind it is paired with.
struct FullRecordKinds {
    LayoutData::LayoutType layout;
    CapsuleData::CapsuleType capsule;
    const char* layoutName;   // "progress"
    const char* capsuleName;  // "text"
    const char* event;        // the record's event, e.g. "DELIVERY"
};

// Every layout kind with fields of its own, once, paired so that every capsule kind is covered.
const std::vector<FullRecordKinds>& FullRecordKindList();

// A record with common data, a timer, primary data with two rich-text runs, click action and
// immersive fields, an extension with a picture, the layout and capsule of `kinds` with every
// field set, and external data: the section builders of record_builders.h, completed.
std::unique_ptr<LiveView> FullRecord(const FullRecordKinds& kinds, int id);

}  // namespace Builders
}  // namespace LiveView
}  // namespace Wisp
}  // namespace Tavi

#endif  // LIVE_VIEW_BENCH_FULL_RECORDS_H
