// Counts the heap allocations of the benchmark program: every global operator new (replaced in
// alloc_counter.cpp) and, while a CJsonCounting object lives, every cJSON allocation.
//
// Thread safety: the counts are per thread, so a benchmark reads only what its own thread did.
#ifndef LIVE_VIEW_BENCH_ALLOC_COUNTER_H
#define LIVE_VIEW_BENCH_ALLOC_COUNTER_H

#include <cstdint>

namespace LiveViewBench {

struct AllocCount {
    uint64_t allocations = 0;  // every counted allocation
    uint64_t bytes = 0;
    uint64_t cjsonAllocations = 0;  // the part made by cJSON
};

// What this thread has allocated since it started.
AllocCount ThreadAllocations();

// While it lives, cJSON allocates through the counter (cJSON_InitHooks). Counting changes how
// cJSON grows and trims its print buffer (no realloc), so timed loops run without it. Memory
// allocated before, during and after is compatible: every hook is malloc and free underneath.
class CJsonCounting {
public:
    CJsonCounting();
    ~CJsonCounting();
    CJsonCounting(const CJsonCounting&) = delete;
    CJsonCounting& operator=(const CJsonCounting&) = delete;
};

}  // namespace LiveViewBench

#endif  // LIVE_VIEW_BENCH_ALLOC_COUNTER_H
