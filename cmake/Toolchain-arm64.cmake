# Builds for 64-bit ARM on a Debian of another processor, with that system's cross compiler and with the
# libraries of the foreign architecture, which lie beside the machine's own:
#
#   dpkg --add-architecture arm64
#   packaging/install-packages build cross
#   apt-get install $(awk '$1 == "arm64" { print $2 ":arm64" }' packaging/packages.txt)
#   packaging/build-preset arm64
#
# tests/systems/run arm64 does all of it from nothing. What is built runs through the user emulation of
# qemu, which finds the foreign C library where every Debian has it.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-aarch64)

# dpkg's tools, the package's name and its dependencies go by these.
set(ENV{DEB_HOST_ARCH} arm64)
set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE arm64)

set(ENV{PKG_CONFIG_LIBDIR} /usr/lib/aarch64-linux-gnu/pkgconfig:/usr/share/pkgconfig)

# Qt's programs that the build runs are the machine's own.
execute_process(COMMAND dpkg-architecture -q DEB_BUILD_MULTIARCH
    OUTPUT_VARIABLE build_machine OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
set(QT_HOST_PATH /usr)
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/${build_machine}/cmake)
set(Qt6LinguistTools_DIR ${QT_HOST_PATH_CMAKE_DIR}/Qt6LinguistTools)
