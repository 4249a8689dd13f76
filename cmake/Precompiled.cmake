# Headers that most files of a kind include, compiled once a kind and build. No file depends on it: each
# names its own includes, and all compile with CMAKE_DISABLE_PRECOMPILE_HEADERS=ON.
#
# A kind is a program of its own, as the compiler takes precompiled headers only with the flags that
# they were made with: those of the toolkit's users differ, and those of programs differ from those
# of libraries.
set(scenewright_standard_headers
    <algorithm> <array> <charconv> <chrono> <cstdint> <filesystem> <functional> <map> <memory> <mutex>
    <optional> <span> <string> <string_view> <system_error> <thread> <utility> <vector> <fmt/format.h>
    <fmt/ranges.h> <tl/expected.hpp>)
set(scenewright_window_headers
    <QAction> <QApplication> <QClipboard> <QDialog> <QFileInfo> <QFrame> <QGridLayout> <QHBoxLayout>
    <QImage> <QKeyEvent> <QLabel> <QLineEdit> <QLocale> <QMenu> <QMouseEvent> <QObject> <QPainter>
    <QPixmap> <QPointer> <QPushButton> <QShortcut> <QStringList> <QStyle> <QTimer> <QToolButton>
    <QTreeWidget> <QVBoxLayout> <QWidget>)
file(WRITE ${CMAKE_BINARY_DIR}/precompiled/empty.cpp.new "int main() {}\n")
file(COPY_FILE ${CMAKE_BINARY_DIR}/precompiled/empty.cpp.new
    ${CMAKE_BINARY_DIR}/precompiled/empty.cpp ONLY_IF_DIFFERENT)

# As the other compiler's, they hold no times of files: a copied tree, or a compiler's cache, has others.
if(CMAKE_CXX_COMPILER_ID STREQUAL Clang)
    add_compile_options("SHELL:-Xclang -fno-pch-timestamp")
endif()

# scenewright_precompiled(KIND LIBRARY|PROGRAM HEADERS <a> ... USES lib ...)
function(scenewright_precompiled kind form)
    cmake_parse_arguments(PARSE_ARGV 2 arg "" "" "HEADERS;USES")
    set(owner scenewright_precompiled_${kind})
    if(TARGET ${owner})
        return()
    endif()
    if(form STREQUAL LIBRARY)
        add_library(${owner} STATIC EXCLUDE_FROM_ALL ${CMAKE_BINARY_DIR}/precompiled/empty.cpp)
    else()
        add_executable(${owner} EXCLUDE_FROM_ALL ${CMAKE_BINARY_DIR}/precompiled/empty.cpp)
    endif()
    target_link_libraries(${owner} PRIVATE fmt::fmt tl::expected ${arg_USES})
    scenewright_warnings(${owner})
    target_precompile_headers(${owner} PRIVATE ${scenewright_standard_headers} ${arg_HEADERS})
endfunction()

# Compiles a target with the headers of a kind.
function(scenewright_use_precompiled target kind)
    target_precompile_headers(${target} REUSE_FROM scenewright_precompiled_${kind})
endfunction()
