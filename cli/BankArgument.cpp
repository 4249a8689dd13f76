#include "cli/BankArgument.h"

#include "app/WindowAction.h"
#include "bank/JsonTree.h"
#include "cli/Command.h"
#include "editor/options/PopUpValue.h"
#include "platform/WholeFile.h"

#include <fmt/format.h>

#include <array>
#include <cstdio>
#include <vector>

namespace scenewright {

namespace {

constexpr const char* kStandardInput = "standard input";

FileBytes readStandardInput() {
    std::vector<std::uint8_t> bytes;
    std::array<std::uint8_t, 16384> chunk{};
    while (const std::size_t count = std::fread(chunk.data(), 1, chunk.size(), stdin)) {
        bytes.insert(bytes.end(), chunk.begin(), chunk.begin() + static_cast<long>(count));
        if (bytes.size() > kJsonBytes)
            return {{}, fmt::format("{}: it is longer than {} bytes", kStandardInput, kJsonBytes)};
    }
    if (std::ferror(stdin) != 0)
        return {{}, fmt::format("{} could not be read", kStandardInput)};
    return {std::move(bytes), std::nullopt};
}

using Parse = BankFile (*)(std::span<const std::uint8_t> bytes, const std::string& name);

BankFile load(const std::string& name, Parse parse) {
    FileBytes file = isStream(name) ? readStandardInput() : readWholeFile(name, kJsonBytes);
    if (file.trouble)
        return {{}, std::move(file.trouble)};
    return parse(file.bytes, isStream(name) ? kStandardInput : name);
}

} // namespace

bool isStream(std::string_view name) {
    return name == "-";
}

BankFile loadBank(const std::string& name) {
    return load(name, &parseBank);
}

BankFile loadBankOrScene(const std::string& name) {
    return load(name, &parseBankOrScene);
}

BankForm formForArgument(const std::string& name, BankForm streamForm) {
    return isStream(name) ? streamForm : formForName(name);
}

std::optional<std::string> storeBank(const std::string& name, const SceneList& scenes,
                                     BankForm form) {
    const auto lists = WindowAction::InitializePopUp();
    const std::vector<std::uint8_t> bytes = bankBytes(scenes, form, *lists);
    if (!isStream(name))
        return writeWholeFile(name, bytes);
    return printOut({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

std::optional<std::string> whyNotStorable(const std::string& name) {
    return isStream(name) ? std::nullopt : whyNotWritable(name);
}

std::optional<std::string> printOut(std::string_view text) {
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size() || std::fflush(stdout) != 0)
        return "standard output could not be written";
    return std::nullopt;
}

int printAndEnd(std::string_view text, int done) {
    if (const auto trouble = printOut(text))
        return complain(*trouble, kExitUsage);
    return done;
}

} // namespace scenewright
