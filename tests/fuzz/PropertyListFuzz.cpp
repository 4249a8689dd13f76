// Property lists, XML and binary: what is refused is refused in one sentence, what is taken stays
// within the limits, fills records, and comes back the same when it is written as XML.
#include "model/SceneValue.h"
#include "platform/Resources.h"
#include "tests/fuzz/Checks.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace scenewright::fuzz {

namespace {

constexpr std::string_view kName = "some.plist";

void walk(const PropertyValue& value, std::size_t level, std::size_t& nodes) {
    check(level <= kPropertyListLevels, "a list deeper than the limit");
    check(++nodes <= 2 * kPropertyListNodes, "a list of more values than the limit");
    static_cast<void>(value.integer());
    static_cast<void>(value["VID"].integer());
    for (const PropertyValue& element : value.elements())
        walk(element, level + 1, nodes);
    if (const auto* entries = std::get_if<PropertyValue::Dictionary>(&value.node()))
        for (const auto& [key, entry] : *entries)
            walk(entry, level + 1, nodes);
}

// The records that the loaders of the default scene make of any value.
void fillRecords(const PropertyValue& value) {
    static_cast<void>(ButtonAction::GetButtonValueFromDic(value));
    static_cast<void>(CommonAction::GetCommonValueFromDic(value));
}

// The value as XML; what has no form there turns `isWhole` off.
class Writer {
public:
    bool isWhole = true;

    std::string document(const PropertyValue& root) {
        return fmt::format("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">{}"
                           "</plist>",
                           std::visit(*this, root.node()));
    }

    std::string operator()(std::monostate) { return lost(); }
    std::string operator()(bool flag) { return flag ? "<true/>" : "<false/>"; }
    std::string operator()(std::int64_t number) {
        return fmt::format("<integer>{}</integer>", number);
    }
    std::string operator()(double number) {
        return std::isfinite(number) ? fmt::format("<real>{:.17g}</real>", number) : lost();
    }
    std::string operator()(const std::string& text) { return element("string", text); }
    std::string operator()(const PropertyValue::Array& array) {
        std::string inner;
        for (const PropertyValue& value : array)
            inner += std::visit(*this, value.node());
        return fmt::format("<array>{}</array>", inner);
    }
    std::string operator()(const PropertyValue::Dictionary& dictionary) {
        std::string inner;
        for (const auto& [key, value] : dictionary)
            inner += element("key", key) + std::visit(*this, value.node());
        return fmt::format("<dict>{}</dict>", inner);
    }

private:
    std::string lost() {
        isWhole = false;
        return {};
    }
    std::string element(std::string_view name, const std::string& text) {
        if (text.find("\uFFFE") != std::string::npos || text.find("\uFFFF") != std::string::npos)
            return lost();
        std::string escaped;
        for (const char letter : text) {
            if (letter >= '\0' && letter < ' ' && letter != '\t' && letter != '\n')
                return lost();
            if (letter == '<')
                escaped += "&lt;";
            else if (letter == '>')
                escaped += "&gt;";
            else if (letter == '&')
                escaped += "&amp;";
            else
                escaped += letter;
        }
        return fmt::format("<{0}>{1}</{0}>", name, escaped);
    }
};

bool areSame(const PropertyValue& first, const PropertyValue& second);

struct Comparison {
    const PropertyValue& other;

    template <typename Plain>
    bool operator()(const Plain& value) const {
        const auto* const same = std::get_if<Plain>(&other.node());
        return same != nullptr && *same == value;
    }
    bool operator()(const PropertyValue::Array& array) const {
        const auto elements = other.elements();
        return other.isArray() &&
               std::equal(array.begin(), array.end(), elements.begin(), elements.end(), areSame);
    }
    bool operator()(const PropertyValue::Dictionary& dictionary) const {
        const auto* const same = std::get_if<PropertyValue::Dictionary>(&other.node());
        return same != nullptr && std::equal(dictionary.begin(), dictionary.end(), same->begin(),
                                             same->end(), [](const auto& one, const auto& two) {
                                                 return one.first == two.first &&
                                                        areSame(one.second, two.second);
                                             });
    }
};

bool areSame(const PropertyValue& first, const PropertyValue& second) {
    return std::visit(Comparison{second}, first.node());
}

void checkRoundTrip(const PropertyValue& root) {
    Writer writer;
    std::string document = writer.document(root);
    if (!writer.isWhole)
        return;
    if (faultIsPlanted())
        document = writer.document(PropertyValue(std::string("planted")));
    const Result<PropertyValue> again = parsePropertyList(document, kName);
    check(again && areSame(root, *again), "not the same when written as XML");
}

} // namespace

} // namespace scenewright::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace scenewright;
    const Result<PropertyValue> list =
        parsePropertyList(fuzz::textOf(std::span(data, size)), fuzz::kName);
    if (!list) {
        fuzz::checkTrouble(list.error());
        return 0;
    }
    std::size_t nodes = 0;
    fuzz::walk(*list, 0, nodes);
    fuzz::fillRecords(*list);
    fuzz::checkRoundTrip(*list);
    return 0;
}
