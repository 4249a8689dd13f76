#include "editor/qt/SafeSending.h"

#include "app/DeviceSession.h"
#include "app/OutcomeText.h"
#include "editor/qt/DeviceCommands.h"
#include "editor/qt/QtHelpers.h"

#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>

#include <functional>

namespace scenewright {

namespace {

using Answer = SafeSend::Answer;
using Question = SafeSend::Question;

const QString kReadFirstKey = QStringLiteral("readBeforeSend");

} // namespace

SafeSending::SafeSending(MainWindow& window, EarlierCommands& earlier, SendJournal journal)
    : window_(window), earlier_(earlier), journal_(std::move(journal)) {
    addPreference();
    const DeviceCommands& commands = window.commands();
    window.commands().setSending([this](const DeviceCommands::SendEnded& ended) { send(ended); });
    connect(&commands, &DeviceCommands::started, this,
            [this] { window_.notices().withdraw(Notice::Source::Kept); });
    connect(&commands, &DeviceCommands::readEnded, this, [this] { isChosen_ = false; });
    connect(&earlier.document(), &Document::replaced, this, [this] { isChosen_ = true; });
    // A keyboard that holds one of the two banks is whole again, whoever sent it.
    known_ = KnownKeyboard::addObserver([this] {
        if (!KnownKeyboard::image())
            return;
        journal_.forgetSettled(KnownKeyboard::name(), *KnownKeyboard::image());
        if (journal_.unfinished().empty())
            window_.notices().withdraw(Notice::Source::Unfinished);
    });
}

void SafeSending::addPreference() {
    QMenu& menu = window_.menu().device();
    menu.addSeparator();
    readFirst_ = menu.addAction(tr("Read the Keyboard &Before a Send"));
    readFirst_->setCheckable(true);
    readFirst_->setChecked(programSettings().value(kReadFirstKey, true).toBool());
    connect(readFirst_, &QAction::toggled, this,
            [](bool isOn) { programSettings().setValue(kReadFirstKey, isOn); });
}

void SafeSending::send(const DeviceCommands::SendEnded& ended) {
    window_.notices().withdraw(Notice::Source::Unfinished);
    SafeSend::Request request{.readsFirst = readFirst_->isChecked(), .isUntouched = isUntouched()};
    request.subject = QFileInfo(earlier_.document().file()).fileName().toStdString();
    request.ask = [this](const SafeSend::Asked& asked, const SafeSend::Answered& answered) {
        ask(asked, answered);
    };
    request.ended = [self = QPointer(this), ended](const SafeSend::Ended& told) {
        ended(told.outcome);
        if (self)
            self->afterSend(told);
    };
    request.reading = [](const std::function<void()>& step) {
        const BlockedInput blocked;
        step();
    };
    request.sending = [](const std::function<void()>& step) {
        const WaitCursor cursor;
        step();
    };
    SafeSend::run({.earlier = earlier_.kept(), .journal = journal_}, std::move(request));
}

// Scenes that were made, opened or read are somebody's choice, those of a new window are not.
bool SafeSending::isUntouched() const {
    return !isChosen_ && storedImage() == defaultImage();
}

void SafeSending::ask(const SafeSend::Asked& asked, const SafeSend::Answered& answered) {
    auto& box = makeChild<QMessageBox>(&window_);
    box.setAttribute(Qt::WA_DeleteOnClose);
    box.setIcon(QMessageBox::Warning);
    box.setWindowTitle(tr("Send Scenes"));
    QPushButton* readFirst = nullptr;
    switch (asked.question) {
    case Question::OtherScenes:
        box.setText(tr("These are not your keyboard's scenes"));
        box.setInformativeText(tr("The window shows the scenes that it starts with, and the "
                                  "keyboard may hold others. A send replaces all four of them."));
        readFirst = box.addButton(tr("&Read First"), QMessageBox::AcceptRole);
        break;
    case Question::NotRead:
        box.setText(tr("What the keyboard holds could not be read"));
        box.setInformativeText(shown(textOf(DeviceOperation::Backup, asked.read).joined("\n")));
        break;
    case Question::NotKept:
        box.setText(tr("What the keyboard holds could not be kept"));
        box.setInformativeText(shown(asked.why));
        break;
    }
    const QPushButton* const send = box.addButton(tr("&Send Anyway"), QMessageBox::DestructiveRole);
    QPushButton* const cancel = box.addButton(QMessageBox::Cancel);
    box.setDefaultButton(readFirst != nullptr ? readFirst : cancel);
    box.setEscapeButton(cancel);
    connect(&box, &QMessageBox::finished, this, [this, &box, readFirst, send, answered] {
        const QAbstractButton* const clicked = box.clickedButton();
        Answer answer = Answer::Cancel;
        if (clicked == send)
            answer = Answer::Send;
        else if (clicked != nullptr && clicked == readFirst)
            answer = Answer::ReadFirst;
        // Once the question has gone from the screen: what follows may block.
        QTimer::singleShot(0, this, [answered, answer] { answered(answer); });
    });
    box.open();
}

void SafeSending::afterSend(const SafeSend::Ended& ended) {
    if (ended.wantsRead)
        return window_.commands().read();
    if (!ended.outcome)
        tellUnfinished();
    if (ended.others)
        window_.notices().post({.source = Notice::Source::Kept,
                                .kind = Notice::Kind::Done,
                                .text = tr("The keyboard held other scenes; they are kept"),
                                .actions = {{tr("Put Them Back"),
                                             [this, image = *ended.others] { sendImage(image); }}},
                                .stays = true});
}

void SafeSending::tellUnfinished() {
    const auto unfinished = journal_.unfinished();
    if (unfinished.empty())
        return;
    const SendJournal::Send& send = unfinished.front().send;
    std::vector<NoticeAction> actions{
        {tr("Send Again"), [this, image = send.sent] { sendImage(image); }}};
    if (send.before)
        actions.push_back(
            {tr("Bring Back What Was There"), [this, image = *send.before] { sendImage(image); }});
    window_.notices().post({.source = Notice::Source::Unfinished,
                            .kind = Notice::Kind::Error,
                            .text = shown(unfinishedText(send)),
                            .actions = std::move(actions),
                            .stays = true});
}

std::vector<NoticeAction> SafeSending::wayBack() {
    const auto unfinished = journal_.unfinishedOf(KnownKeyboard::pluggedInName());
    if (!unfinished || !unfinished->send.before)
        return {};
    return {{tr("Bring Back What Was There"),
             [this, image = *unfinished->send.before] { sendImage(image); }}};
}

void SafeSending::sendImage(const BankImage& image) {
    if (window_.commands().isBusy())
        return;
    earlier_.bringBack(image, tr("Brought back the earlier scenes"));
    window_.commands().send();
}

} // namespace scenewright
