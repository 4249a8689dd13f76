// A disk that does not come back: to be preloaded into a program, whose fsync() then never returns.
#include <unistd.h>

extern "C" int fsync(int /*file*/) {
    for (;;)
        ::pause();
}
