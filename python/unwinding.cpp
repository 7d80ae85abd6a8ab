#include <unistd.h>
#include <unwind.h>

/// Where the interpreter has ended while a daemon thread is in code of Python that was called from here (a callback, a
/// __repr__, a finaliser), Python unwinds that thread, and the first destructor on the way would touch objects without
/// Python's lock, or end the process. So such a thread stays where it is until the process is gone: the linker puts
/// this function, which is asked before any destructor or handler runs, in the place of the compiler's own
/// (python/CMakeLists.txt).
// NOLINTBEGIN(bugprone-reserved-identifier, readability-identifier-naming): names of the linker's
extern "C" {
_Unwind_Reason_Code __real___gxx_personality_v0(int version, _Unwind_Action actions, _Unwind_Exception_Class kind,
                                                _Unwind_Exception* exception, _Unwind_Context* context);

_Unwind_Reason_Code __wrap___gxx_personality_v0(int version, _Unwind_Action actions, _Unwind_Exception_Class kind,
                                                _Unwind_Exception* exception, _Unwind_Context* context) {
    if ((actions & _UA_FORCE_UNWIND) != 0) // no exception, but the end of a thread
        for (;;)
            pause();
    return __real___gxx_personality_v0(version, actions, kind, exception, context);
}
}
// NOLINTEND(bugprone-reserved-identifier, readability-identifier-naming)
