# Standalone Asio, header only, which comes without a CMake package of its own.

find_path(TIDEWRIGHT_ASIO_INCLUDE_DIR asio.hpp REQUIRED)
add_library(tidewright_asio INTERFACE)
add_library(tidewright::asio ALIAS tidewright_asio)
target_include_directories(tidewright_asio SYSTEM INTERFACE ${TIDEWRIGHT_ASIO_INCLUDE_DIR})
# Without the last of these, how Asio allocates would depend on which standard headers a source file
# includes before it, and what one file allocates another would free the wrong way.
target_compile_definitions(tidewright_asio INTERFACE
    ASIO_STANDALONE ASIO_NO_DEPRECATED ASIO_DISABLE_STD_ALIGNED_ALLOC)
target_link_libraries(tidewright_asio INTERFACE Threads::Threads)
