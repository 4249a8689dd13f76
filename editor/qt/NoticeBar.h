// A bar across the window that tells what a person should know before going on, with buttons for
// what they may want to do about it.
#pragma once

#include <QFrame>
#include <QLabel>
#include <QPushButton>

#include <cstdint>
#include <functional>
#include <vector>

class QHBoxLayout;

namespace scenewright {

class NoticeBar final : public QFrame {
    Q_OBJECT

public:
    enum class Kind : std::uint8_t { Done, Trouble };
    struct Offer {
        QString title;
        std::function<void()> action;
    };

    // Hidden until there is something to tell.
    explicit NoticeBar(QWidget* parent);

    // Replaces the former notice. Taking an offer dismisses the notice first.
    void tell(Kind kind, const QString& text, std::vector<Offer> offers = {});
    void dismiss();

    // Empty when nothing is told.
    [[nodiscard]] QString text() const { return isHidden() ? QString() : text_->text(); }
    // Null when there are not so many.
    [[nodiscard]] QPushButton* offer(std::size_t place) const;

private:
    void addOffer(Offer offer);

    // Children of the bar.
    QHBoxLayout* row_;
    QLabel* text_;
    QPushButton* close_;
    std::vector<QPushButton*> offers_;
};

} // namespace scenewright
