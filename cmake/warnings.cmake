# Warnings for our own targets; errors only where ZELVOR_WERROR asks for it (the development presets do).
function(zelvor_warnings target)
    # log4cpp and libxml++ 2.6 headers name std::auto_ptr and throw(); a hidden overload
    # of merge() is meant (the three merges take different containers).
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wno-overloaded-virtual
        $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>) # false positives of GCC 12 on string concatenation
    if(ZELVOR_WERROR)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
endfunction()
