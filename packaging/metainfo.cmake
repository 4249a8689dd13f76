# Makes METAINFO, what software centres tell of Scenewright, from scenewright.metainfo.xml. Included while
# the tree is configured; a test runs it as a script:
#
#   cmake -D METAINFO=FILE -D PROJECT_VERSION=VERSION -D SCENEWRIGHT_HOMEPAGE=URL
#       [-D SCENEWRIGHT_SCREENSHOTS_URL=URL] -P metainfo.cmake
#
# Pictures that nobody serves are worse than none: without an address they are left out.

file(READ ${CMAKE_CURRENT_LIST_DIR}/scenewright.metainfo.xml text)
if(NOT SCENEWRIGHT_SCREENSHOTS_URL)
    string(REGEX REPLACE "  <screenshots>.*</screenshots>\n" "" text "${text}")
endif()
string(CONFIGURE "${text}" text @ONLY)
file(WRITE ${METAINFO} "${text}")
