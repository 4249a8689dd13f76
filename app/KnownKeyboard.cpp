#include "app/KnownKeyboard.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

// The process's one, kept to its end.
struct Known {
    std::optional<BankImage> image;
    std::string name;
    KnownKeyboard::Naming naming;
    std::vector<std::weak_ptr<const KnownKeyboard::Observer>> observers;
};

Known& known() {
    static Known state;
    return state;
}

void tell() {
    std::erase_if(known().observers, [](const auto& observer) { return observer.expired(); });
    // A copy, as an observer may begin and end observations.
    for (const auto& observer : std::vector(known().observers))
        if (const auto told = observer.lock())
            (*told)();
}

} // namespace

KnownKeyboard::Subscription KnownKeyboard::addObserver(Observer observer) {
    auto added = std::make_shared<const Observer>(std::move(observer));
    known().observers.push_back(added);
    return added;
}

const std::optional<BankImage>& KnownKeyboard::image() {
    return known().image;
}

const std::string& KnownKeyboard::name() {
    return known().name;
}

void KnownKeyboard::set(const BankImage& image, std::string name) {
    if (known().image == image && known().name == name)
        return;
    known().image = image;
    known().name = std::move(name);
    tell();
}

void KnownKeyboard::forget() {
    if (!known().image)
        return;
    known().image.reset();
    known().name.clear();
    tell();
}

void KnownKeyboard::follow(const Outcome& outcome, const BankImage& image) {
    switch (outcome.end) {
    case Outcome::End::Done:
        return set(image, pluggedInName());
    case Outcome::End::Unreliable:
    case Outcome::End::Cancelled:
        return forget();
    case Outcome::End::NotConnected:
    case Outcome::End::NotStarted:
        break;
    }
}

void KnownKeyboard::setNaming(Naming naming) {
    known().naming = std::move(naming);
}

std::string KnownKeyboard::pluggedInName() {
    return known().naming ? known().naming() : std::string();
}

} // namespace scenewright
