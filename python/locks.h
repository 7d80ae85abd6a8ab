#pragma once

#include "python/bindings.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <mutex>
#include <stdexcept>
#include <system_error>
#include <thread>

/// Python's lock, and one that goes with it.
namespace zelvor::python {

/// A scope without Python's lock.
class Unlocked {
public:
    Unlocked() : m_state(PyEval_SaveThread()) {}
    Unlocked(const Unlocked&) = delete;
    Unlocked& operator=(const Unlocked&) = delete;
    ~Unlocked() { resume(); }

    /// Calls use() with the lock, in the thread that has left it.
    template<typename Use>
    auto with_lock(Use use) {
        resume();
        const Leaving leaving{m_state};
        return use();
    }

private:
    struct Leaving {
        PyThreadState*& state;
        ~Leaving() { state = PyEval_SaveThread(); }
    };

    void resume() noexcept { PyEval_RestoreThread(m_state); }

    PyThreadState* m_state;
};

/// Frees what is large, while other threads go on.
struct FreeUnlocked {
    template<typename Object>
    void operator()(Object* object) const {
        const Unlocked unlocked;
        delete object;
    }
};

/// The result of work(unlocked) without Python's lock, again where a signal has interrupted it whose handler raises
/// nothing.
template<typename Work>
auto without_lock(Work work) {
    for (;;) {
        try {
            Unlocked unlocked;
            return work(unlocked);
        } catch (const std::system_error& error) {
            if (error.code().value() != EINTR)
                throw;
        }
        if (PyErr_CheckSignals() != 0)
            throw py::error_already_set();
    }
}

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
        const Unlocked unlocked;
        return m_mutex.try_lock_for(std::chrono::milliseconds(50));
    }

    std::timed_mutex m_mutex;
    std::atomic<std::thread::id> m_owner;
};

} // namespace zelvor::python
