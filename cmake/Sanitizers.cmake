# With SCENEWRIGHT_SANITIZE, everything is compiled for those sanitizers, but for
# what tests/CMakeLists.txt leaves out: the first thing that one of
# them finds ends the program, with a report on standard error and an exit code of its own.
if(NOT SCENEWRIGHT_SANITIZE)
    return()
endif()

add_compile_options(
    -fsanitize=${SCENEWRIGHT_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer -g1)
# Between the sanitizers' own code, g++ takes what is written for what is not.
add_compile_options($<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
add_link_options(-fsanitize=${SCENEWRIGHT_SANITIZE})

# Some tests replace the program's operator new, and so does what clang links for threads, but for a
# program of C. What is allocated is heard of all the same: each of them calls malloc().
if(CMAKE_CXX_COMPILER_ID STREQUAL Clang AND SCENEWRIGHT_SANITIZE STREQUAL thread)
    add_link_options(--driver-mode=gcc)
    link_libraries(stdc++ m)
endif()

# Such programs are large, and these linkers take a fraction of the usual one's time. Newer systems have
# the first in a package of its own, or not at all.
set(linker gold)
if(CMAKE_CXX_COMPILER_ID STREQUAL Clang)
    set(linker lld)
endif()
find_program(SCENEWRIGHT_QUICK_LINKER ld.${linker})
if(SCENEWRIGHT_QUICK_LINKER)
    add_link_options(-fuse-ld=${linker})
endif()

# What every program of such a build tells its sanitizers, however it is run.
add_library(scenewright_sanitizer_words OBJECT tests/support/SanitizerWords.cpp)
