#pragma once

#include <cstddef>
#include <mutex>
#include <new>

namespace zelvor {

/// Memory for objects of one size that are made by the hundred thousand and mostly stay: carved from blocks of up to
/// 2 MB whose pages are taken from the system at once, since taking them one by one costs more than filling them. What
/// is released is used again, but never given back to the system. Thread-safe; usable before and after main().
class ObjectPool {
public:
    explicit constexpr ObjectPool(std::size_t object_size) : m_object_size(object_size) {}

    /// Uninitialised memory, aligned for pointers and numbers; throws std::bad_alloc.
    void* allocate();
    /// Takes back what allocate() gave; null is allowed.
    void release(void* pobject) noexcept;

    /// The same for objects of any size: others than this pool's come from the heap, and so do all when addresses are
    /// checked, since the checks need to see every object by itself.
    void* allocate(std::size_t size);
    void release(void* pobject, std::size_t size) noexcept;

private:
    struct Released {
        Released* next;
    };
    void add_block();

    std::mutex m_mutex;
    std::size_t m_object_size; ///< a multiple of a pointer's size
    std::size_t m_block_size = 0;
    std::byte* m_pnext = nullptr;
    std::byte* m_pend = nullptr;
    Released* m_preleased = nullptr;
};

/// A base for a class T whose objects are made by the hundred thousand: new and delete of a T use a pool. All forms of
/// new work; arrays, derived classes and what is more strictly aligned come from the heap.
template<typename T>
class Pooled {
public:
    static void* operator new(std::size_t size) { return m_pool.allocate(size); }
    static void* operator new(std::size_t size, std::align_val_t alignment) { return ::operator new(size, alignment); }
    static void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
        try {
            return m_pool.allocate(size);
        } catch (const std::bad_alloc&) {
            return nullptr;
        }
    }
    static void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t& tag) noexcept {
        return ::operator new(size, alignment, tag);
    }
    static void* operator new(std::size_t, void* pplace) noexcept { return pplace; }
    static void operator delete(void* pobject, std::size_t size) noexcept { m_pool.release(pobject, size); }
    static void operator delete(void* pobject, std::size_t size, std::align_val_t alignment) noexcept {
        ::operator delete(pobject, size, alignment);
    }
    // After a constructor that throws. How large the object was is not told, and so not where it came from: it is lost.
    static void operator delete(void*, const std::nothrow_t&) noexcept {}
    static void operator delete(void* pobject, std::align_val_t alignment, const std::nothrow_t& tag) noexcept {
        ::operator delete(pobject, alignment, tag);
    }
    static void operator delete(void*, void*) noexcept {}

private:
    static inline constinit ObjectPool m_pool{sizeof(T)};
};

} // namespace zelvor
