# Makes METAINFO, what software centres tell of Scenewright, from scenewright.metainfo.xml. Included while
# the tree is configured; a test runs it as a script:
#
#   cmake -D METAINFO=FILE -D PROJECT_VERSION=VERSION [-D SCENEWRIGHT_HOMEPAGE_URL=URL]
#       [-D SCENEWRIGHT_SCREENSHOTS_URL=URL] -P metainfo.cmake
#
# A page or pictures that nobody serves are worse than none: without an address they are left out.

file(READ ${CMAKE_CURRENT_LIST_DIR}/scenewright.metainfo.xml text)
if(NOT SCENEWRIGHT_SCREENSHOTS_URL)
    string(REGEX REPLACE "  <screenshots>.*</screenshots>\n" "" text "${text}")
endif()
if(NOT SCENEWRIGHT_HOMEPAGE_URL)
    string(REGEX REPLACE "  <url type=\"homepage\">[^\n]*\n" "" text "${text}")
endif()
string(CONFIGURE "${text}" text @ONLY)
file(WRITE ${METAINFO} "${text}")
