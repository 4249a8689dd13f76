# The few functions that every folder's CMakeLists.txt uses.

# Warnings that every target of this project compiles under.
function(scenewright_warnings target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wswitch-enum)
    if(SCENEWRIGHT_WERROR)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
endfunction()

# scenewright_module(NAME SOURCES a.cpp ... [USES lib ...] [PRIVATE_USES lib ...])
# One folder, one static library `scenewright_NAME`; includes name the path from the root.
function(scenewright_module name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;USES;PRIVATE_USES")
    set(target scenewright_${name})
    add_library(${target} STATIC ${arg_SOURCES})
    target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR})
    target_link_libraries(${target} PUBLIC ${arg_USES} PRIVATE ${arg_PRIVATE_USES})
    scenewright_warnings(${target})
    if(SCENEWRIGHT_SANITIZE) # what runs most is worth compiling well; the tests themselves are not
        target_compile_options(${target} PRIVATE -O1)
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

# scenewright_test(NAME SOURCES FooTest.cpp ... USES lib ... [LABEL label] [ENVIRONMENT A=b ...])
# One GoogleTest program `NAME-tests`; each of its cases is a ctest case of its own. In an instrumented
# build the program as a whole is one case: starting it takes longer there than most cases do.
function(scenewright_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "LABEL;TIMEOUT" "SOURCES;USES;ENVIRONMENT")
    if(NOT arg_LABEL)
        set(arg_LABEL core)
    endif()
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 60)
    endif()
    add_executable(${name}-tests ${arg_SOURCES})
    target_include_directories(${name}-tests PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name}-tests PRIVATE ${arg_USES} GTest::gtest GTest::gtest_main)
    target_compile_definitions(${name}-tests PRIVATE
        SCENEWRIGHT_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
        SCENEWRIGHT_BINARY_DIR="${PROJECT_BINARY_DIR}")
    scenewright_warnings(${name}-tests)
    scenewright_instrumented(${name}-tests)
    add_dependencies(scenewright_test_programs ${name}-tests)
    if(SCENEWRIGHT_TEST_PREFIX)
        add_test(NAME ${SCENEWRIGHT_TEST_PREFIX}${name} COMMAND ${name}-tests --gtest_brief=1)
        set_tests_properties(${SCENEWRIGHT_TEST_PREFIX}${name} PROPERTIES
            LABELS ${arg_LABEL} TIMEOUT 600 ENVIRONMENT "${arg_ENVIRONMENT}")
        return()
    endif()
    gtest_discover_tests(${name}-tests
        TEST_PREFIX "${name}."
        DISCOVERY_TIMEOUT 60
        PROPERTIES LABELS ${arg_LABEL} TIMEOUT ${arg_TIMEOUT} ENVIRONMENT "${arg_ENVIRONMENT}")
endfunction()
