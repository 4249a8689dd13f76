// The main function of a test program in which no text reaches a person that the translations lack:
// where the program asks for such a text, the test that is running fails. Texts come as written.
#pragma once

#include "platform/Text.h"

namespace scenewright::testing {

// Whether the files in resources/translations have it, under its context.
[[nodiscard]] bool isTranslated(SourceText text);

} // namespace scenewright::testing
