// The editor's window as a program.
#include "app/Launch.h"
#include "app/ListCheck.h"
#include "editor/qt/ConnectionKeeper.h"
#include "editor/qt/EditorCommands.h"
#include "editor/qt/MainWindow.h"
#include "editor/qt/QuitController.h"
#include "editor/qt/Theme.h"
#include "editor/qt/Translation.h"
#include "platform/Arguments.h"
#include "platform/Diagnostics.h"
#include "platform/NamedFiles.h"
#include "platform/Process.h"
#include "protocol/Transactions.h"
#include "usb/Shutdown.h"
#include "usb/Transport.h"

#include <QApplication>

#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <unistd.h>
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
std::vector<NamedFile> namedFiles(const LaunchOptions& options, const std::string& file) {
    std::vector<NamedFile> files = launchFiles(options);
    if (!file.empty())
        files.push_back({file, FileUse::Read, {}, "the file that is to be opened"});
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
    if (const auto& trouble = window.picture().drawing().trouble())
        return reportError(*trouble, kExitUsage);
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
    if (!file.empty())
        commands.banks().openAtStart(QString::fromStdString(file));
    commands.sending().tellUnfinished();
    window.show();
    const int exitCode = QApplication::exec();
    releaseBus();
    return exitCode;
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
    Diagnostics::setConsole(consoleSink(STDOUT_FILENO));
    Diagnostics::setLog(logSink(STDERR_FILENO));
    if (const auto checked = checkNamedFiles(namedFiles(options, file)); !checked)
        return reportError(checked.error(), kExitUsage);
    if (const auto launched = launch(options); !launched)
        return reportError(launched.error(), kExitUsage);
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
