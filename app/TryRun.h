// A scene tried by touch: each control that sends something is asked for in turn, and what comes in
// is compared with what the scene makes it send. Controls that send nothing are passed over.
//
// A touch may send more than its first message: a knob many, a pad another one when it is let go.
// These are known as such by what they are and when they come. The clock is the caller's. Values;
// any thread.
#pragma once

#include "model/ControlOutput.h"
#include "model/PopUpValue.h"
#include "model/SceneValue.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <tl/expected.hpp>
#include <vector>

namespace scenewright {

class TryRun {
public:
    using Time = std::chrono::steady_clock::time_point;
    // What a controller sends without a pause as long belongs to one touch.
    static constexpr std::chrono::milliseconds kPause{1000};

    enum class Verdict : std::uint8_t {
        Open, // not touched yet
        Right,
        Assumed, // right in all but what is assumed of the keyboard (model/ControlOutput.h)
        Wrong,
        Skipped,
        Silent, // sends nothing, and is passed over
    };
    struct Row {
        std::int32_t control = 0; // control index
        tl::expected<ControlOutput, Silence> expected;
        Verdict verdict = Verdict::Open;
        MidiMessage sent{}; // when it was touched
    };

    explicit TryRun(const SceneValue& scene);

    // All knobs, sliders, pads and keys, in their order.
    [[nodiscard]] const std::vector<Row>& rows() const { return rows_; }
    // The one to be touched now; null at the end.
    [[nodiscard]] const Row* next() const;
    // What has come from the keyboard. The row that it has decided, which next() has been; null for
    // what is no touch, and for the rest of one.
    const Row* take(const MidiMessage& message, Time now);
    void skip();
    // Back to the one before, to be touched again.
    void again();
    // Those that are left stay open.
    void end() { place_ = rows_.size(); }

    [[nodiscard]] std::size_t count(Verdict verdict) const;

private:
    [[nodiscard]] bool isRest(const MidiMessage& message, Time now);
    void passSilent();

    std::vector<Row> rows_;
    std::size_t place_ = 0;
    MidiMessage touch_{}; // the one before; none has a status of 0
    Time lastOfTouch_{};
    bool awaitsOff_ = false; // of a controller's pad or key that may still be held
};

// Each in the person's language. What is to come, "CC 74, ch 1", "note F#2, ch 10"; empty for a
// control that sends nothing.
[[nodiscard]] std::string expectedText(const TryRun::Row& row, const Titles& noteNames);
// "sent CC 74, ch 1, value 93", "sent CC 7, expected CC 74", "skipped"; why nothing is sent; empty
// for an open one.
[[nodiscard]] std::string verdictText(const TryRun::Row& row, const Titles& noteNames);
// "41 right, 1 wrong, 2 skipped, 1 silent"; only what there is of.
[[nodiscard]] std::string reportText(const TryRun& run);

} // namespace scenewright
