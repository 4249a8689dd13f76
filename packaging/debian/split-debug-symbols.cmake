# Read by cpack when the programs are laid out and before they are packed: takes the debug symbols out
# of them, into the package scenewright-dbgsym beside the other one. A debugger finds them by the
# programs' build ids.

include(${CMAKE_CURRENT_LIST_DIR}/pack.cmake)

set(name ${CPACK_PACKAGE_NAME}-dbgsym)
set(version ${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})
set(root ${CPACK_TEMPORARY_DIRECTORY}-dbgsym)
set(prefix ${CPACK_TEMPORARY_INSTALL_DIRECTORY}${CPACK_PACKAGING_INSTALL_PREFIX})
file(REMOVE_RECURSE ${root})

set(build_ids)
file(GLOB programs ${prefix}/bin/* ${prefix}/lib/scenewright/*)
foreach(program IN LISTS programs)
    execute_process(COMMAND ${CPACK_SCENEWRIGHT_READELF} --notes ${program}
        OUTPUT_VARIABLE notes COMMAND_ERROR_IS_FATAL ANY)
    if(NOT notes MATCHES "Build ID: ([0-9a-f][0-9a-f])([0-9a-f]+)")
        message(FATAL_ERROR "${program} has no build id.")
    endif()
    set(symbols ${root}/usr/lib/debug/.build-id/${CMAKE_MATCH_1}/${CMAKE_MATCH_2}.debug)
    string(APPEND build_ids " ${CMAKE_MATCH_1}${CMAKE_MATCH_2}")
    get_filename_component(folder ${symbols} DIRECTORY)
    file(MAKE_DIRECTORY ${folder})
    scenewright_run(${CPACK_SCENEWRIGHT_OBJCOPY} --only-keep-debug --compress-debug-sections
        ${program} ${symbols})
    scenewright_run(chmod 644 ${symbols})
    scenewright_run(${CPACK_SCENEWRIGHT_STRIP} --remove-section=.comment --remove-section=.note ${program})
    scenewright_run(${CPACK_SCENEWRIGHT_OBJCOPY} --add-gnu-debuglink=${symbols} ${program})
endforeach()

# dpkg takes a package's documents from the one that it belongs to.
file(MAKE_DIRECTORY ${root}/usr/share/doc ${root}/DEBIAN)
file(CREATE_LINK ${CPACK_PACKAGE_NAME} ${root}/usr/share/doc/${name} SYMBOLIC)

file(GLOB_RECURSE files RELATIVE ${root} ${root}/usr/lib/*.debug)
set(size 0)
foreach(file IN LISTS files)
    file(MD5 ${root}/${file} sum)
    file(APPEND ${root}/DEBIAN/md5sums "${sum}  ${file}\n")
    file(SIZE ${root}/${file} bytes)
    math(EXPR size "${size} + (${bytes} + 1023) / 1024")
endforeach()

set(architecture ${CPACK_DEBIAN_PACKAGE_ARCHITECTURE})
if(NOT architecture)
    execute_process(COMMAND dpkg --print-architecture
        OUTPUT_VARIABLE architecture OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
endif()
file(WRITE ${root}/DEBIAN/control
"Package: ${name}
Source: ${CPACK_PACKAGE_NAME}
Version: ${version}
Auto-Built-Package: debug-symbols
Architecture: ${architecture}
Maintainer: ${CPACK_DEBIAN_PACKAGE_MAINTAINER}
Installed-Size: ${size}
Depends: ${CPACK_PACKAGE_NAME} (= ${version})
Section: debug
Priority: optional
Description: debug symbols for ${CPACK_PACKAGE_NAME}
Build-Ids:${build_ids}
")
scenewright_pack(${root} ${CPACK_PACKAGE_DIRECTORY}/${name}_${version}_${architecture}.deb)
