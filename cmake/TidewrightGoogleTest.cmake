# GoogleTest: the installed one, or built from its sources with the compiler at hand.

if(TIDEWRIGHT_GOOGLETEST)
    add_subdirectory(${TIDEWRIGHT_GOOGLETEST} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
else()
    find_package(GTest REQUIRED)
endif()
