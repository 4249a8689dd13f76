# The few functions that every folder's CMakeLists.txt uses.

# Seconds after which a test counts as hung: many times what any takes, also on a machine that is busy.
set(scenewright_limit 1800)

# Warnings that every target of this project compiles under. In C++, g++ leaves signs out of
# conversions.
function(scenewright_warnings target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wswitch-enum
        $<$<CXX_COMPILER_ID:Clang>:-Wno-sign-conversion>)
    if(SCENEWRIGHT_WERROR)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
endfunction()

# scenewright_module(NAME SOURCES a.cpp ... [USES lib ...] [PRIVATE_USES lib ...] [PRECOMPILED kind])
# One folder, one static library `scenewright_NAME`; includes name the path from the root.
function(scenewright_module name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "PRECOMPILED" "SOURCES;USES;PRIVATE_USES")
    if(NOT arg_PRECOMPILED)
        set(arg_PRECOMPILED module)
        scenewright_precompiled(module LIBRARY)
    endif()
    set(target scenewright_${name})
    add_library(${target} STATIC ${arg_SOURCES})
    target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR})
    target_link_libraries(${target} PUBLIC ${arg_USES} PRIVATE ${arg_PRIVATE_USES})
    scenewright_warnings(${target})
    scenewright_use_precompiled(${target} ${arg_PRECOMPILED})
endfunction()

# scenewright_optimised(FILE...): sources that tests run through many thousands of times, which takes an
# instrumented build longer than to optimise them. They do without the precompiled headers, which are
# made with the build's own flags.
function(scenewright_optimised)
    if(CMAKE_BUILD_TYPE STREQUAL Debug)
        set_source_files_properties(${ARGN} PROPERTIES
            COMPILE_OPTIONS -O1 SKIP_PRECOMPILE_HEADERS ON)
    endif()
endfunction()

# In an instrumented build, gives a program what it tells its sanitizers.
function(scenewright_instrumented target)
    if(TARGET scenewright_sanitizer_words)
        target_link_libraries(${target} PRIVATE scenewright_sanitizer_words)
    endif()
endfunction()

# scenewright_program(NAME SOURCES main.cpp ... USES lib ...)
function(scenewright_program name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;USES")
    add_executable(${name} ${arg_SOURCES} ${PROJECT_SOURCE_DIR}/platform/ProgramMain.cpp)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE ${arg_USES})
    target_compile_definitions(${name} PRIVATE SCENEWRIGHT_VERSION="${PROJECT_VERSION}")
    scenewright_warnings(${name})
    scenewright_instrumented(${name})
    install(TARGETS ${name} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endfunction()

# scenewright_test(NAME SOURCES FooTest.cpp ... USES lib ... [LABEL label] [ENVIRONMENT A=b ...]
#     [SHARDS count] [PRECOMPILED kind] [THREADS FooTest.cpp ...])
# One GoogleTest program `NAME-tests`, which is one case NAME of ctest, or several that share its cases
# out, NAME.1 to NAME.count. In a build for the thread sanitizer it has the sources after THREADS
# alone, and nothing is tested without any.
function(scenewright_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "LABEL;SHARDS;PRECOMPILED"
        "SOURCES;USES;ENVIRONMENT;THREADS")
    if(SCENEWRIGHT_SANITIZE STREQUAL thread)
        set(arg_SOURCES ${arg_THREADS})
        set(prefix tsan.)
    endif()
    if(NOT arg_SOURCES)
        return()
    endif()
    if(NOT arg_LABEL)
        set(arg_LABEL core)
    endif()
    if(NOT arg_PRECOMPILED)
        set(arg_PRECOMPILED test)
        scenewright_precompiled(test PROGRAM
            HEADERS <fstream> <gtest/gtest.h> USES GTest::gtest)
    endif()
    add_executable(${name}-tests ${arg_SOURCES})
    target_include_directories(${name}-tests PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name}-tests PRIVATE ${arg_USES} GTest::gtest GTest::gtest_main)
    target_compile_definitions(${name}-tests PRIVATE
        SCENEWRIGHT_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
        SCENEWRIGHT_BINARY_DIR="${PROJECT_BINARY_DIR}")
    scenewright_warnings(${name}-tests)
    scenewright_use_precompiled(${name}-tests ${arg_PRECOMPILED})
    scenewright_instrumented(${name}-tests)
    add_dependencies(scenewright_test_programs ${name}-tests)
    if(NOT arg_SHARDS)
        set(arg_SHARDS 1)
    endif()
    # What takes longest begins first.
    math(EXPR cost "100 * ${arg_SHARDS} - 100")
    foreach(shard RANGE 1 ${arg_SHARDS})
        set(case ${prefix}${name})
        if(arg_SHARDS GREATER 1)
            set(case ${case}.${shard})
        endif()
        math(EXPR index "${shard} - 1")
        add_test(NAME ${case} COMMAND ${name}-tests --gtest_brief=1)
        set_tests_properties(${case} PROPERTIES LABELS ${arg_LABEL} TIMEOUT ${scenewright_limit}
            COST ${cost} ENVIRONMENT
                "GTEST_TOTAL_SHARDS=${arg_SHARDS};GTEST_SHARD_INDEX=${index};${arg_ENVIRONMENT}")
    endforeach()
endfunction()
