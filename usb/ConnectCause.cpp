#include "usb/ConnectCause.h"

#include "usb/Transport.h"

#include <fmt/printf.h>

namespace scenewright {

namespace {

const char* sentenceFor(ResultCode failure) {
    switch (failure) {
    case kResultAccess:
        return "You have no permission to use the keyboard: install the rule with "
               "'scenewright-cli udev-rules | sudo tee /etc/udev/rules.d/70-scenewright.rules', "
               "then plug the keyboard in again";
    case kResultBusy:
        return "Another program is using the keyboard: close it and try again";
    case kResultNoDevice:
        return "The keyboard was unplugged: plug it in and try again";
    case kResultNotFound:
        return "The keyboard lacks the second USB interface that scenes travel on: check that it "
               "is the model that the device list names, and plug it in again";
    case kResultTimeout:
    case kResultStall:
    case kResultInputOutput:
        return "The keyboard does not answer: unplug it, plug it in again and try again";
    case kResultOverflow:
        return "The keyboard answers with longer transfers than scenes have: check that "
               "it is the model that the device list names, and plug it in again";
    default:
        return "The USB system refused to work with the keyboard (%08x): plug it in "
               "again, at another socket if that does not help";
    }
}

} // namespace

std::string causeAndCure(ResultCode failure, Words words) {
    return fmt::sprintf(words(sentenceFor(failure)), failure);
}

std::string connectCause(Words words) {
    const Transport& transport = Transport::instance();
    if (transport.connectFailure == kResultSuccess && !transport.device())
        return words("No keyboard of the device list is plugged in: plug it in, or see what "
                     "'scenewright-cli devices' says about yours");
    return causeAndCure(transport.connectFailure, words);
}

} // namespace scenewright
