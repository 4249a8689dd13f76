#include "editor/qt/Adapters.h"

#include "editor/qt/DevicePicture.h"
#include "editor/qt/NoticeBar.h"
#include "editor/qt/QtHelpers.h"
#include "model/SceneValue.h"

#include <QAccessibleWidget>
#include <QClipboard>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QtMath>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>

namespace scenewright {

namespace {

constexpr int kHighest = 127;
constexpr int kPage = 8;

const QString kAnd = QStringLiteral("&");
const QString kWrittenAnd = QStringLiteral("&&"); // as a button's text has it

constexpr ushort kLatinEnd = 0x250; // of the code points

// Its letters are in any font, which none of another font makes higher.
bool isLatinLine(const QString& text) {
    return std::ranges::all_of(text, [](QChar letter) {
        return letter.unicode() < kLatinEnd && letter != QLatin1Char('\n');
    });
}

QString plain(QString title) {
    return title.replace(kWrittenAnd, kAnd);
}

class SegmentFace final : public QAccessibleWidget {
public:
    explicit SegmentFace(SegmentButton& segment)
        : QAccessibleWidget(&segment, QAccessible::RadioButton), segment_(segment) {}

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = segment_.isChecked();
        return state;
    }

    [[nodiscard]] QStringList actionNames() const override {
        return QStringList{toggleAction()} + QAccessibleWidget::actionNames();
    }

    void doAction(const QString& name) override {
        if (name == toggleAction())
            segment_.click();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    SegmentButton& segment_;
};

// A control of the picture. Pressed it is chosen alone; toggled, beside others or no longer.
class ControlFace final : public QAccessibleWidget {
public:
    explicit ControlFace(ControlButton& control)
        : QAccessibleWidget(&control, QAccessible::Button), control_(control) {}

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.selectable = true;
        state.multiSelectable = true;
        state.selected = control_.isChosen();
        return state;
    }

    [[nodiscard]] QStringList actionNames() const override {
        return QStringList{pressAction(), toggleAction()} + QAccessibleWidget::actionNames();
    }

    void doAction(const QString& name) override {
        if (name == pressAction())
            control_.animateClick();
        else if (name == toggleAction())
            control_.clickWith(Qt::ControlModifier);
        else
            QAccessibleWidget::doAction(name);
    }

private:
    ControlButton& control_;
};

class PictureFace final : public QAccessibleWidget {
public:
    explicit PictureFace(DevicePicture& picture)
        : QAccessibleWidget(&picture, QAccessible::Grouping), picture_(picture) {}

    [[nodiscard]] int childCount() const override { return kControlCount; }

    [[nodiscard]] QAccessibleInterface* child(int place) const override {
        return QAccessible::queryAccessibleInterface(picture_.button(place + 1));
    }

    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
        const auto* button =
            child == nullptr ? nullptr : qobject_cast<ControlButton*>(child->object());
        return button == nullptr ? -1 : button->tag() - 1;
    }

    // The uppermost one, which a click would reach.
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
        return QAccessible::queryAccessibleInterface(
            picture_.childAt(picture_.mapFromGlobal(QPoint(x, y))));
    }

private:
    DevicePicture& picture_;
};

class NoticeFace final : public QAccessibleWidget {
public:
    explicit NoticeFace(QWidget& notice) : QAccessibleWidget(&notice, QAccessible::AlertMessage) {}
};

// The toolkit owns what is returned.
QAccessibleInterface* faceOf(const QString& /*className*/, QObject* object) {
    if (auto* segment = qobject_cast<SegmentButton*>(object))
        return std::make_unique<SegmentFace>(*segment).release();
    if (auto* control = qobject_cast<ControlButton*>(object))
        return std::make_unique<ControlFace>(*control).release();
    if (auto* picture = qobject_cast<DevicePicture*>(object))
        return std::make_unique<PictureFace>(*picture).release();
    if (qobject_cast<NoticeBar*>(object) != nullptr || qobject_cast<SpokenText*>(object) != nullptr)
        return std::make_unique<NoticeFace>(*static_cast<QWidget*>(object)).release();
    return nullptr;
}

} // namespace

PaneFrame::PaneFrame(QWidget* parent) : QFrame(parent) {
    setProperty("panel", true);
    setFrameShape(QFrame::StyledPanel);
}

void PaneFrame::setHidden(bool hidden) {
    setVisible(!hidden);
}

