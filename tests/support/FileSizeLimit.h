// While it lives, writes to a file beyond so many bytes fail, as they do on a full disk.
#pragma once

#include <csignal>
#include <sys/resource.h>

namespace scenewright::testing {

class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &former_);
        const rlimit limited{bytes, former_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limited);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    FileSizeLimit(FileSizeLimit&&) = delete;
    FileSizeLimit& operator=(FileSizeLimit&&) = delete;
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &former_);
        std::signal(SIGXFSZ, handler_);
    }

private:
    void (*handler_)(int);
    rlimit former_{};
};

} // namespace scenewright::testing
