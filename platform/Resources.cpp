#include "platform/Resources.h"

#include "platform/Process.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <deque>
#include <fcntl.h>
#include <limits>
#include <mutex>
#include <optional>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace scenewright {

namespace {

constexpr std::int64_t kMin = std::numeric_limits<std::int32_t>::min();
constexpr std::int64_t kMax = std::numeric_limits<std::int32_t>::max();

std::int32_t clamped(std::int64_t value) {
    return static_cast<std::int32_t>(std::clamp(value, kMin, kMax));
}

std::optional<std::int32_t> numberOf(double value) {
    if (std::isnan(value))
        return std::nullopt;
    const double inRange = std::clamp(value, static_cast<double>(kMin), static_cast<double>(kMax));
    return static_cast<std::int32_t>(inRange);
}

std::optional<std::int32_t> numberOf(std::string_view text) {
    const std::size_t start = text.find_first_not_of(" \t\n\v\f\r");
    text.remove_prefix(std::min(start, text.size()));
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);
    if (text.empty() || text[0] < '0' || text[0] > '9')
        return std::nullopt;
    std::int64_t value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9')
            break;
        value = std::min(value * 10 + (c - '0'), kMax + 1);
    }
    return clamped(negative ? -value : value);
}

std::string cannotRead(std::string_view name, std::string_view why) {
    return fmt::format("Cannot read {}: {}", name, why);
}

std::string whyNotOpened(const std::filesystem::path& path, int error) {
    std::error_code ignored;
    const bool isLink = std::filesystem::is_symlink(path, ignored);
    return error == ENOENT && isLink ? "it is a link to a file that does not exist"
                                     : systemText(error);
}

// A pipe or a device could make the reader wait for ever: they are opened without waiting, and
// refused.
Result<FileDescriptor> openRegularFile(const std::filesystem::path& path) {
    FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file.isOpen())
        return failure(whyNotOpened(path, errno));
    struct stat status {};
    if (::fstat(file.get(), &status) != 0)
        return failure(systemText());
    if (!S_ISREG(status.st_mode))
        return failure(S_ISDIR(status.st_mode) ? "it is a folder" : "it is not a regular file");
    return file;
}

Result<std::string> readBytes(const FileDescriptor& file) {
    return readFully(file.get(), kPropertyListBytes)
        .map([](const auto& bytes) { return std::string(asText(bytes)); })
        .map_error(&systemText);
}

Result<PropertyValue> parseEitherForm(std::string_view bytes) {
    if (bytes.size() > kPropertyListBytes)
        return failure("it is longer than 16 MiB");
    return bytes.starts_with("bplist00") ? parseBinaryPropertyList(bytes)
                                         : parseXmlPropertyList(bytes);
}

// The lists read last. A program reads each of its few several times, and parses it again only when
// the bytes are others.
class KnownLists {
public:
    Result<PropertyValue> parse(std::string bytes) {
        const std::scoped_lock lock(mutex_);
        const auto known = std::ranges::find(lists_, bytes, &List::bytes);
        if (known != lists_.end())
            return known->value;
        return parseEitherForm(bytes).map([&](PropertyValue value) {
            if (bytes.size() <= kMostBytes) {
                lists_.push_back({std::move(bytes), value});
                if (lists_.size() > kMost)
                    lists_.pop_front();
            }
            return value;
        });
    }
    void forget() {
        const std::scoped_lock lock(mutex_);
        lists_ = {};
    }

private:
    static constexpr std::size_t kMost = 3;
    static constexpr std::size_t kMostBytes = std::size_t{256} * 1024;
    struct List {
        std::string bytes;
        PropertyValue value;
    };
    std::mutex mutex_;
    std::deque<List> lists_; // the latest last
};

} // namespace

bool PropertyValue::isAbsent() const noexcept {
    return std::holds_alternative<std::monostate>(node_);
}
bool PropertyValue::isArray() const noexcept {
    return std::holds_alternative<Array>(node_);
}
bool PropertyValue::isText() const noexcept {
    return std::holds_alternative<std::string>(node_);
}

const PropertyValue& PropertyValue::operator[](std::string_view key) const {
    static const PropertyValue absent;
    const Dictionary* dictionary = std::get_if<Dictionary>(&node_);
    if (dictionary == nullptr)
        return absent;
    const auto entry = dictionary->find(key);
    return entry == dictionary->end() ? absent : entry->second;
}

