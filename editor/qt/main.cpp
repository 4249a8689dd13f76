// The editor's window as a program.
#include "app/Launch.h"
#include "app/StoredScenes.h"
#include "app/WindowAction.h"
#include "editor/qt/DeviceCommands.h"
#include "editor/qt/EditorCommands.h"
#include "editor/qt/MainWindow.h"
#include "editor/qt/MidiPorts.h"
#include "editor/qt/QtHelpers.h"
#include "editor/qt/SceneSheet.h"
#include "editor/qt/Theme.h"
#include "model/PopUpValue.h"
#include "model/SceneValue.h"
#include "platform/Arguments.h"
#include "platform/Diagnostics.h"
#include "platform/Files.h"
#include "platform/Process.h"
#include "platform/Resources.h"
#include "protocol/Transactions.h"
#include "usb/Shutdown.h"
#include "usb/Transport.h"

#include <QApplication>
#include <QLocale>
#include <QPageSize>
#include <fmt/format.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <unistd.h>
#include <utility>
#include <vector>

namespace scenewright {

// Made from command-line.json.
Syntax editorSyntax();

namespace {

constexpr int kExitError = 1;
constexpr int kExitUsage = 2;

int reportError(std::string_view sentence, int exitCode) {
    scenewright::reportError("scenewright", sentence);
    return exitCode;
}

bool hasDisplay() {
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        if (const char* value = std::getenv(name); value != nullptr && *value != '\0')
            return true;
    return false;
}

// While the toolkit opens the display it is held back: it ends the program when it cannot, and then
// one sentence is to be seen, its first. Afterwards it speaks as in any program.
class ToolkitMessages {
public:
    ToolkitMessages() = delete;

    static void hold() { qInstallMessageHandler(&onMessage); }
    static void letGo() { qInstallMessageHandler(nullptr); }

private:
    static void onMessage(QtMsgType type, const QMessageLogContext& /*context*/,
                          const QString& text) {
        if (first_.empty())
            first_ = text.toStdString();
        if (type == QtFatalMsg)
            std::_Exit(reportError("cannot open a window: " + first_, kExitError));
    }

