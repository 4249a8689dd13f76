#include "platform/Words.h"

#include <atomic>

namespace scenewright {

namespace {

std::atomic<Words> translatorInPlace = nullptr;

} // namespace

std::string asWritten(OwnText text) {
    return text.written;
}

std::string inLanguage(OwnText text) {
    const Words translator = translatorInPlace;
    return translator == nullptr ? asWritten(text) : translator(text);
}

void setTranslator(Words translator) {
    translatorInPlace = translator;
}

std::string filled(OwnText text, Words words, fmt::format_args values) {
    try {
        return fmt::vformat(words(text), values);
    } catch (const fmt::format_error&) {
        return fmt::vformat(text.written, values);
    }
}

} // namespace scenewright
