# Read by cpack when it has packed: its packages have the modes that the builder's umask gave to folders
# and to their own parts, and the order in which the file system named the files.

include(${CMAKE_CURRENT_LIST_DIR}/pack.cmake)

foreach(package IN LISTS CPACK_PACKAGE_FILES)
    set(root ${CPACK_TEMPORARY_DIRECTORY}-again)
    file(REMOVE_RECURSE ${root})
    scenewright_run(dpkg-deb --raw-extract ${package} ${root})
    scenewright_pack(${root} ${package})
    file(REMOVE_RECURSE ${root})
endforeach()