SegmentButton::SegmentButton(const QString& title, QWidget* parent) : QPushButton(title, parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize SegmentButton::sizeAround(int width) const {
    QStyleOptionButton option;
    initStyleOption(&option);
    const QSize contents(width, fontMetrics().height());
    return style()->sizeFromContents(QStyle::CT_PushButton, &option, contents, this);
}

int SegmentButton::textWidth() const {
    return qCeil(QFontMetricsF(fontMetrics()).horizontalAdvance(plain(text())));
}

QSize SegmentButton::sizeHint() const {
    return sizeAround(textWidth());
}

QSize SegmentButton::minimumSizeHint() const {
    return sizeAround(0);
}

void SegmentButton::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    const int room = width() - sizeHint().width() + textWidth();
    option.text =
        fontMetrics().elidedText(plain(text()), Qt::ElideRight, room).replace(kAnd, kWrittenAnd);
    painter.drawControl(QStyle::CE_PushButton, option);
}

SegmentBar::SegmentBar(const QStringList& names, QWidget* parent) : QFrame(parent) {
    setProperty("segments", true);
    setFrameShape(QFrame::StyledPanel);
    auto& row = makeChild<QHBoxLayout>(this);
    row.setContentsMargins(3, 3, 3, 3);
    row.setSpacing(2);
    for (int position = 0; position < names.size(); ++position) {
        auto& button = makeChild<SegmentButton>(names[position], this);
        button.setCheckable(true);
        button.setProperty("segment", true);
        button.setAccessibleName(names[position]);
        group_.addButton(&button, position);
        row.addWidget(&button);
    }
    segment(0).setChecked(true);
    connect(&group_, &QButtonGroup::idClicked, this, &SegmentBar::chosen);
}

std::int32_t SegmentBar::selectedSegment() const {
    return group_.checkedId();
}

void SegmentBar::setTitle(int position, const QString& title) {
    segment(position).setText(QString(title).replace(kAnd, kWrittenAnd));
}

QAbstractButton& SegmentBar::segment(int position) const {
    return *group_.button(position);
}

SliderBar::SliderBar(std::int32_t tag, QWidget* parent) : QSlider(Qt::Vertical, parent), tag_(tag) {
    setRange(0, kHighest);
    setPageStep(kPage);
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QSlider::valueChanged, this, [this] {
        if (!isProgram_)
            emit moved();
    });
}

void SliderBar::setValue(std::int32_t value) {
    const QScopedValueRollback guard(isProgram_, true);
    QSlider::setValue(value);
}

TextLabel::TextLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

void TextLabel::setText(const std::string& text) {
    QLabel::setText(shown(text));
}

void TextLabel::setEditable(bool /*editable*/) {}

bool TextLabel::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && hasSelectedText() &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy))
        event->accept();
    return QLabel::event(event);
}

void TextLabel::keyPressEvent(QKeyEvent* event) {
    if (hasSelectedText() && event->matches(QKeySequence::Copy))
        QGuiApplication::clipboard()->setText(selectedText());
    else
        QLabel::keyPressEvent(event);
}

QSize NameLabel::sizeHint() const {
    ensurePolished();
    const int flags = buddy() != nullptr ? Qt::TextShowMnemonic : 0;
    if (size_.isEmpty() || measured_ != text() || flags_ != flags) {
        measured_ = text();
        flags_ = flags;
        if (isLatinLine(measured_)) { // where measuring costs less than for any text
            const QFontMetricsF metrics(fontMetrics());
            const QString seen = flags == 0 ? measured_ : unmarked(measured_);
            size_ = QSizeF(std::ceil(metrics.horizontalAdvance(seen)), metrics.height()).toSize();
        } else {
            size_ = fontMetrics().size(flags, measured_);
        }
    }
    return size_.grownBy(contentsMargins());
}

QSize NameLabel::minimumSizeHint() const {
    return sizeHint();
}

void NameLabel::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        size_ = {};
    QLabel::changeEvent(event);
}

TextLine::TextLine(QWidget* parent) : QLineEdit(parent) {}

void TextLine::setText(const std::string& text) {
    QLineEdit::setText(shown(displayName(text)));
    if (isReadOnly())
        setCursorPosition(0); // the beginning is seen where the room is narrow
}

void TextLine::setEditable(bool editable) {
    setReadOnly(!editable);
    // What cannot be typed into is no stop of the Tab key; its text can still be marked and copied.
    setFocusPolicy(editable ? Qt::StrongFocus : Qt::ClickFocus);
}

void installAccessibleFaces() {
    QAccessible::installFactory(&faceOf);
}

} // namespace scenewright
