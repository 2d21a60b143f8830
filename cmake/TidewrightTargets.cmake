# How everything of the project is compiled, and the three functions that make its targets.

include(GoogleTest)

add_library(tidewright_compile_options INTERFACE)
target_compile_features(tidewright_compile_options INTERFACE cxx_std_20)
# No fused multiply-add: the simulation gives the same digits on every machine.
target_compile_options(tidewright_compile_options INTERFACE
    -ffp-contract=off -Wall -Wextra -Wpedantic -Wconversion -Wnon-virtual-dtor)
if(CMAKE_SIZEOF_VOID_P EQUAL 4) # so that time goes on after 2038 there too
    target_compile_definitions(tidewright_compile_options INTERFACE
        $<$<PLATFORM_ID:Linux>:_FILE_OFFSET_BITS=64;_TIME_BITS=64>)
endif()
# A release runs for weeks on a network with strangers: make their work hard.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
target_compile_options(tidewright_compile_options INTERFACE
    $<$<CONFIG:Release>:-fstack-protector-strong>
    $<$<AND:$<CONFIG:Release>,$<PLATFORM_ID:Linux>>:-fstack-clash-protection;-D_FORTIFY_SOURCE=2>)
target_link_options(tidewright_compile_options INTERFACE
    $<$<AND:$<CONFIG:Release>,$<PLATFORM_ID:Linux>>:LINKER:-z,relro,-z,now>)
# The same bytes wherever the sources lie.
target_compile_options(tidewright_compile_options INTERFACE
    -fmacro-prefix-map=${PROJECT_SOURCE_DIR}=. -fmacro-prefix-map=${PROJECT_BINARY_DIR}=build
    -fdebug-prefix-map=${PROJECT_SOURCE_DIR}=. -fdebug-prefix-map=${PROJECT_BINARY_DIR}=build)
if(TIDEWRIGHT_WARNINGS_AS_ERRORS)
    target_compile_options(tidewright_compile_options INTERFACE -Werror)
endif()
if(TIDEWRIGHT_SANITIZERS)
    add_compile_options(-fsanitize=${TIDEWRIGHT_SANITIZERS} -fno-omit-frame-pointer
        -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${TIDEWRIGHT_SANITIZERS})
    if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
        add_compile_options(-Wno-maybe-uninitialized) # loses its way in instrumented code
    endif()
    if(TIDEWRIGHT_SANITIZERS MATCHES undefined)
        add_compile_options(-fno-sanitize=vptr) # needs a descriptor where a test has none left
    endif()
    if(TIDEWRIGHT_SANITIZERS MATCHES thread AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
        add_compile_options(-Wno-tsan) # Asio's fences, which its own locks make up for
    endif()
endif()

if(TIDEWRIGHT_FUZZERS)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# tidewright_library(<room> SOURCES <cpp>... [USES <target>...] [HIDES <target>...])
# Makes the library of one room, tidewright::<room>. USES: named in the room's headers; HIDES: used
# in its sources only. A room sees the headers of the rooms it uses and of no other: each one's
# include directory holds nothing but a link to that room's folder.
function(tidewright_library room)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;USES;HIDES")
    set(target tidewright_${room})
    set(door ${PROJECT_BINARY_DIR}/include/${room})
    file(MAKE_DIRECTORY ${door})
    file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${door}/${room} SYMBOLIC)
    add_library(${target} STATIC ${arg_SOURCES})
    add_library(tidewright::${room} ALIAS ${target})
    target_include_directories(${target} PUBLIC ${door})
    target_link_libraries(${target}
        PUBLIC ${arg_USES}
        PRIVATE tidewright_compile_options ${arg_HIDES})
endfunction()

# tidewright_reads_once(<target> <header>...)
# Compiles headers that nearly every source of the target includes ahead of the sources; these still
# include what they use. ccache does the same better, and is confused by it.
function(tidewright_reads_once target)
    if(NOT TIDEWRIGHT_CCACHE)
        target_precompile_headers(${target} PRIVATE ${ARGN})
    endif()
endfunction()

# tidewright_test(<room> SOURCES <cpp>... [USES <target>...])
# Makes the test program of one room; every TEST becomes a CTest case named <room>.<suite>.<test>.
function(tidewright_test room)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;USES")
    set(target tidewright_${room}_tests)
    add_executable(${target} ${arg_SOURCES})
    target_link_libraries(${target} PRIVATE
        tidewright_compile_options tidewright::${room} tidewright_test_support ${arg_USES}
        GTest::gtest_main GTest::gmock)
    tidewright_reads_once(${target} <gmock/gmock.h> <gtest/gtest.h>)
    set(filter)
    if(CMAKE_CROSSCOMPILING) # a test that has the program start itself anew needs no emulator
        set(filter TEST_FILTER -*DeathTest.*)
    endif()
    gtest_discover_tests(${target} ${filter} TEST_PREFIX ${room}. DISCOVERY_TIMEOUT 60
        PROPERTIES TIMEOUT 120)
endfunction()

# tidewright_fuzzer(<subject> SOURCES <cpp>... [USES <target>...])
# Makes the program that tries the inputs of one subject. Usually it replays corpus/<subject>, as the
# CTest case fuzz.<subject>; with TIDEWRIGHT_FUZZERS it is a libFuzzer program that looks for more.
function(tidewright_fuzzer subject)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;USES")
    set(target tidewright_${subject}_fuzzer)
    add_executable(${target} ${arg_SOURCES})
    target_link_libraries(${target} PRIVATE
        tidewright_compile_options tidewright_test_support ${arg_USES})
    if(TIDEWRIGHT_FUZZERS)
        target_sources(${target} PRIVATE search.cpp)
        target_link_options(${target} PRIVATE -fsanitize=fuzzer)
        add_dependencies(tidewright_fuzzers ${target})
    else()
        target_sources(${target} PRIVATE replay.cpp)
        add_test(NAME fuzz.${subject}
            COMMAND ${target} ${CMAKE_CURRENT_SOURCE_DIR}/corpus/${subject})
        set_tests_properties(fuzz.${subject} PROPERTIES TIMEOUT 120)
    endif()
endfunction()
