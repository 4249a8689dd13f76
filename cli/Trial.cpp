#include "cli/Trial.h"

#include "model/Control.h"
#include "platform/Text.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <utility>

namespace scenewright {

namespace {

using Verdict = TryRun::Verdict;

constexpr std::string_view wordOf(Verdict verdict) {
    switch (verdict) {
    case Verdict::Open:
        return "open";
    case Verdict::Right:
        return "right";
    case Verdict::Assumed:
        return "assumed";
    case Verdict::Wrong:
        return "wrong";
    case Verdict::Skipped:
        return "skipped";
    case Verdict::Silent:
        return "silent";
    }
    return "";
}

} // namespace

Trial::Trial(SceneList bank, std::vector<int> scenes, Options options)
    : bank_(std::move(bank)), scenes_(std::move(scenes)), options_(std::move(options)),
      run_(SceneValue()) {
    begin();
    follow();
}

void Trial::take(const MidiMessage& message, Time now) {
    if (!isDone() && run_.take(message, now) != nullptr)
        follow();
}

Result<void> Trial::order(std::string_view line) {
    if (isDone())
        return {};
    if (line == "skip") {
        run_.skip();
    } else if (line == "again") {
        run_.again();
        told_ = std::min(told_, static_cast<std::size_t>(run_.next() - run_.rows().data()));
    } else if (line == "end") {
        run_.end();
        scenes_.resize(place_ + 1);
    } else {
        return failure(
            fmt::format("'{}' is no order: those are skip, again and end", readableText(line)));
    }
    follow();
    return {};
}

std::string Trial::results() {
    return std::exchange(results_, {});
}

std::vector<std::string> Trial::words() {
    return std::exchange(words_, {});
}

void Trial::begin() {
    const int scene = scenes_.at(place_);
    run_ = TryRun(*bank_.at(static_cast<std::size_t>(scene) - 1));
    told_ = 0;
    words_.push_back(fmt::format("choose scene {} on the keyboard", scene));
}

void Trial::follow() {
    for (tellDecided(); run_.next() == nullptr; tellDecided()) {
        hasWrong_ = hasWrong_ || run_.count(Verdict::Wrong) > 0;
        words_.push_back(fmt::format("scene {}: {}", scenes_[place_], reportText(run_)));
        if (++place_ == scenes_.size())
            return;
        begin();
    }
    words_.push_back(fmt::format("touch {}, which should send {}", pathOf(*run_.next()),
                                 expectedText(*run_.next(), options_.noteNames)));
}

void Trial::tellDecided() {
    const auto& rows = run_.rows();
    while (told_ < rows.size() && &rows[told_] != run_.next())
        if (const TryRun::Row& row = rows[told_++]; row.verdict != Verdict::Open)
            results_ += line(row);
}

std::string Trial::line(const TryRun::Row& row) const {
    const std::string text = verdictText(row, options_.noteNames);
    if (!options_.asJson)
        return fmt::format("{:<8} {:<15} {}\n", wordOf(row.verdict), pathOf(row), text);
    nlohmann::ordered_json object;
    object["control"] = pathOf(row);
    object["verdict"] = wordOf(row.verdict);
    if (row.expected)
        object["expected"] = expectedText(row, options_.noteNames);
    object["text"] = text;
    if (row.sent.status != 0) {
        object["status"] = row.sent.status;
        object["data"] = {row.sent.first, row.sent.second};
    }
    return object.dump() + "\n";
}

std::string Trial::pathOf(const TryRun::Row& row) const {
    const ControlRange& range = *controlRangeOf(row.control);
    return fmt::format("scene{}.{}{}", scenes_[place_], range.name, row.control - range.start + 1);
}

} // namespace scenewright