    static inline std::string first_;
};

int printAnswer(const std::string& answer) {
    auto printed = writeStandardOutput(answer);
    if (printed)
        printed = closeStandardOutput();
    return printed ? 0 : reportError(printed.error(), kExitError);
}

// Those of the options, and the file to open.
std::vector<NamedFile> namedFiles(const LaunchOptions& options, const std::string& file,
                                  const std::string& sheet) {
    std::vector<NamedFile> files = launchFiles(options);
    if (!file.empty())
        files.push_back({file, FileUse::Read, {}, "the file that is to be opened"});
    if (!sheet.empty())
        files.push_back({sheet, FileUse::Replaced, sheet + ": the sheet", "the sheet"});
    return files;
}

// Both streams are the trace of the traffic with the keyboard: thousands of lines for a read, which
// a desktop keeps in its journal and a person who started the window in a terminal may not want.
void tellTerminal(const LaunchOptions& options) {
    const bool isConsole = options.console.empty() && ::isatty(STDOUT_FILENO) == 1;
    const bool isLog = options.log.empty() && ::isatty(STDERR_FILENO) == 1;
    if (isConsole || isLog)
        scenewright::reportError("scenewright", "the traffic with the keyboard is printed here; "
                                                "--console FILE and --log FILE write it elsewhere");
}

// A transaction that still runs must find its way out before the process's state goes.
void releaseBus() {
    Transport::instance().shutDown();
    SendJob::join();
}

int showWindow(const LaunchOptions& options, const std::shared_ptr<Keyboards>& keyboards,
               const std::string& file, Shutdown& shutdown) {
    const bool isVirtual = options.isVirtual;
    const MainLoop loop;
    const Translation translation(QLocale::system());
    Appearance appearance;
    QuitController quit;
    MainWindow window(quit, appearance, isVirtual);
    const auto recovery = std::make_shared<Recovery>();
    shutdown.setLastWork([recovery] { std::ignore = recovery->flush(); });
    EditorCommands commands(window, keyboards, StoreFiles{}, SendJournal{}, recovery);
    std::optional<ConnectionKeeper> keeper;
    if (isVirtual) {
        commands.useVirtual();
    } else {
        commands.keyboard().follow(DeviceMonitor::start());
        keeper.emplace(window, KeyboardConnections(KeyboardConnections::sequencerIfAny()));
    }
    commands.banks().setUsed(launchFiles(options));
    commands.reportLists(listErrors());
    Resources::forgetLists();
    if (!file.empty())
        commands.banks().openAtStart(QString::fromStdString(file));
    commands.sending().tellUnfinished();
    window.show();
    const int exitCode = QApplication::exec();
    releaseBus();
    return exitCode;
}

// Needs no display.
int drawSheet(const Arguments& arguments, int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    ToolkitMessages::hold();
    const QGuiApplication application(argc, argv);
    ToolkitMessages::letGo();
    const Translation translation(QLocale::system());
    const std::filesystem::path file = arguments.text("FILE");
    WindowAction::getSceneValue();
    const auto opened = StoreFiles::openAtStart(file, 0);
    if (!opened)
        return reportError(opened.error(), kExitUsage);
    const std::int32_t count = opened->isScene ? 1 : kSceneCount;
    const std::int32_t first = arguments.number("--scene").value_or(1) - 1;
    const std::int32_t last = arguments.has("--scene") ? first : count - 1;
    if (last >= count)
        return reportError(fmt::format("{}: it holds one scene", file.string()), kExitUsage);
    std::vector<SceneSheet::Page> pages;
    for (std::int32_t place = first; place <= last; ++place)
        pages.push_back({WindowAction::getSceneWithIndex(place), place});
    const std::string paper = arguments.text("--paper");
    if (const auto checked = checkShownTitles(); !checked)
        reportError(checked.error(), EXIT_SUCCESS);
    SceneSheet sheet(loadShownPopUpValue(), std::move(pages), shown(file.filename().string()));
    const auto written = sheet.write(
        arguments.text("--sheet"),
        paper.empty() ? SceneSheet::usualPaper()
                      : QPageSize(paper == "Letter" ? QPageSize::Letter : QPageSize::A4));
    return written ? EXIT_SUCCESS : reportError(written.error(), kExitError);
}

int run(int argc, char** argv) {
    Shutdown shutdown;
    const auto line = parseArguments(editorSyntax(), argc, argv);
    if (!line)
        return reportError(line.error(), kExitUsage);
    if (line->answer)
        return printAnswer(*line->answer);
    const LaunchOptions options = launchOptions(line->arguments);
    const std::string file = line->arguments.text("FILE");
    const std::string sheet = line->arguments.text("--sheet");
    if (sheet.empty() && (line->arguments.has("--scene") || line->arguments.has("--paper")))
        return reportError(refusedArgument("--scene and --paper belong to --sheet"), kExitUsage);
    if (!sheet.empty() && file.empty())
        return reportError(refusedArgument("--sheet: FILE is missing"), kExitUsage);
    Diagnostics::setConsole(consoleSink(STDOUT_FILENO));
    Diagnostics::setLog(logSink(STDERR_FILENO));
    if (const auto checked = checkNamedFiles(namedFiles(options, file, sheet)); !checked)
        return reportError(checked.error(), kExitUsage);
    if (const auto launched = launch(options); !launched)
        return reportError(launched.error(), kExitUsage);
    if (line->arguments.has("--sheet"))
        return drawSheet(line->arguments, argc, argv);
    if (!hasDisplay())
        return reportError("there is no display to open a window on; scenewright-cli does the same "
                           "work without one",
                           kExitError);
    const auto connected = connectHost(options);
    if (!connected)
        return reportError(connected.error(), kExitUsage);
    if (!options.isVirtual)
        shutdown.setWorkAfterRelease(&restoreNotedConnections);
    ToolkitMessages::hold();
    const QApplication application(argc, argv);
    ToolkitMessages::letGo();
    tellTerminal(options);
    QApplication::setApplicationName(QStringLiteral("scenewright"));
    QApplication::setApplicationVersion(QStringLiteral(SCENEWRIGHT_VERSION));
    return showWindow(options, *connected, file, shutdown);
}

} // namespace

} // namespace scenewright

int main(int argc, char** argv) {
    return scenewright::runProgram("scenewright", &scenewright::run, argc, argv);
}
