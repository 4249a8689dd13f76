// The application's menu commands. Main thread only.
#pragma once

namespace scenewright {

class AppDelegate {
public:
    void applicationDidFinishLaunching() {}
    void applicationWillTerminate() {}
    // Blocks until the read has ended.
    void readSceneDataAction();
    // Returns as soon as the transfer has been started.
    void sendSceneDataAction();
};

} // namespace scenewright
