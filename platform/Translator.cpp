#include "platform/Translator.h"

#include <atomic>

namespace scenewright {

namespace {

std::atomic<Translator> translatorInPlace = nullptr;

} // namespace

std::string untranslated(SourceText text) {
    return text.written;
}

std::string translated(SourceText text) {
    const Translator translator = translatorInPlace;
    return translator == nullptr ? untranslated(text) : translator(text);
}

void setTranslator(Translator translator) {
    translatorInPlace = translator;
}

std::string format(SourceText text, Translator words, fmt::format_args values) {
    try {
        return fmt::vformat(words(text), values);
    } catch (const fmt::format_error&) {
        return fmt::vformat(text.written, values);
    }
}

} // namespace scenewright
