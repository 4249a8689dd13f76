// A write that is cut off, or fails, at each of its system calls in turn.
#pragma once

#include "tests/support/TracedProcess.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

namespace scenewright::testing {

struct Writing {
    std::function<void()> prepare; // brings the folder into the state before the write
    std::function<TracedRun(const Blow&)> run;
};

// What became of the write: the run, what was done to it, and the calls of a run left alone.
using AfterBlow =
    std::function<void(const TracedRun&, const Blow&, const std::vector<FileCall>& whole)>;

inline const std::vector<Blow> kPowerCuts{{Blow::Kind::KillBefore}, {Blow::Kind::KillAfter}};
inline const std::vector<Blow> kFailures{{Blow::Kind::Fail, 0, ENOSPC},
                                         {Blow::Kind::Fail, 0, EIO},
                                         {Blow::Kind::Fail, 0, EINTR},
                                         {Blow::Kind::CutShort}};

// The calls that change something, or settle it on the disk, in their order.
inline std::vector<FileCall> changesAmong(const std::vector<FileCall>& calls) {
    constexpr std::array<const char*, 7> kOthers{"stat", "access", "readlink", "read",
                                                 "list", "seek",   "close"};
    std::vector<FileCall> changes;
    std::ranges::copy_if(calls, std::back_inserter(changes), [&](const FileCall& call) {
        return std::ranges::find(kOthers, call.name) == kOthers.end();
    });
    return changes;
}

// Whether the blow leaves the first rename to `target` undone.
inline bool isBeforeRename(const std::vector<FileCall>& calls, const std::string& target,
                           const Blow& blow) {
    const auto found = std::ranges::find_if(calls, [&](const FileCall& call) {
        return call.name == "rename" && call.target == target;
    });
    const auto rename = static_cast<std::size_t>(found - calls.begin());
    return blow.call < rename || (blow.call == rename && blow.kind == Blow::Kind::KillBefore);
}

// Runs the write once for each blow at each call, from the same beginning every time.
inline void strikeEachCall(const Writing& writing, const std::vector<Blow>& blows,
                           const AfterBlow& check) {
    writing.prepare();
    const std::vector<FileCall> whole = writing.run({}).calls;
    ASSERT_GT(changesAmong(whole).size(), 3U);
    for (std::size_t call = 0; call < whole.size(); ++call) {
        for (Blow blow : blows) {
            blow.call = call;
            writing.prepare();
            SCOPED_TRACE(::testing::Message()
                         << "call " << call << " (" << whole[call].name << ' ' << whole[call].path
                         << "), blow " << static_cast<int>(blow.kind) << ", error " << blow.error);
            const TracedRun run = writing.run(blow);
            ASSERT_GT(run.calls.size(), call) << "the blow was not struck";
            check(run, blow, whole);
        }
    }
}

// What all failures have in common: the program lives, and says one line that ends as a sentence
// does, or nothing.
inline void expectOneSentenceOrNone(const TracedRun& run) {
    EXPECT_FALSE(run.isKilled);
    const std::string& said = run.errors;
    const auto lines = std::ranges::count(said, '\n');
    EXPECT_TRUE(lines == 0 || (lines == 1 && said.ends_with('\n'))) << said;
}

} // namespace scenewright::testing
