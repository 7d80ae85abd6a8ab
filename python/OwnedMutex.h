#pragma once

#include "python/bindings.h"

#include <atomic>
#include <chrono>
#include <mutex>
#include <stdexcept>
#include <thread>

namespace zelvor::python {

/// For one thread of Python's at a time. Who waits does so without Python's lock, since who holds this one may need
/// that, and sees signals. Who holds it cannot wait for itself: a handler of signals that runs meanwhile has a
/// RuntimeError.
class OwnedMutex {
public:
    void lock() {
        if (m_owner == std::this_thread::get_id())
            throw std::runtime_error("already at work in this thread, which a handler of signals has interrupted");
        while (!m_mutex.try_lock() && !wait())
            if (PyErr_CheckSignals() != 0)
                throw py::error_already_set();
        m_owner = std::this_thread::get_id();
    }
    void unlock() {
        m_owner = std::thread::id();
        m_mutex.unlock();
    }

private:
    bool wait() {
        const py::gil_scoped_release unlocked;
        return m_mutex.try_lock_for(std::chrono::milliseconds(50));
    }

    std::timed_mutex m_mutex;
    std::atomic<std::thread::id> m_owner;
};

} // namespace zelvor::python
