#include "platform/Resources.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <expat.h>
#include <limits>
#include <locale.h>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <system_error>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace scenewright {

namespace {

// Of elements, those included that are passed over.
constexpr std::size_t kElementLevels = 2 * kPropertyListLevels;

constexpr std::string_view kBlanks = " \t\n\v\f\r";

// The decimal number, or the hexadecimal one behind "0x", between blanks; beyond 64 bits it is the
// nearest number that fits.
std::optional<std::int64_t> integerIn(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    text = text.substr(0, text.find_last_not_of(kBlanks) + 1);
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+'))
        text.remove_prefix(1);
    const bool isHexadecimal = text.starts_with("0x") || text.starts_with("0X");
    text.remove_prefix(isHexadecimal ? 2 : 0);
    std::int64_t value = 0;
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), value, isHexadecimal ? 16 : 10);
    if (text.empty() || text.starts_with('-') || end != text.data() + text.size())
        return std::nullopt;
    if (error == std::errc::result_out_of_range)
        return isNegative ? std::numeric_limits<std::int64_t>::min()
                          : std::numeric_limits<std::int64_t>::max();
    return isNegative ? -value : value;
}

locale_t plainLocale() {
    const locale_t plain = ::newlocale(LC_ALL_MASK, "C", nullptr);
    if (plain == nullptr)
        throw std::bad_alloc();
    return plain;
}

// With a decimal point whatever the user's language is.
std::optional<double> realIn(const std::string& text) {
    static const locale_t plain = plainLocale();
    char* end = nullptr;
    const double value = ::strtod_l(text.c_str(), &end, plain);
    const auto used = static_cast<std::size_t>(end - text.c_str());
    if (used == 0 || text.find_first_not_of(kBlanks, used) != std::string::npos)
        return std::nullopt;
    return value;
}

// Builds the value from the document's elements; one that no property list has is passed over.
class XmlReader {
public:
    // In the encoding that the document declares, or in another.
    Result<PropertyValue> read(std::string_view bytes, const char* encoding = nullptr) {
        const std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> parser(
            XML_ParserCreate(encoding), &XML_ParserFree);
        if (!parser)
            throw std::bad_alloc();
        parser_ = parser.get();
        XML_SetUserData(parser_, this);
        XML_SetElementHandler(parser_, &onBegin, &onEnd);
        XML_SetCharacterDataHandler(parser_, &onCharacters);
        XML_SetEntityDeclHandler(parser_, &onEntity);
        const XML_Status status =
            XML_Parse(parser_, bytes.data(), static_cast<int>(bytes.size()), XML_TRUE);
        if (exception_)
            std::rethrow_exception(exception_);
        if (XML_GetErrorCode(parser_) == XML_ERROR_NO_MEMORY)
            throw std::bad_alloc(); // the document may be right
        if (XML_GetErrorCode(parser_) == XML_ERROR_UNKNOWN_ENCODING)
            return XmlReader().read(bytes, "UTF-8"); // "utf8" is written for it too
        if (status != XML_STATUS_OK || !root_)
            return failure(fault_ == nullptr ? kNoPropertyList : fault_);
        return std::move(*root_);
    }

private:
    // An array or a dictionary that has not ended.
    struct Level {
        PropertyValue::Node node;
        std::optional<std::string> key; // of the entry to come
    };

    // No exception passes through the library, which is written in C.
    template <typename Step>
    static void step(void* self, const Step& run) {
        XmlReader& reader = *static_cast<XmlReader*>(self);
        if (reader.isOver())
            return;
        try {
            run(reader);
        } catch (...) {
            reader.exception_ = std::current_exception();
        }
        if (reader.isOver())
            XML_StopParser(reader.parser_, XML_FALSE);
    }
    static void onBegin(void* self, const XML_Char* name, const XML_Char** /*attributes*/) {
        step(self, [&](XmlReader& reader) { reader.begin(name); });
    }
    static void onEnd(void* self, const XML_Char* name) {
        step(self, [&](XmlReader& reader) { reader.end(name); });
    }
    static void onCharacters(void* self, const XML_Char* text, int length) {
        step(self, [&](XmlReader& reader) {
            reader.text_.append(text, static_cast<std::size_t>(length));
        });
    }
    // A list needs no entities of its own, and they can unfold without end.
    static void onEntity(void* self, const XML_Char*, int, const XML_Char*, int, const XML_Char*,
                         const XML_Char*, const XML_Char*, const XML_Char*) {
        step(self, [](XmlReader& reader) { reader.fail(kNoPropertyList); });
    }

    void begin(std::string_view name) {
        text_.clear();
        if (++depth_ > kElementLevels)
            return fail(kTooDeepList);
        if (name == "array")
            open(PropertyValue::Array());
        else if (name == "dict")
            open(PropertyValue::Dictionary());
    }

    void open(PropertyValue::Node node) {
        if (levels_.size() == kPropertyListLevels)
            return fail(kTooDeepList);
        levels_.emplace_back().node = std::move(node);
    }

    void end(std::string_view name) {
        --depth_;
        if (name == "key")
            takeKey();
        else if (name == "array" || name == "dict")
            close();
        else if (name == "true" || name == "false")
            add(PropertyValue(name == "true"));
        else if (name == "string")
            add(PropertyValue(std::move(text_)));
        else if (name == "integer")
            addNumber(integerIn(text_));
        else if (name == "real")
            addNumber(realIn(text_));
        else if (name == "data" || name == "date")
            add({});
        text_.clear();
    }

    void takeKey() {
        if (levels_.empty() || levels_.back().key ||
            !std::holds_alternative<PropertyValue::Dictionary>(levels_.back().node))
            return fail(kNoPropertyList);
        levels_.back().key = std::move(text_);
    }

    void close() {
        if (levels_.back().key)
            return fail(kNoPropertyList);
        PropertyValue value(std::move(levels_.back().node));
        levels_.pop_back();
        add(std::move(value));
    }

    template <typename Number>
    void addNumber(std::optional<Number> number) {
        if (!number)
            return fail(kNoPropertyList);
        add(PropertyValue(*number));
    }

    void add(PropertyValue value) {
        if (++nodes_ > kPropertyListNodes)
            return fail(kTooManyValues);
        if (levels_.empty()) {
            root_ = std::move(value);
            return;
        }
        Level& level = levels_.back();
        if (auto* array = std::get_if<PropertyValue::Array>(&level.node)) {
            array->push_back(std::move(value));
            return;
        }
        if (!level.key)
            return fail(kNoPropertyList);
        std::get<PropertyValue::Dictionary>(level.node)
            .insert_or_assign(std::move(*level.key), std::move(value));
        level.key.reset();
    }

    void fail(const char* why) { fault_ = why; }
    [[nodiscard]] bool isOver() const { return fault_ != nullptr || exception_; }

    XML_Parser parser_ = nullptr;
    std::vector<Level> levels_;
    std::string text_;
    std::size_t depth_ = 0;
    std::size_t nodes_ = 0;
    std::optional<PropertyValue> root_;
    const char* fault_ = nullptr;
    std::exception_ptr exception_;
};

} // namespace

Result<PropertyValue> parseXmlPropertyList(std::string_view bytes) {
    return XmlReader().read(bytes);
}

} // namespace scenewright
