// The program's main queue on the toolkit's event loop.
#pragma once

#include <QObject>

namespace scenewright {

// While it lives, the tasks of the main queue run in the event loop of the thread that made it.
class MainLoop final : public QObject {
    Q_OBJECT

public:
    MainLoop();
    ~MainLoop() override;
    MainLoop(const MainLoop&) = delete;
    MainLoop& operator=(const MainLoop&) = delete;
    MainLoop(MainLoop&&) = delete;
    MainLoop& operator=(MainLoop&&) = delete;
};

} // namespace scenewright
