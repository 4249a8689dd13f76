# What the sources include of the system, compiled once: a mutant's file is then compiled in a fraction
# of the time. Only for the copy that mutants are planted in.
set(system_headers
    <algorithm> <array> <chrono> <cstdint> <filesystem> <fstream> <functional> <map> <memory> <mutex>
    <optional> <ranges> <span> <string> <string_view> <thread> <utility> <vector> <fmt/printf.h>)

function(scenewright_precompile)
    foreach(module model usb protocol options editor)
        target_precompile_headers(scenewright_${module} PRIVATE ${system_headers})
    endforeach()
    target_precompile_headers(scenewright_window PRIVATE ${system_headers} <QtWidgets>)
endfunction()

cmake_language(DEFER CALL scenewright_precompile)
