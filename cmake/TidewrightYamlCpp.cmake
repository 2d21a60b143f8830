# yaml-cpp: the installed one, or built from its sources with the compiler at hand. Compiled in where
# there is a static library of it, so that the headless program asks nothing more of its machine.

if(TIDEWRIGHT_YAML_CPP)
    foreach(part BUILD_TESTS BUILD_TOOLS BUILD_CONTRIB INSTALL)
        set(YAML_CPP_${part} OFF CACHE BOOL "" FORCE)
    endforeach()
    set(YAML_BUILD_SHARED_LIBS OFF CACHE BOOL "" FORCE)
    add_subdirectory(${TIDEWRIGHT_YAML_CPP} ${PROJECT_BINARY_DIR}/yaml-cpp EXCLUDE_FROM_ALL SYSTEM)
    add_library(tidewright::yaml_cpp ALIAS yaml-cpp)
else()
    tidewright_headers(tidewright::yaml_cpp yaml-cpp/parser.h)
    find_library(TIDEWRIGHT_YAML_CPP_LIBRARY NAMES libyaml-cpp.a yaml-cpp REQUIRED)
    mark_as_advanced(TIDEWRIGHT_YAML_CPP_LIBRARY)
    target_link_libraries(tidewright::yaml_cpp INTERFACE ${TIDEWRIGHT_YAML_CPP_LIBRARY})
endif()
