#include "alloc_counter.h"

#include <cjson/cJSON.h>

#include <cstddef>
#include <cstdlib>
#include <new>

namespace LiveViewBench {
namespace {

// Plain thread-locals: no atomics, so counting adds only a couple of instructions to each
// allocation of the measured code.
thread_local uint64_t t_allocations = 0;
thread_local uint64_t t_bytes = 0;
thread_local uint64_t t_cjsonAllocations = 0;

void Count(std::size_t size) {
    ++t_allocations;
    t_bytes += size;
}

void* Allocate(std::size_t size) {
    Count(size);
    // malloc(0) may answer null; operator new must not.
    void* p = std::malloc(size == 0 ? 1 : size);
    if (p == nullptr) {
        throw std::bad_alloc();
    }
    return p;
}

void* AllocateNoThrow(std::size_t size) noexcept {
    Count(size);
    return std::malloc(size == 0 ? 1 : size);
}

void* AllocateAligned(std::size_t size, std::align_val_t alignment) {
    Count(size);
    const std::size_t align = static_cast<std::size_t>(alignment);
    // aligned_alloc wants a size that is a multiple of the alignment.
    const std::size_t rounded = (size + align - 1) / align * align;
    void* p = std::aligned_alloc(align, rounded == 0 ? align : rounded);
    if (p == nullptr) {
        throw std::bad_alloc();
    }
    return p;
}

void* AllocateAlignedNoThrow(std::size_t size, std::align_val_t alignment) noexcept {
    try {
        return AllocateAligned(size, alignment);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void* CJsonMalloc(std::size_t size) {
    Count(size);
    ++t_cjsonAllocations;
    return std::malloc(size);
}

}  // namespace

AllocCount ThreadAllocations() {
    return AllocCount{t_allocations, t_bytes, t_cjsonAllocations};
}

CJsonCounting::CJsonCounting() {
    cJSON_Hooks hooks{};
    hooks.malloc_fn = CJsonMalloc;
    hooks.free_fn = std::free;
    cJSON_InitHooks(&hooks);
}

CJsonCounting::~CJsonCounting() {
    // Back to malloc, free and realloc.
    cJSON_InitHooks(nullptr);
}

}  // namespace LiveViewBench

// The replaceable global allocation functions ([new.delete]): every form routes to the counter.

void* operator new(std::size_t size) {
    return LiveViewBench::Allocate(size);
}
void* operator new[](std::size_t size) {
    return LiveViewBench::Allocate(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return LiveViewBench::AllocateNoThrow(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return LiveViewBench::AllocateNoThrow(size);
}
void* operator new(std::size_t size, std::align_val_t alignment) {
    return LiveViewBench::AllocateAligned(size, alignment);
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
    return LiveViewBench::AllocateAligned(size, alignment);
}
void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
    return LiveViewBench::AllocateAlignedNoThrow(size, alignment);
}
void* operator new[](std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
    return LiveViewBench::AllocateAlignedNoThrow(size, alignment);
}

void operator delete(void* p) noexcept {
    std::free(p);
}
void operator delete[](void* p) noexcept {
    std::free(p);
}
void operator delete(void* p, std::size_t) noexcept {
    std::free(p);
}
void operator delete[](void* p, std::size_t) noexcept {
    std::free(p);
}
void operator delete(void* p, const std::nothrow_t&) noexcept {
    std::free(p);
}
void operator delete[](void* p, const std::nothrow_t&) noexcept {
    std::free(p);
}
void operator delete(void* p, std::align_val_t) noexcept {
    std::free(p);
}
void operator delete[](void* p, std::align_val_t) noexcept {
    std::free(p);
}
void operator delete(void* p, std::size_t, std::align_val_t) noexcept {
    std::free(p);
}
void operator delete[](void* p, std::size_t, std::align_val_t) noexcept {
    std::free(p);
}
void operator delete(void* p, std::align_val_t, const std::nothrow_t&) noexcept {
    std::free(p);
}
void operator delete[](void* p, std::align_val_t, const std::nothrow_t&) noexcept {
    std::free(p);
}
