# The libraries that are header files alone. They are found as files, without the CMake packages that
# some of them bring: those describe one machine, while the headers serve every machine we build for.

# tidewright_headers(<target> <header>)
# Makes the target of the library to which the header belongs.
function(tidewright_headers target header)
    string(MAKE_C_IDENTIFIER "TIDEWRIGHT_${header}_DIR" place)
    string(TOUPPER ${place} place)
    find_path(${place} ${header} REQUIRED)
    mark_as_advanced(${place})
    add_library(${target} INTERFACE IMPORTED GLOBAL)
    target_include_directories(${target} SYSTEM INTERFACE ${${place}})
endfunction()

tidewright_headers(tidewright::asio asio.hpp)
# Without the last of these, how Asio allocates would depend on which standard headers a source file
# includes before it, and what one file allocates another would free the wrong way.
target_compile_definitions(tidewright::asio INTERFACE
    ASIO_STANDALONE ASIO_NO_DEPRECATED ASIO_DISABLE_STD_ALIGNED_ALLOC)
target_link_libraries(tidewright::asio INTERFACE Threads::Threads)

tidewright_headers(fmt::fmt-header-only fmt/format.h)
target_compile_definitions(fmt::fmt-header-only INTERFACE FMT_HEADER_ONLY=1)

tidewright_headers(tidewright::fast_float fast_float/fast_float.h)
