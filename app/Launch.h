// What both programs do before their work: the options they share, and what follows from them; the
// property lists checked; the virtual controller's memory opened.
//
// Main thread, before any other thread starts.
#pragma once

#include "app/Keyboards.h"
#include "model/SceneValue.h"
#include "platform/Arguments.h"
#include "platform/Files.h"
#include "platform/Text.h"
#include "protocol/SceneImage.h"
#include "virtual/VirtualHost.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace scenewright {

// The property lists that the programs work with. Programs start without them: a list that is
// missing or cannot be read acts as an empty one. What needs a list asks here first, and says what
// is wrong with it.
inline constexpr std::string_view kBasicList = "basic";     // the titles of the options
inline constexpr std::string_view kDefaultList = "default"; // the default scene
inline constexpr std::string_view kProjectList = "project"; // the keyboards that are accepted

// As the file is now: it can be read and has as much as the keyboard needs. The error is one
// sentence that names the file.
[[nodiscard]] Result<void> checkList(std::string_view name);

// Whether each of the scenes, made from the default list, has what the list is to give: it is read
// anew for each, and may fail for one of them.
[[nodiscard]] Result<void> checkDefaultScenes(const SceneList& scenes);

// The errors of all three, and of the titles in the person's language.
[[nodiscard]] std::vector<std::string> listErrors();

// The memory of the virtual controller as a bank file, in either form. What is in it may be used on
// any thread.
struct VirtualBank {
    BankImage image{};
    BankFileStore keeper; // keeps what is sent in the form that the file had
};

// What the file holds; the default scenes when there is no such file, to be kept in the form that
// its name asks for, or when the path is empty, and then nothing is kept. An image may hold any
// bytes, as a controller may. An error when the file cannot serve; and, with `needsLists`, when a
// list that is used cannot: the default scenes are zeros without theirs, JSON has no titles.
[[nodiscard]] Result<VirtualBank> openVirtualBank(const std::string& path, bool needsLists);

struct LaunchOptions {
    bool isVirtual = false;
    // Whether a virtual controller that lacks its lists is an error; else what it holds for want of
    // them is zeros and settings without titles.
    bool needsLists = false;
    // The virtual controller's memory, a bank in either form: read at the start if the file exists,
    // written after each send. Empty keeps it in memory.
    std::string virtualBank;
    std::string device;    // the keyboard's port or serial number; empty for the first
    std::string console;   // file name, "-" for standard error; empty leaves the stream as it is
    std::string log;       // the same
    std::string resources; // folder; empty for none
};

// What is given for the rows of launch-options.json.
[[nodiscard]] LaunchOptions launchOptions(const Arguments& arguments);

// The files among them and the property lists that are in use, to be checked with the command's own
// before the streams are opened.
[[nodiscard]] std::vector<NamedFile> launchFiles(const LaunchOptions& options);

// Sends the streams where the options say and makes the resources findable. On error the program
// must end.
[[nodiscard]] Result<void> launch(const LaunchOptions& options);

// Gives the transport its host, the real bus or the virtual controller, which has the ids of the
// first keyboard in the device list. Of the bus, the keyboard that is chosen in what this gives
// alone is offered, now or later; null for the virtual controller. The program has made its
// Shutdown before, so that a signal gives the keyboard back first.
[[nodiscard]] Result<std::shared_ptr<Keyboards>> connectHost(const LaunchOptions& options);

} // namespace scenewright
