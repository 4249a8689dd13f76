#include "editor/qt/Wording.h"

#include <QCoreApplication>

#include <array>

namespace scenewright {

namespace {

// The texts that the folders without the toolkit write, marked for its translation.
[[maybe_unused]] constexpr std::array kSettings{
    QT_TRANSLATE_NOOP("scenewright::Setting", "Global MIDI channel"),
    QT_TRANSLATE_NOOP("scenewright::Setting", "Keyboard MIDI channel"),
    QT_TRANSLATE_NOOP("scenewright::Setting", "Pitch-bend speed"),
    QT_TRANSLATE_NOOP("scenewright::Setting", "Octave transposition"),
    QT_TRANSLATE_NOOP("scenewright::Setting", "Key velocity curve"),
    QT_TRANSLATE_NOOP("scenewright::Setting", "Key constant velocity"),
    QT_TRANSLATE_NOOP("scenewright::Setting", "Pad velocity curve"),
    QT_TRANSLATE_NOOP("scenewright::Setting", "Pad constant velocity"),
    QT_TRANSLATE_NOOP("scenewright::Setting", "MIDI channel"),
    QT_TRANSLATE_NOOP("scenewright::Setting", "Enabled"),
    QT_TRANSLATE_NOOP("scenewright::Setting", "CC number"),
    QT_TRANSLATE_NOOP("scenewright::Setting", "Right value"),
    QT_TRANSLATE_NOOP("scenewright::Setting", "Left value"),
    QT_TRANSLATE_NOOP("scenewright::Setting", "Upper value"),
    QT_TRANSLATE_NOOP("scenewright::Setting", "Lower value"),
    QT_TRANSLATE_NOOP("scenewright::Setting", "Type"),
    QT_TRANSLATE_NOOP("scenewright::Setting", "CC or note number"),
    QT_TRANSLATE_NOOP("scenewright::Setting", "On value"),
    QT_TRANSLATE_NOOP("scenewright::Setting", "Off value"),
    QT_TRANSLATE_NOOP("scenewright::Setting", "Behavior"),
    QT_TRANSLATE_NOOP("scenewright::Setting", "Red"),
    QT_TRANSLATE_NOOP("scenewright::Setting", "Green"),
    QT_TRANSLATE_NOOP("scenewright::Setting", "Blue"),
};

[[maybe_unused]] constexpr std::array kControls{
    QT_TRANSLATE_NOOP("scenewright::Control", "Common"),
    QT_TRANSLATE_NOOP("scenewright::Control", "Group"),
    QT_TRANSLATE_NOOP("scenewright::Control", "Knob"),
    QT_TRANSLATE_NOOP("scenewright::Control", "Slider"),
    QT_TRANSLATE_NOOP("scenewright::Control", "Pad"),
    QT_TRANSLATE_NOOP("scenewright::Control", "Key"),
    QT_TRANSLATE_NOOP("scenewright::Control", "Control %d"),
    QT_TRANSLATE_NOOP("scenewright::Control", "unknown"),
    QT_TRANSLATE_NOOP("scenewright::Control", "%s"),
    QT_TRANSLATE_NOOP("scenewright::Control", "global channel %s"),
    QT_TRANSLATE_NOOP("scenewright::Control", "keyboard channel %s"),
    QT_TRANSLATE_NOOP("scenewright::Control", "pitch-bend speed %s"),
    QT_TRANSLATE_NOOP("scenewright::Control", "transposition %s"),
    QT_TRANSLATE_NOOP("scenewright::Control", "key velocity curve %s"),
    QT_TRANSLATE_NOOP("scenewright::Control", "pad velocity curve %s"),
    QT_TRANSLATE_NOOP("scenewright::Control", "channel %s"),
    QT_TRANSLATE_NOOP("scenewright::Control", "CC %s"),
    QT_TRANSLATE_NOOP("scenewright::Control", "left %s"),
    QT_TRANSLATE_NOOP("scenewright::Control", "right %s"),
    QT_TRANSLATE_NOOP("scenewright::Control", "lower %s"),
    QT_TRANSLATE_NOOP("scenewright::Control", "upper %s"),
    QT_TRANSLATE_NOOP("scenewright::Control", "Note %s"),
    QT_TRANSLATE_NOOP("scenewright::Control", "behavior %s"),
    QT_TRANSLATE_NOOP("scenewright::Control", "on %s"),
    QT_TRANSLATE_NOOP("scenewright::Control", "off %s"),
    QT_TRANSLATE_NOOP("scenewright::Control", "red %s"),
    QT_TRANSLATE_NOOP("scenewright::Control", "green %s"),
    QT_TRANSLATE_NOOP("scenewright::Control", "blue %s"),
};

[[maybe_unused]] constexpr std::array kCauses{
    QT_TRANSLATE_NOOP("scenewright::Cause",
                      "You have no permission to use the keyboard: install the rule with "
                      "'scenewright-cli udev-rules | sudo tee "
                      "/etc/udev/rules.d/70-scenewright.rules', then plug the keyboard in again"),
    QT_TRANSLATE_NOOP("scenewright::Cause",
                      "Another program is using the keyboard: close it and try again"),
    QT_TRANSLATE_NOOP("scenewright::Cause", "The keyboard was unplugged: plug it in and try again"),
    QT_TRANSLATE_NOOP("scenewright::Cause",
                      "The keyboard lacks the second USB interface that scenes travel on: check "
                      "that it is the model that the device list names, and plug it in again"),
    QT_TRANSLATE_NOOP("scenewright::Cause",
                      "The keyboard does not answer: unplug it, plug it in again and try again"),
    QT_TRANSLATE_NOOP("scenewright::Cause",
                      "The keyboard answers with longer transfers than scenes have: check that it "
                      "is the model that the device list names, and plug it in again"),
    QT_TRANSLATE_NOOP("scenewright::Cause",
                      "The USB system refused to work with the keyboard (%08x): plug it in again, "
                      "at another socket if that does not help"),
    QT_TRANSLATE_NOOP("scenewright::Cause",
                      "No keyboard of the device list is plugged in: plug it in, or see what "
                      "'scenewright-cli devices' says about yours"),
};

} // namespace

QString settingLabel(std::string_view title) {
    return QCoreApplication::translate("scenewright::Setting", std::string(title).c_str());
}

std::string controlWords(const char* text) {
    return QCoreApplication::translate("scenewright::Control", text).toStdString();
}

std::string causeWords(const char* text) {
    return QCoreApplication::translate("scenewright::Cause", text).toStdString();
}

} // namespace scenewright
