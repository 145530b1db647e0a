// Intrusive reference counting for platform objects that are shared across the service boundary
// (requests, boxed values, button options).
//
// Thread safety: the count is atomic, so sptr copies of one object may be made and dropped on
// several threads at once. The pointee itself is not made thread-safe by this.
#ifndef TAVI_UTILS_REFBASE_H
#define TAVI_UTILS_REFBASE_H

#include <atomic>
#include <cstddef>
#include <utility>

namespace Tavi {

// Base of every reference-counted object. An object starts with no strong reference and is
// deleted when its last sptr lets go. Copying an object does not copy its count.
class RefBase {
public:
    RefBase() = default;
    RefBase(const RefBase&) : refs_(0) {}
    RefBase& operator=(const RefBase&) { return *this; }
    virtual ~RefBase() = default;

    void IncStrongRef(const void* objectId = nullptr) const;
    // Deletes the object when the count drops to zero.
    void DecStrongRef(const void* objectId = nullptr) const;
    int GetSptrRefCount() const { return refs_.load(std::memory_order_relaxed); }

private:
    mutable std::atomic<int> refs_{0};
};

inline void RefBase::IncStrongRef(const void*) const {
    refs_.fetch_add(1, std::memory_order_relaxed);
}

inline void RefBase::DecStrongRef(const void*) const {
    if (refs_.fetch_sub(1, std::memory_order_acq_rel) == 1) {
        delete this;
    }
}

// Strong pointer to a RefBase-derived object. Empty by default.
template <typename T>
class sptr {
public:
    sptr() = default;
    sptr(std::nullptr_t) {}
    sptr(T* other) : ptr_(other) { Acquire(); }
    sptr(const sptr& other) : ptr_(other.ptr_) { Acquire(); }
    sptr(sptr&& other) noexcept : ptr_(other.ptr_) { other.ptr_ = nullptr; }
    template <typename U>
    sptr(const sptr<U>& other) : ptr_(other.GetRefPtr()) {
        Acquire();
    }
    ~sptr() { Release(); }

    sptr& operator=(const sptr& other) {
        sptr(other).swap(*this);
        return *this;
    }
    sptr& operator=(sptr&& other) noexcept {
        sptr(std::move(other)).swap(*this);
        return *this;
    }
    sptr& operator=(T* other) {
        sptr(other).swap(*this);
        return *this;
    }

    template <typename... Args>
    static sptr<T> MakeSptr(Args&&... args) {
        return sptr<T>(new T(std::forward<Args>(args)...));
    }

    T* GetRefPtr() const { return ptr_; }
    T* operator->() const { return ptr_; }
    T& operator*() const { return *ptr_; }
    explicit operator bool() const { return ptr_ != nullptr; }
    operator T*() const { return ptr_; }
    void clear() { sptr().swap(*this); }
    void swap(sptr& other) noexcept { std::swap(ptr_, other.ptr_); }

private:
    void Acquire() {
        if (ptr_ != nullptr) {
            ptr_->IncStrongRef(this);
        }
    }
    void Release() {
        if (ptr_ != nullptr) {
            ptr_->DecStrongRef(this);
        }
    }

    T* ptr_ = nullptr;
};

template <typename T, typename U>
bool operator==(const sptr<T>& a, const sptr<U>& b) {
    return a.GetRefPtr() == b.GetRefPtr();
}
template <typename T>
bool operator==(const sptr<T>& a, std::nullptr_t) {
    return a.GetRefPtr() == nullptr;
}
template <typename T>
bool operator!=(const sptr<T>& a, std::nullptr_t) {
    return a.GetRefPtr() != nullptr;
}
template <typename T>
bool operator==(std::nullptr_t, const sptr<T>& a) {
    return a.GetRefPtr() == nullptr;
}
template <typename T>
bool operator!=(std::nullptr_t, const sptr<T>& a) {
    return a.GetRefPtr() != nullptr;
}

}  // namespace Tavi

#endif  // TAVI_UTILS_REFBASE_H
