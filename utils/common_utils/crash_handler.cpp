#include "utils/common_utils/crash_handler.h"

#include <execinfo.h>
#include <ucontext.h>
#include <unistd.h>

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace zelvor {

namespace {

constexpr int MAX_FRAMES = 50;

void* interrupted_instruction([[maybe_unused]] void* ucontext) {
#if defined(__x86_64__)
    static_assert(offsetof(_sig_ucontext, uc_mcontext) == offsetof(ucontext_t, uc_mcontext));
    return reinterpret_cast<void*>(static_cast<_sig_ucontext*>(ucontext)->uc_mcontext.rip);
#elif defined(__aarch64__)
    return reinterpret_cast<void*>(static_cast<ucontext_t*>(ucontext)->uc_mcontext.pc);
#else
    return nullptr;
#endif
}

/// The trace reads the instruction where the fault happened, which may be the fault itself.
void end_at_next_fault() {
    struct sigaction action = {};
    sigemptyset(&action.sa_mask);
    action.sa_handler = [](int) { _exit(1); };
    action.sa_flags = SA_NODEFER;
    sigaction(SIGSEGV, &action, nullptr);
    sigset_t fault;
    sigemptyset(&fault);
    sigaddset(&fault, SIGSEGV);
    pthread_sigmask(SIG_UNBLOCK, &fault, nullptr);
}

} // namespace

void install_error_handler() {
    void* frame;
    backtrace(&frame, 1); // the first call loads a library, which is better done here than in the handler
    struct sigaction action = {};
    sigemptyset(&action.sa_mask);
    action.sa_sigaction = crit_err_hdlr;
    action.sa_flags = SA_RESTART | SA_SIGINFO;
    if (sigaction(SIGSEGV, &action, nullptr) != 0) {
        std::fprintf(stderr, "error setting signal handler for %d (%s)\n", SIGSEGV, strsignal(SIGSEGV));
        std::exit(1);
    }
}

void crit_err_hdlr(int sig_num, siginfo_t* info, void* ucontext) {
    void* const caller_address = interrupted_instruction(ucontext);
    std::fprintf(stderr, "signal %d (%s), address is %p from %p\n", sig_num, strsignal(sig_num), info->si_addr,
                 caller_address);
    end_at_next_fault();
    void* frames[MAX_FRAMES];
    const int count = backtrace(frames, MAX_FRAMES);
    frames[1] = caller_address; // in place of the signal trampoline
    char** const texts = backtrace_symbols(frames, count);
    for (int i = 1; texts && i < count; ++i)
        std::fprintf(stderr, "[bt]: (%d) %s\n", i, texts[i]);
    std::free(texts);
    _exit(1); // not exit(): destructors may crash again, or wait for ever, in a broken process
}

} // namespace zelvor
