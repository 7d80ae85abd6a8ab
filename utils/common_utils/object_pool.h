#pragma once

#include <cstddef>
#include <mutex>

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

    /// The same for a class's operator new and delete. Objects of another size, which are those of derived classes,
    /// come from the heap, and so do all when addresses are checked: the checks need to see every object by itself.
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

} // namespace zelvor
