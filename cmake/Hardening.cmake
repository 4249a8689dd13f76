# What is released is compiled as the system's own programs are: with the distribution's flags where
# there is a dpkg to tell them, else with the same flags as they stand here. Builds that do not
# optimise take no part: the C library's checked functions are for those that do.
#
# Left out are flags that turn warnings into errors, as a new compiler's opinion must not keep a user
# from building, optimisation at link time, and the level of optimisation, which is the build type's.
# Debug symbols are functions and lines, which a trace of a crash needs: those of all variables are ten
# times as much to link and to fetch.
if(SCENEWRIGHT_SANITIZE OR NOT CMAKE_BUILD_TYPE MATCHES "^(Release|RelWithDebInfo|MinSizeRel)$")
    return()
endif()

include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

find_program(SCENEWRIGHT_DPKG_ARCHITECTURE dpkg-architecture)
find_program(SCENEWRIGHT_DPKG_BUILDFLAGS dpkg-buildflags)

# The map of paths that dpkg gives is none for a path with blanks: one of our own stands below.
set(SCENEWRIGHT_DPKG_OPTIONS
    "hardening=+all,-format optimize=-lto reproducible=-fixfilepath,-fixdebugpath")

# scenewright_distribution_flags(VARIABLE NAME): what the distribution says for the processor that is
# built for, which need not be this one.
function(scenewright_distribution_flags result name)
    execute_process(
        COMMAND ${CMAKE_COMMAND} -E env "DEB_BUILD_MAINT_OPTIONS=${SCENEWRIGHT_DPKG_OPTIONS}"
            ${SCENEWRIGHT_DPKG_ARCHITECTURE} --force --host-type ${CMAKE_CXX_LIBRARY_ARCHITECTURE}
            --command "${SCENEWRIGHT_DPKG_BUILDFLAGS} --get ${name}"
        OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET
        COMMAND_ERROR_IS_FATAL ANY)
    separate_arguments(flags UNIX_COMMAND "${flags}")
    list(FILTER flags EXCLUDE REGEX "^-(O|g$)")
    set(${result} ${flags} PARENT_SCOPE)
endfunction()

set(preprocess -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
set(compile -fstack-protector-strong)
set(link -Wl,-z,relro -Wl,-z,now)
if(SCENEWRIGHT_DPKG_ARCHITECTURE AND SCENEWRIGHT_DPKG_BUILDFLAGS AND CMAKE_CXX_LIBRARY_ARCHITECTURE)
    scenewright_distribution_flags(preprocess CPPFLAGS)
    scenewright_distribution_flags(compile CXXFLAGS)
    scenewright_distribution_flags(link LDFLAGS)
endif()
# The last two came to the distributions' lists one by one.
list(APPEND compile -g1 -fstack-clash-protection)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|i.86)$")
    list(APPEND compile -fcf-protection)
endif()
list(REMOVE_DUPLICATES compile)
add_compile_options(${preprocess} -ffile-prefix-map=${PROJECT_SOURCE_DIR}=. ${compile})
add_link_options(${link})

# Beside them: what no program calls is left out of it, a fifth of the window's.
add_compile_options(-ffunction-sections -fdata-sections)
add_link_options(-Wl,--gc-sections)

# A program's addresses that move with it stand in a tenth of the room. Debian 12's C library is the
# first that reads them so.
include(CheckLinkerFlag)
check_linker_flag(CXX -Wl,-z,pack-relative-relocs SCENEWRIGHT_PACKS_RELOCATIONS)
if(SCENEWRIGHT_PACKS_RELOCATIONS)
    add_link_options(-Wl,-z,pack-relative-relocs)
endif()
