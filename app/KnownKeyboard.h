// What the keyboard is known to hold: from a read whose every byte came from it, from a send whose
// every transfer went well. Nothing is known at the start, and nothing after transfers that failed.
//
// One for the process, as the scene store is. Main thread only.
#pragma once

#include "protocol/Connection.h"
#include "protocol/SceneImage.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace scenewright {

class KnownKeyboard {
public:
    KnownKeyboard() = delete;

    // Told after each change: other bytes, another keyboard, or nothing known any more.
    using Observer = std::function<void()>;
    // An observation, which ends with it.
    using Subscription = std::shared_ptr<const void>;
    [[nodiscard]] static Subscription addObserver(Observer observer);

    [[nodiscard]] static const std::optional<BankImage>& image();
    // Which keyboard it is, in its own words; empty when it said nothing, or nothing is known.
    [[nodiscard]] static const std::string& name();

    static void set(const BankImage& image, std::string name);
    static void forget();

    // After a transaction that was to leave the keyboard and `image` the same. One that reached no
    // keyboard changes nothing.
    static void follow(const Outcome& outcome, const BankImage& image);

    // How the keyboard that is plugged in is called, by whoever knows: Keyboards, or a fixed
    // name for the virtual controller.
    using Naming = std::function<std::string()>;
    static void setNaming(Naming naming);
    // Empty without a naming.
    [[nodiscard]] static std::string pluggedInName();
};

} // namespace scenewright
