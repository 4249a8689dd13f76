#include "app/SafeSend.h"

#include "app/DeviceSession.h"
#include "bank/BankFile.h"
#include "protocol/Transactions.h"

#include <memory>
#include <utility>

namespace scenewright {

namespace {

using Answer = SafeSend::Answer;
using Question = SafeSend::Question;

void runStep(const SafeSend::Around& around, const std::function<void()>& step) {
    if (around)
        around(step);
    else
        step();
}

// One send from its read to its end, kept by whatever is to go on with it.
class Sending : public std::enable_shared_from_this<Sending> {
public:
    Sending(SendStores stores, SafeSend::Request request)
        : stores_(std::move(stores)), request_(std::move(request)), known_(KnownKeyboard::image()),
          image_(storedImage()), before_(request_.before) {
        ended_.keyboard = KnownKeyboard::pluggedInName();
        unfinished_ = stores_.journal.unfinishedOf(ended_.keyboard);
    }

    void start() {
        if (request_.readsFirst)
            return read();
        if (request_.isUntouched && known_ != image_)
            return ask({Question::OtherScenes}, &Sending::send);
        send();
    }

private:
    using Step = void (Sending::*)();

    void read() {
        ScenesRead held;
        runStep(request_.reading, [&held] { held = DeviceSession::heldScenes(); });
        switch (held.outcome.end) {
        case Outcome::End::NotConnected:
        case Outcome::End::NotStarted: // what a second try could reach would be lost
        case Outcome::End::Cancelled:
            ended_.outcome = held.outcome;
            return end();
        case Outcome::End::Unreliable:
            return ask({.question = Question::NotRead, .read = held.outcome}, &Sending::send);
        case Outcome::End::Done:
            return judge(encodeBank(held.scenes));
        }
    }

    void judge(const BankImage& held) {
        before_ = held;
        if (request_.isUntouched && held != image_)
            return ask({Question::OtherScenes}, &Sending::keepAndSend);
        keepAndSend();
    }

    // What is sent is not lost, and what a send has left halfway is in its journal.
    void keepAndSend() {
        const bool isHalf = unfinished_ && isPartOf(*before_, unfinished_->send);
        if (before_ == image_ || isHalf)
            return send();
        const auto kept = stores_.earlier.keep(*before_, {.reason = EarlierScenes::Reason::Send,
                                                          .subject = request_.subject,
                                                          .keyboard = ended_.keyboard});
        if (!kept) {
            mayLose_ = true;
            return ask({.question = Question::NotKept, .why = kept.error()}, &Sending::send);
        }
        if (*kept && known_ != before_)
            ended_.others = before_;
        send();
    }

    void send() {
        // After a send that left the keyboard halfway, what was there before it is what is wanted.
        if (unfinished_ && unfinished_->send.before)
            before_ = unfinished_->send.before;
        auto begun = stores_.journal.begin({.sent = image_,
                                            .before = before_,
                                            .subject = request_.subject,
                                            .keyboard = ended_.keyboard,
                                            .begun = SendJournal::Clock::now()});
        if (!begun && !std::exchange(mayLose_, true))
            return ask({.question = Question::NotKept, .why = begun.error()}, &Sending::send);
        if (begun)
            running_ = std::move(*begun);
        try {
            runStep(request_.sending, [this] { transfer(); });
        } catch (...) {
            if (running_ && !isBegun_ && !SendJob::isRunning())
                running_->end({.end = Outcome::End::NotStarted}); // no byte of it has moved
            throw;
        }
    }

    void transfer() {
        const auto self = shared_from_this();
        DeviceSession::send([self](const Outcome& outcome) { self->afterSend(outcome); },
                            [self](std::size_t scenes) {
                                if (self->running_)
                                    self->running_->note(scenes);
                            });
        isBegun_ = true;
    }

    void afterSend(const Outcome& outcome) {
        const bool isUnfinished = running_ && !running_->end(outcome);
        if (isUnfinished && unfinished_)
            SendJournal::forget(*unfinished_); // the new one says more
        if (outcome.end == Outcome::End::Done)
            stores_.journal.forgetAllOf(ended_.keyboard);
        else
            ended_.others.reset();
        ended_.outcome = outcome;
        end();
    }

    void ask(const SafeSend::Asked& asked, Step onSend) {
        request_.ask(asked, [self = shared_from_this(), onSend](Answer answer) {
            if (answer == Answer::Send)
                return (*self.*onSend)();
            self->ended_.wantsRead = answer == Answer::ReadFirst;
            self->ended_.others.reset();
            self->end();
        });
    }

    void end() {
        if (const auto told = std::exchange(request_.ended, {}))
            told(ended_);
    }

    SendStores stores_;
    SafeSend::Request request_;
    std::optional<BankImage> known_; // before this read
    BankImage image_;                // what is sent
    std::optional<BankImage> before_;
    std::optional<SendJournal::Unfinished> unfinished_; // of the same keyboard
    std::optional<SendJournal::Running> running_;
    bool isBegun_ = false; // the transaction, which ends in afterSend() alone
    bool mayLose_ = false; // a question about that was answered
    SafeSend::Ended ended_;
};

} // namespace

void SafeSend::run(SendStores stores, Request request) {
    std::make_shared<Sending>(std::move(stores), std::move(request))->start();
}

} // namespace scenewright
