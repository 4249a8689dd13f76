#include "editor/qt/DeviceCommands.h"

#include "app/DeviceSession.h"
#include "editor/qt/EarlierCommands.h"
#include "editor/qt/MainWindow.h"
#include "editor/qt/QtHelpers.h"
#include "platform/MainQueue.h"
#include "protocol/Transactions.h"
#include "usb/Transport.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QFileInfo>
#include <QMessageBox>
#include <QMetaObject>

#include <functional>
#include <utility>

namespace scenewright {

namespace {

bool isInput(QEvent::Type type) {
    switch (static_cast<int>(type)) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::ContextMenu:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletRelease:
        return true;
    default:
        return false;
    }
}

using Answer = SafeSend::Answer;
using Question = SafeSend::Question;

const QString kReadFirstKey = QStringLiteral("readBeforeSend");

} // namespace

void DeviceCommands::read() {
    if (isBusy())
        return;
    emit started();
    const auto notKept = keepScenes_ ? keepScenes_() : std::nullopt;
    Outcome outcome;
    {
        const BlockedInput blocked;
        DeviceSession::read([&outcome](const Outcome& ended) { outcome = ended; });
    }
    if (notKept)
        outcome.notKept.push_back(*notKept);
    emit readEnded(outcome);
}

void DeviceCommands::send() {
    if (isBusy())
        return;
    emit started();
    isSending_ = true;
    emit busyChanged(true);
    const SendEnded ended = [self = QPointer(this)](const std::optional<Outcome>& outcome) {
        if (!self) // the window has gone meanwhile
            return;
        self->isSending_ = false;
        emit self->busyChanged(false);
        if (outcome)
            emit self->sendEnded(*outcome);
        else
            emit self->sendCancelled();
    };
    if (sending_)
        return sending_(ended);
    const WaitCursor cursor;
    DeviceSession::send(ended);
}

// Sockets wait: what a screen reader asks for through one is an event of its own time.
BlockedInput::~BlockedInput() {
    QCoreApplication::instance()->installEventFilter(this);
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
    QCoreApplication::instance()->removeEventFilter(this);
    // Closed once what blocked it has gone on to its end, such as a send after its reading.
    if (closed_)
        QMetaObject::invokeMethod(closed_, &QWidget::close, Qt::QueuedConnection);
}

bool BlockedInput::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Close && qobject_cast<QWidget*>(watched) != nullptr) {
        closed_ = qobject_cast<QWidget*>(watched);
        event->ignore();
        return true;
    }
    return isInput(event->type());
}

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
        // Below what the send itself has to tell.
        if (self && told.others)
            self->tellOthers(*told.others);
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
}

void SafeSending::tellOthers(const BankImage& others) {
    window_.notices().post(
        {.source = Notice::Source::Kept,
         .kind = Notice::Kind::Done,
         .text = tr("The keyboard held other scenes; they are kept"),
         .actions = {{tr("Put Them Back"), [this, others] { sendImage(others); }}},
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

// From a notice, which goes when a send begins.
void SafeSending::sendImage(const BankImage& image) {
    earlier_.bringBack(image, tr("Brought back the earlier scenes"));
    window_.commands().send();
}

MainLoop::MainLoop() {
    MainQueue::adopt([this](MainQueue::Task task) {
        QMetaObject::invokeMethod(this, std::move(task), Qt::QueuedConnection);
    });
}

MainLoop::~MainLoop() {
    MainQueue::adopt({});
}

QuitController::QuitController(std::chrono::milliseconds limit, QObject* parent) : QObject(parent) {
    limit_.setSingleShot(true);
    limit_.setInterval(limit);
    connect(&limit_, &QTimer::timeout, this, &QuitController::cancelSend);
}

void QuitController::terminate() {
    if (isWaiting())
        return;
    limit_.start();
    if (SendJob::isRunning())
        emit waiting();
    SendJob::whenIdle([self = QPointer(this)] {
        if (self && self->isWaiting())
            self->end();
    });
}

void QuitController::cancelSend() {
    Transport::instance().shutDown();
    SendJob::join();
    end();
}

void QuitController::end() {
    limit_.stop();
    emit ended();
    // Not quit(): that would ask the window to close, which is what brought us here.
    QCoreApplication::exit(0);
}

} // namespace scenewright