std::span<const PropertyValue> PropertyValue::elements() const noexcept {
    const Array* array = std::get_if<Array>(&node_);
    return array == nullptr ? std::span<const PropertyValue>() : std::span(*array);
}

std::string_view PropertyValue::text() const noexcept {
    const std::string* text = std::get_if<std::string>(&node_);
    return text == nullptr ? std::string_view() : std::string_view(*text);
}

std::optional<std::int32_t> PropertyValue::number() const noexcept {
    if (const std::int64_t* whole = std::get_if<std::int64_t>(&node_))
        return clamped(*whole);
    if (const double* real = std::get_if<double>(&node_))
        return numberOf(*real);
    return numberOf(text());
}

std::int32_t PropertyValue::integer() const noexcept {
    if (const bool* flag = std::get_if<bool>(&node_))
        return *flag ? 1 : 0;
    return number().value_or(0);
}

Result<PropertyValue> parsePropertyList(std::string_view bytes, std::string_view name) {
    return parseEitherForm(bytes).map_error(
        [&](const std::string& why) { return cannotRead(name, why); });
}

namespace {

KnownLists& knownLists() {
    static KnownLists known;
    return known;
}

} // namespace

Result<PropertyValue> readPropertyList(const std::filesystem::path& path) {
    return openRegularFile(path)
        .and_then(readBytes)
        .and_then([](std::string bytes) { return knownLists().parse(std::move(bytes)); })
        .map_error([&](const std::string& why) { return cannotRead(path.string(), why); });
}

namespace {

namespace fs = std::filesystem;

constexpr const char* kProductFolder = "scenewright";

fs::path& givenFolder() {
    static fs::path folder;
    return folder;
}

// Nothing for a variable that is not set or gives no absolute path.
std::optional<fs::path> environmentPath(const char* variable) {
    const char* const value = std::getenv(variable);
    return value != nullptr && *value == '/' ? std::optional<fs::path>(value) : std::nullopt;
}

// Empty when the system does not tell.
fs::path programFolder() {
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).parent_path();
}

bool isThere(const fs::path& file) {
    std::error_code error;
    return fs::exists(fs::symlink_status(file, error));
}

} // namespace

std::optional<fs::path> xdgFolder(XdgFolder folder, std::string_view name) {
    const fs::path inside =
        name.empty() ? fs::path(kProductFolder) : fs::path(kProductFolder) / name;
    const bool isConfig = folder == XdgFolder::Config;
    if (const auto given = environmentPath(isConfig ? "XDG_CONFIG_HOME" : "XDG_STATE_HOME"))
        return *given / inside;
    if (const auto home = environmentPath("HOME"))
        return *home / (isConfig ? ".config" : ".local/state") / inside;
    return std::nullopt;
}

void Resources::setFolder(fs::path folder) {
    givenFolder() = std::move(folder);
}

std::vector<fs::path> Resources::searchPath() {
    std::vector<fs::path> folders;
    if (!givenFolder().empty())
        folders.push_back(givenFolder());
    if (const auto folder = userFolder())
        folders.push_back(*folder);
    if (const fs::path folder = programFolder(); !folder.empty())
        folders.push_back(folder.parent_path() / "share" / kProductFolder);
    return folders;
}

std::optional<fs::path> Resources::userFolder() {
    return xdgFolder(XdgFolder::Config);
}

std::optional<fs::path> Resources::find(std::string_view name, std::string_view type) {
    return findFirst({&name, 1}, type);
}

std::optional<fs::path> Resources::findFirst(std::span<const std::string_view> names,
                                             std::string_view type) {
    for (const fs::path& folder : searchPath())
        for (const std::string_view name : names)
            if (fs::path file = folder / fmt::format("{}.{}", name, type); isThere(file))
                return file;
    return std::nullopt;
}

std::vector<fs::path> Resources::findAll(std::string_view name, std::string_view type) {
    std::vector<fs::path> files;
    for (const fs::path& folder : searchPath()) {
        if (fs::path file = folder / fmt::format("{}.{}", name, type); isThere(file))
            files.push_back(std::move(file));
        if (!files.empty() && folder == givenFolder())
            break;
    }
    return files;
}

Result<PropertyValue> Resources::read(std::string_view name) {
    const std::optional<fs::path> file = find(name, "plist");
    if (!file)
        return failure(fmt::format("{}.plist: not found among the program's resources", name));
    return readPropertyList(*file);
}

PropertyValue Resources::load(std::string_view name) {
    return read(name).value_or(PropertyValue());
}

void Resources::forgetLists() {
    knownLists().forget();
}

} // namespace scenewright
