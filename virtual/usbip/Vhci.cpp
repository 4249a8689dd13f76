#include "virtual/usbip/Vhci.h"

#include "virtual/usbip/Exported.h"

#include <fmt/format.h>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/socket.h>
#include <system_error>
#include <unistd.h>

namespace scenewright::usbip {

namespace {

VhciConnection trouble(std::uint32_t port, int error) {
    return {{},
            fmt::format("cannot plug into port {} of the kernel's virtual controller "
                        "(vhci_hcd): {}",
                        port, std::generic_category().message(error))};
}

} // namespace

VhciConnection attachToKernel(std::uint32_t port, std::uint32_t device,
                              const std::filesystem::path& folder) {
    std::array<int, 2> pair{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, pair.data()) != 0)
        return trouble(port, errno);
    FileDescriptor ours(pair[0]);
    const FileDescriptor theirs(pair[1]);
    const FileDescriptor attach(::open((folder / "attach").c_str(), O_WRONLY | O_CLOEXEC));
    if (!attach.isOpen())
        return trouble(port, errno);
    // The kernel takes the socket over by its number in this process.
    const std::string line = fmt::format("{} {} {} {}", port, theirs.get(), device, kFullSpeed);
    if (::write(attach.get(), line.data(), line.size()) != static_cast<ssize_t>(line.size()))
        return trouble(port, errno);
    ::fcntl(ours.get(), F_SETFL, O_NONBLOCK);
    return {std::move(ours), {}};
}

} // namespace scenewright::usbip
