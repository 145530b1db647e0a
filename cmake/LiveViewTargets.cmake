# One helper per kind of target, so that every library, test, benchmark and fuzzer of the project
# is declared the same way.

# lv_library(NAME SOURCES ... [PUBLIC_INCLUDES ...] [DEPS ...] [PRIVATE_DEPS ...])
function(lv_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;PUBLIC_INCLUDES;DEPS;PRIVATE_DEPS" ${ARGN})
    if(ARG_SOURCES)
        add_library(${name} ${ARG_SOURCES})
        target_include_directories(${name} PUBLIC ${ARG_PUBLIC_INCLUDES})
        target_link_libraries(${name} PUBLIC ${ARG_DEPS} PRIVATE ${ARG_PRIVATE_DEPS})
        target_compile_options(${name} PRIVATE ${LV_WARNINGS})
    else()
        add_library(${name} INTERFACE)
        target_include_directories(${name} INTERFACE ${ARG_PUBLIC_INCLUDES})
        target_link_libraries(${name} INTERFACE ${ARG_DEPS})
    endif()
    add_library(liveview::${name} ALIAS ${name})
endfunction()

# lv_test(NAME SOURCES ... DEPS ...): a GoogleTest program registered with CTest.
function(lv_test name)
    if(NOT LV_BUILD_TESTS)
        return()
    endif()
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPS;LABELS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_DEPS} GTest::gmock GTest::gtest_main Threads::Threads)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests/support)
    target_compile_options(${name} PRIVATE ${LV_WARNINGS})
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES LABELS "${ARG_LABELS}")
endfunction()

# lv_benchmark(NAME SOURCES ... DEPS ...): a Google Benchmark program.
function(lv_benchmark name)
    if(NOT LV_BUILD_BENCHMARKS)
        return()
    endif()
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_DEPS} benchmark::benchmark)
    target_compile_options(${name} PRIVATE ${LV_WARNINGS})
endfunction()

# lv_fuzzer(NAME SOURCES ... DEPS ...): a libFuzzer harness (clang only).
function(lv_fuzzer name)
    if(NOT LV_BUILD_FUZZERS)
        return()
    endif()
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_DEPS})
    target_compile_options(${name} PRIVATE ${LV_WARNINGS} -fsanitize=fuzzer)
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
endfunction()

# lv_use_httplib(TARGET): compiles and links TARGET privately against Debian's cpp-httplib. That
# package is a split build: the header must be compiled with the defines that the shared library
# was built with (pkg-config gives them), or the two disagree on the classes' layout.
function(lv_use_httplib target)
    find_package(PkgConfig REQUIRED)
    pkg_check_modules(HTTPLIB REQUIRED cpp-httplib)
    target_compile_options(${target} PRIVATE ${HTTPLIB_CFLAGS_OTHER})
    target_link_libraries(${target} PRIVATE ${HTTPLIB_LIBRARIES} Threads::Threads)
endfunction()
