// Takes the pictures of the window that the documentation shows: one of the editor, one of each
// pane, and those of GuidePictures.h. `scenewright-screenshots FOLDER [--dark] [--size
// WIDTHxHEIGHT] [--modes]
// [--language LANGUAGE] [--situations]`; with --modes one more of each display mode, with
// --situations those of Situations.h.
#include "app/WindowAction.h"
#include "editor/ControlDescription.h"
#include "editor/qt/DeviceCommands.h"
#include "editor/qt/EditorCommands.h"
#include "editor/qt/MainWindow.h"
#include "editor/qt/QtHelpers.h"
#include "editor/qt/Theme.h"
#include "platform/Arguments.h"
#include "protocol/SceneImage.h"
#include "tests/editor-qt/GuidePictures.h"
#include "tests/editor-qt/Situations.h"
#include "usb/Transport.h"
#include "virtual/VirtualHost.h"

#include <QApplication>
#include <fmt/format.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <iostream>

namespace scenewright {

namespace {

struct Order {
    std::string folder;
    std::string size;
    std::string language;
    bool isDark = false;
    bool wantsModes = false;
    bool wantsSituations = false;
};

// One control of each kind, with the name of its pane's picture.
constexpr std::array<std::pair<std::int32_t, const char*>, 6> kPanes{
    {{0, "common"}, {1, "group"}, {5, "knob"}, {9, "slider"}, {14, "pad"}, {23, "key"}}};

void connectVirtualController() {
    WindowAction::getSceneValue();
    BankImage bank{};
    auto place = bank.begin();
    for (const auto& scene : WindowAction::scenes())
        place = std::ranges::copy(encodeScene(*scene), place).out;
    Transport::instance().use(makeVirtualHost(std::make_shared<VirtualController>(bank)),
                              [](std::chrono::nanoseconds) {});
}

bool keep(const QPixmap& picture, const Order& order, const std::string& name) {
    const auto path = fmt::format("{}/{}.png", order.folder, name);
    const bool isKept = picture.save(QString::fromStdString(path), "PNG");
    if (!isKept)
        fmt::print(stderr, "scenewright-screenshots: {}: cannot be written\n", path);
    return isKept;
}

// The pane of a kind of control, without the room that it leaves free.
QPixmap pictureOf(MainWindow& window, ControlKind kind) {
    constexpr int kMargin = 8;
    PaneFrame& pane = window.panes().pane(kind);
    QRect used;
    for (const QWidget* field : pane.findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        if (field->isVisible())
            used |= field->geometry();
    return pane.grab(used.marginsAdded({kMargin, kMargin, kMargin, kMargin}) & pane.rect());
}

bool keepPanes(MainWindow& window, const Order& order) {
    for (const auto& [control, name] : kPanes) {
        if (control == 0)
            window.scenes().segment(0).click();
        else
            window.picture().button(control)->click();
        QApplication::processEvents();
        if (!keep(pictureOf(window, controlRangeOf(control)->kind), order, name))
            return false;
    }
    return true;
}

bool keepModes(MainWindow& window, const Order& order) {
    for (std::int32_t mode = 0; mode < window.displayModes().count(); ++mode) {
        window.displayModes().selectItem(mode);
        window.view().changeDispalyAction(window.displayModes());
        if (!keep(window.grab(), order, fmt::format("mode-{}", mode)))
            return false;
    }
    return true;
}

int takeAll(const Order& order) {
    const MainLoop loop;
    const Translation translation(QLocale(QString::fromStdString(order.language)));
    Appearance appearance;
    applyTheme(order.isDark);
    connectVirtualController();
    QuitController quit;
    MainWindow window(quit, appearance, true);
    picturedDevices = {{.port = "1-1", .ids = deviceList().at(0)}};
    EditorCommands commands(window, order.wantsSituations ? std::make_shared<Keyboards>(
                                                                "", [] { return picturedDevices; })
                                                          : nullptr);
    commands.useVirtual();
    // Also on a screen that is smaller, as the one in memory is.
    const QStringList sides = QString::fromStdString(order.size.empty() ? "1180x720" : order.size)
                                  .split(QLatin1Char('x'));
    window.resize(sides.value(0).toInt(), sides.value(1).toInt());
    window.show();
    window.commands().read();
    QApplication::processEvents();
    window.picture().button(14)->click();
    QApplication::processEvents();
    const auto keepOne = [&order](const QPixmap& picture, const std::string& name) {
        return keep(picture, order, name);
    };
    const bool isDone = keepOne(window.grab(), "editor") && keepPanes(window, order) &&
                        keepOne(window.subWindow<GainWindow>().grab(), "gain") &&
                        (!order.wantsModes || keepModes(window, order)) &&
                        keepGuidePictures(window, keepOne) &&
                        (!order.wantsSituations || keepSituations(window, commands, keepOne));
    return isDone ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

} // namespace scenewright

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    using namespace scenewright;
    const Syntax syntax{
        .name = "scenewright-screenshots",
        .help = "Takes the pictures of the documentation.",
        .arguments = {
            {.name = "FOLDER", .help = "Where the pictures go"},
            {.name = "--size", .help = "Size of the window", .value = "WIDTHxHEIGHT"},
            {.name = "--language",
             .help = "Language of the window, as in zh_CN",
             .value = "NAME",
             .byDefault = "en"},
            {.name = "--dark", .help = "In the dark colours", .kind = ArgumentRow::Kind::Flag},
            {.name = "--modes",
             .help = "One picture more of each display mode",
             .kind = ArgumentRow::Kind::Flag},
            {.name = "--situations",
             .help = "One more of each of many situations",
             .kind = ArgumentRow::Kind::Flag}}};
    const auto line = parseArguments(syntax, argc, argv);
    if (!line || line->answer) {
        std::cerr << (line ? *line->answer : line.error() + "\n");
        return line ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    const Arguments& arguments = line->arguments;
    const Order order{.folder = arguments.text("FOLDER"),
                      .size = arguments.text("--size"),
                      .language = arguments.text("--language"),
                      .isDark = arguments.has("--dark"),
                      .wantsModes = arguments.has("--modes"),
                      .wantsSituations = arguments.has("--situations")};
    const QApplication application(argc, argv);
    return scenewright::takeAll(order);
}
