// Light or dark, as the desktop has it or as the user wants it.
#pragma once

#include <QApplication>

#include <cstdint>

namespace scenewright {

// The user's choice is kept in the program's settings. Main thread.
class Appearance {
public:
    enum class Choice : std::uint8_t { System, Light, Dark };

    // Made right after the application, whose palette is still the desktop's then.
    explicit Appearance(QApplication& application);

    [[nodiscard]] Choice choice() const { return choice_; }
    void choose(Choice choice);

private:
    void apply();

    QApplication& application_;
    bool isSystemDark_;
    Choice choice_;
};

} // namespace scenewright
