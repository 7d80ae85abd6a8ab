#include "utils/common_utils/object_pool.h"

#include <algorithm>
#include <new>

#include <sys/mman.h>

namespace zelvor {

namespace {

constexpr std::size_t FIRST_BLOCK = 64 * 1024, LARGEST_BLOCK = 2 * 1024 * 1024;

#if defined(__SANITIZE_ADDRESS__)
constexpr bool IN_USE = false;
#elif defined(__has_feature)
constexpr bool IN_USE = !__has_feature(address_sanitizer);
#else
constexpr bool IN_USE = true;
#endif

} // namespace

void* ObjectPool::allocate(std::size_t size) {
    return IN_USE && size == m_object_size ? allocate() : ::operator new(size);
}

void ObjectPool::release(void* pobject, std::size_t size) noexcept {
    if (IN_USE && size == m_object_size)
        release(pobject);
    else
        ::operator delete(pobject, size);
}

void* ObjectPool::allocate() {
    const std::lock_guard lock(m_mutex);
    if (m_preleased) {
        void* const object = m_preleased;
        m_preleased = m_preleased->next;
        return object;
    }
    if (static_cast<std::size_t>(m_pend - m_pnext) < m_object_size)
        add_block();
    void* const object = m_pnext;
    m_pnext += m_object_size;
    return object;
}

void ObjectPool::release(void* pobject) noexcept {
    if (!pobject)
        return;
    const std::lock_guard lock(m_mutex);
    m_preleased = new (pobject) Released{m_preleased};
}

void ObjectPool::add_block() {
    const std::size_t size = std::max(m_object_size, std::clamp(m_block_size * 2, FIRST_BLOCK, LARGEST_BLOCK));
    void* const block = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_POPULATE, -1, 0);
    if (block == MAP_FAILED)
        throw std::bad_alloc();
    m_block_size = size;
    m_pnext = static_cast<std::byte*>(block);
    m_pend = m_pnext + size;
}

} // namespace zelvor
