#include "cli/Reports.h"

#include "app/DeviceSession.h"
#include "model/ControlOutput.h"
#include "model/Midi.h"
#include "model/SceneValue.h"
#include "model/Setting.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <iterator>
#include <sstream>
#include <string_view>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

constexpr std::size_t kColumnGap = 2;

// Code points: what a title takes on the terminal.
std::size_t width(std::string_view text) {
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char byte) { return (byte & 0xC0) != 0x80; }));
}

std::string padded(std::string_view text, std::size_t columns) {
    std::string line(text);
    line.append(columns - std::min(columns, width(text)), ' ');
    return line;
}

std::vector<std::string> words(std::string_view text) {
    std::istringstream stream{std::string(text)};
    return {std::istream_iterator<std::string>(stream), {}};
}

// One column: its heading, broken into lines no wider than the column needs to be, and its cells.
struct Column {
    std::vector<std::string> heading;
    std::vector<std::string> cells;
    std::size_t columns = 0;
};

// Joins words while they fit, so that a long heading takes lines instead of columns.
void breakHeading(Column& column, const std::vector<std::string>& parts) {
    for (const std::string& part : parts) {
        if (!column.heading.empty() &&
            width(column.heading.back()) + 1 + width(part) <= column.columns)
            column.heading.back() += " " + part;
        else
            column.heading.push_back(part);
    }
}

Column makeColumn(std::string_view heading, std::vector<std::string> cells) {
    Column column{{}, std::move(cells), 0};
    const std::vector<std::string> parts = words(heading);
    for (const std::vector<std::string>& texts : {parts, column.cells})
        for (const std::string& text : texts)
            column.columns = std::max(column.columns, width(text));
    breakHeading(column, parts);
    return column;
}

std::string cellAt(const std::vector<std::string>& cells, std::size_t row) {
    return row < cells.size() ? cells[row] : std::string();
}

std::string tableLine(const std::vector<Column>& columns,
                      const std::vector<std::string> Column::*cells, std::size_t row) {
    std::string line;
    for (const Column& column : columns)
        line += padded(cellAt(column.*cells, row), column.columns + kColumnGap);
    line.erase(line.find_last_not_of(' ') + 1);
    return line + "\n";
}

std::string tableText(const std::vector<Column>& columns, std::size_t rows) {
    std::size_t headingLines = 0;
    for (const Column& column : columns)
        headingLines = std::max(headingLines, column.heading.size());
    std::string text;
    for (std::size_t line = 0; line < headingLines; ++line)
        text += tableLine(columns, &Column::heading, line);
    for (std::size_t row = 0; row < rows; ++row)
        text += tableLine(columns, &Column::cells, row);
    return text;
}

// A value outside its list has no title; its number stands in parentheses, so that nothing hides.
std::string cellText(const PopUpValue& lists, const Setting& setting, const SceneValue& scene,
                     std::int32_t member) {
    std::string title = optionTitle(lists, setting, scene, member);
    return title == kNoTitle ? fmt::format("({})", setting.read(scene, member)) : title;
}

// What the members of the kind send; empty for one that sends nothing.
Column namesColumn(const PopUpValue& lists, const SceneValue& scene, const ControlRange& range) {
    std::vector<std::string> cells;
    for (std::int32_t control = range.start; control < range.end(); ++control) {
        const auto output = controlOutput(scene, control);
        cells.push_back(output ? outputName(lists, *output) : "");
    }
    return makeColumn("Sends", std::move(cells));
}

std::string kindTable(const PopUpValue& lists, const SceneValue& scene, const ControlRange& range,
                      bool hasNames) {
    std::vector<std::string> numbers;
    for (std::int32_t member = 1; member <= range.count; ++member)
        numbers.push_back(std::to_string(member));
    std::vector<Column> columns{makeColumn(kindTitle(range.kind), std::move(numbers))};
    for (const Setting& setting : settings()) {
        if (setting.kind() != range.kind)
            continue;
        std::vector<std::string> cells;
        cells.reserve(static_cast<std::size_t>(range.count));
        for (std::int32_t member = 0; member < range.count; ++member)
            cells.push_back(cellText(lists, setting, scene, member));
        columns.push_back(makeColumn(settingTitle(setting), std::move(cells)));
    }
    if (hasNames && range.kind != ControlKind::Group)
        columns.push_back(namesColumn(lists, scene, range));
    return tableText(columns, static_cast<std::size_t>(range.count));
}

