#include "virtual/usbip/FileDescriptor.h"

#include <unistd.h>

namespace scenewright::usbip {

void FileDescriptor::reset() noexcept {
    if (isOpen())
        ::close(std::exchange(number_, -1));
}

} // namespace scenewright::usbip
