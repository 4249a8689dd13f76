#include "tests/support/KnownTexts.h"

#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace scenewright::testing {

namespace {

using Texts = std::set<std::pair<std::string, std::string>>; // context, text

// As XML escapes it.
std::string unescaped(std::string text) {
    using Escape = std::pair<std::string_view, std::string_view>;
    // The ampersand last: one that it gives begins no other.
    for (const auto& [escape, letter] :
         std::array{Escape{"&lt;", "<"}, Escape{"&gt;", ">"}, Escape{"&quot;", "\""},
                    Escape{"&apos;", "'"}, Escape{"&amp;", "&"}})
        for (auto at = text.find(escape); at != std::string::npos;
             at = text.find(escape, at + letter.size()))
            text.replace(at, escape.size(), letter);
    return text;
}

// The texts of one language's file; another test has all files hold the same ones.
Texts readTexts() {
    const auto bytes =
        readBytes(SCENEWRIGHT_SOURCE_DIR "/resources/translations/scenewright_de.ts");
    const std::string_view file = asText(bytes);
    Texts texts;
    std::string context;
    for (std::size_t at = file.find('<'); at != std::string_view::npos;
         at = file.find('<', at + 1)) {
        const std::size_t end = file.find('>', at);
        const std::string_view tag = file.substr(at, end - at);
        const auto content = [&] {
            return unescaped(std::string(file.substr(end + 1, file.find('<', end) - end - 1)));
        };
        if (tag == "<name")
            context = content();
        else if (tag == "<source")
            texts.emplace(context, content());
    }
    return texts;
}

// One without a context has no words, as a format that is a place alone.
std::string checked(SourceText text) {
    EXPECT_TRUE(*text.context == '\0' || isTranslated(text))
        << text.context << ": " << text.written;
    return text.written;
}

// Before each test, as one may have put another translator in.
class Translating : public ::testing::EmptyTestEventListener {
    void OnTestStart(const ::testing::TestInfo& /*test*/) override { setTranslator(&checked); }
};

} // namespace

bool isTranslated(SourceText text) {
    static const Texts kTexts = readTexts();
    return kTexts.contains({text.context, text.written});
}

} // namespace scenewright::testing

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    ::testing::UnitTest::GetInstance()->listeners().Append( // which owns it from here
        std::make_unique<scenewright::testing::Translating>().release());
    return RUN_ALL_TESTS();
}
