#pragma once

#include <signal.h>

/// What follows a segmentation fault: a report on standard error, and exit status 1.
namespace zelvor {

/// The kernel's record of an interrupted context (x86-64).
struct _sig_ucontext {
    unsigned long uc_flags;
    _sig_ucontext* uc_link;
    stack_t uc_stack;
    sigcontext uc_mcontext;
    sigset_t uc_sigmask;
};

/// Handles SIGSEGV from here on. Ends the process with status 1 where that is refused.
void install_error_handler();

/// The handler: the signal, the address at fault, the instruction that touched it, and at most 49 stack frames from
/// that instruction outwards. A program linked with exported symbols (-rdynamic) has its own functions named. Does not
/// return, runs no destructor, and cannot run once the stack itself has overflowed.
void crit_err_hdlr(int sig_num, siginfo_t* info, void* ucontext);

} // namespace zelvor