std::string commonTable(const PopUpValue& lists, const SceneValue& scene) {
    Column names;
    Column values;
    for (const Setting& setting : settings()) {
        if (setting.kind() != ControlKind::Common)
            continue;
        names.cells.emplace_back(settingTitle(setting));
        names.columns = std::max(names.columns, width(names.cells.back()));
        values.cells.push_back(cellText(lists, setting, scene, 0));
    }
    return tableText({names, values}, names.cells.size());
}

} // namespace

std::string sceneTable(const PopUpValue& lists, const SceneValue& scene, int number,
                       bool hasNames) {
    std::string text =
        fmt::format("Scene {}: {}\n\n", number, displayName(scene.commonValue()->SceneName()));
    for (const ControlRange& range : kControlRanges) {
        text += range.kind == ControlKind::Common ? commonTable(lists, scene)
                                                  : kindTable(lists, scene, range, hasNames);
        text += "\n";
    }
    return text;
}

std::string sceneTables(const PopUpValue& lists, const SceneList& scenes, int only, bool hasNames) {
    std::string text;
    for (int number = 1; number <= static_cast<int>(scenes.size()); ++number)
        if (only == 0 || only == number)
            text +=
                sceneTable(lists, *scenes[static_cast<std::size_t>(number) - 1], number, hasNames);
    return text;
}

namespace {

bool canBeOpened(const AttachedDevice& device) {
    return device.access != AttachedDevice::Access::NoPermission;
}

std::string paragraph(const PluggedDevice& plugged) {
    const AttachedDevice& device = plugged.device;
    std::string text = fmt::format("Bus {:03} Device {:03}: {:04x}:{:04x} {} {}\n", device.bus,
                                   device.address, device.ids.vendor, device.ids.product,
                                   device.maker.empty() ? "-" : device.maker,
                                   device.name.empty() ? "-" : device.name);
    text += "  port: " + device.port +
            (device.serial.empty() ? "\n" : ", serial number: " + device.serial + "\n");
    text += plugged.isListed
                ? "  listed: yes\n"
                : fmt::format("  listed: no. 'scenewright-cli devices --add {}' adds it.\n",
                              device.port);
    if (canBeOpened(device))
        return text + "  can be opened: yes\n";
    return text + fmt::format("  can be opened: no. {}.\n", causeAndCure(kResultAccess));
}

using Json = nlohmann::ordered_json;

Json textOrNull(bool isThere, const std::string& text) {
    return isThere ? Json(text) : Json();
}

Json object(const PluggedDevice& plugged) {
    const AttachedDevice& device = plugged.device;
    const bool canOpen = canBeOpened(device);
    return {{"bus", device.bus},
            {"address", device.address},
            {"port", device.port},
            {"serial", textOrNull(!device.serial.empty(), device.serial)},
            {"vendorId", device.ids.vendor},
            {"productId", device.ids.product},
            {"manufacturer", device.maker},
            {"name", device.name},
            {"listed", plugged.isListed},
            {"canOpen", canOpen},
            {"cause", textOrNull(!canOpen, causeAndCure(kResultAccess))},
            {"linesToAdd", textOrNull(!plugged.isListed, deviceListLines(device.ids))}};
}

} // namespace

std::string deviceTable(std::span<const PluggedDevice> devices) {
    if (devices.empty())
        return "No USB device with a MIDI streaming interface is plugged in.\n";
    std::string text;
    for (const PluggedDevice& device : devices)
        text += paragraph(device);
    return text;
}

std::string deviceJson(std::span<const PluggedDevice> devices) {
    constexpr int kIndent = 2;
    auto array = Json::array();
    for (const PluggedDevice& device : devices)
        array.push_back(object(device));
    // A device's name is whatever the device says, valid or not.
    return array.dump(kIndent, ' ', false, Json::error_handler_t::replace) + "\n";
}

} // namespace scenewright
