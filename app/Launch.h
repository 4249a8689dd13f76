// What both programs do before their work: the options they share, and what follows from them.
//
// Main thread, before any other thread starts.
#pragma once

#include "app/Keyboards.h"
#include "platform/Arguments.h"
#include "platform/NamedFiles.h"
#include "platform/Result.h"

#include <memory>
#include <string>
#include <vector>

namespace scenewright {

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
