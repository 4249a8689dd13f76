#include "usb/ConnectCause.h"

#include "platform/Words.h"
#include "usb/Transport.h"

namespace scenewright {

namespace {

OwnText sentenceFor(ResultCode failure) {
    switch (failure) {
    case kResultAccess:
        return ownText(
            "scenewright::Cause",
            "You have no permission to use the keyboard: install the rule with "
            "'scenewright-cli udev-rules | sudo tee /etc/udev/rules.d/70-scenewright.rules', "
            "then plug the keyboard in again");
    case kResultBusy:
        return ownText("scenewright::Cause",
                       "Another program is using the keyboard: close it and try again");
    case kResultNoDevice:
        return ownText("scenewright::Cause",
                       "The keyboard was unplugged: plug it in and try again");
    case kResultNotFound:
        return ownText(
            "scenewright::Cause",
            "The keyboard lacks the second USB interface that scenes travel on: check that it "
            "is the model that the device list names, and plug it in again");
    case kResultTimeout:
    case kResultStall:
    case kResultInputOutput:
        return ownText("scenewright::Cause",
                       "The keyboard does not answer: unplug it, plug it in again and try again");
    case kResultOverflow:
        return ownText("scenewright::Cause",
                       "The keyboard answers with longer transfers than scenes have: check that "
                       "it is the model that the device list names, and plug it in again");
    default:
        return ownText("scenewright::Cause",
                       "The USB system refused to work with the keyboard ({:08x}): plug it in "
                       "again, at another socket if that does not help");
    }
}

} // namespace

std::string causeAndCure(ResultCode failure) {
    return say(sentenceFor(failure), failure);
}

std::string connectCause() {
    const Transport& transport = Transport::instance();
    if (transport.connectFailure == kResultSuccess && !transport.device())
        return say(ownText("scenewright::Cause",
                           "No keyboard of the device list is plugged in: plug it in, or see what "
                           "'scenewright-cli devices' says about yours"));
    return causeAndCure(transport.connectFailure);
}

} // namespace scenewright
