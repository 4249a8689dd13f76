#include "editor/qt/ValuePanes.h"

#include "editor/ControlDescription.h"
#include "editor/ValuePopUps.h"
#include "editor/qt/NoticeBar.h"
#include "editor/qt/QtHelpers.h"
#include "model/Midi.h"
#include "model/Setting.h"
#include "platform/Text.h"

#include <QEvent>
#include <QGridLayout>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace scenewright {

namespace {

constexpr int kColumns = 5;
constexpr int kLinesOfAField = 3; // its title, itself, and what is said of it
constexpr int kRowGap = 5;
constexpr float kBright = 0.5F; // a colour on which black shows better than white

using WritePane = void (ViewController::*)(Pane*);
constexpr std::array<WritePane, kControlRanges.size()> kPaneOutlets{
    &ViewController::setCommonView, &ViewController::setGroupView, &ViewController::setKnobView,
    &ViewController::setSliderView, &ViewController::setPadView,   &ViewController::setKeyView};

constexpr std::size_t placeOf(ControlKind kind) {
    return static_cast<std::size_t>(kind);
}

QString colourWords(const Colour& colour) {
    return ValuePanes::tr("Red %1, green %2, blue %3 of 255")
        .arg(colour.red)
        .arg(colour.green)
        .arg(colour.blue);
}

} // namespace

ValuePanes::ValuePanes(QWidget* parent) : QWidget(parent) {
    auto& stack = makeChild<QGridLayout>(this);
    stack.setContentsMargins(0, 0, 0, 0);
    hint_ =
        &makeChild<QLabel>(tr("No control is chosen. Click one on the picture or in the list, or "
                              "press Return on a row of the list."),
                           this);
    hint_->setAlignment(Qt::AlignCenter);
    hint_->setWordWrap(true);
    hint_->setProperty("role", "hint");
    stack.addWidget(hint_, 0, 0);
    for (const ControlRange& range : kControlRanges)
        makePane(range.kind);
    // A field is made inside its pane: each later change of a widget's parent styles it anew.
    Body& common = bodies_[placeOf(ControlKind::Common)];
    sceneName_ = &makeChild<TextLine>(common.frame);
    addField(common, tr("Scene name"), *sceneName_,
             tr("The name that the keyboard holds of the scene. Scene > Rename changes it."));
    for (const ValuePopUp& row : valuePopUps()) {
        Body& body = bodies_.at(placeOf(row.pane()));
        auto& box = makeChild<PopUpBox>(body.frame);
        box.setObjectName(shown(row.name));
        popUps_[row.name] = &box;
        addField(body, shown(settingTitle(*row.setting)), box,
                 shown(translated(row.setting->help())));
        if (row.setting->name() == ButtonValue::CCOrNoteNumberField.name)
            addSends(body);
    }
    addSwatch(bodies_[placeOf(ControlKind::Pad)]);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ValuePanes::makePane(ControlKind kind) {
    Body& body = bodies_.at(placeOf(kind));
    //: The letters marked in the menu bar and in "Show", in any order.
    body.taken = tr("fesdvhw");
    body.frame = &makeChild<PaneFrame>(this);
    body.frame->installEventFilter(this);
    body.frame->setAccessibleName(tr("Settings of the chosen control"));
    auto& column = makeChild<QVBoxLayout>(body.frame);
    column.setContentsMargins(14, 5, 14, 7);
    column.setSpacing(3);
    body.heading = &makeChild<NameLabel>(body.frame);
    body.heading->setProperty("role", "heading");
    column.addWidget(body.heading);
    auto fields = std::make_unique<QGridLayout>();
    body.fields = fields.get();
    column.addLayout(fields.release()); // the column owns it from here
    column.addStretch(1);
    body.fields->setHorizontalSpacing(14);
    body.fields->setVerticalSpacing(2);
    for (int at = 0; at < kColumns; ++at)
        body.fields->setColumnStretch(at, 1);
    static_cast<QGridLayout*>(layout())->addWidget(body.frame, 0, 0);
}

void ValuePanes::addField(Body& body, const QString& title, QWidget& field, const QString& help) {
    auto& label = makeChild<NameLabel>(withMnemonic(title, body.taken), body.frame);
    label.setProperty("role", "field");
    label.setBuddy(&field);
    label.setContentsMargins(1, body.count < kColumns ? 0 : kRowGap, 0, 0);
    field.setAccessibleName(title);
    field.setWhatsThis(help);
    field.setAccessibleDescription(help);
    const int row = body.count / kColumns * kLinesOfAField;
    const int column = body.count % kColumns;
    body.fields->addWidget(&label, row, column);
    body.fields->addWidget(&field, row + 1, column);
    ++body.count;
}

void ValuePanes::addSends(Body& body) {
    body.sends = &makeChild<QLabel>(body.frame);
    body.sends->setProperty("role", "field");
    body.sends->setAccessibleName(tr("What it sends"));
    body.sends->setTextInteractionFlags(Qt::TextSelectableByMouse);
    const int row = (body.count - 1) / kColumns * kLinesOfAField + kLinesOfAField - 1;
    const int column = (body.count - 1) % kColumns;
    body.fields->addWidget(body.sends, row, column, 1, kColumns - column);
}

void ValuePanes::addSwatch(Body& body) {
    swatch_ = &makeChild<QPushButton>(body.frame);
    swatch_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    addField(body, tr("Mixed colour"), *swatch_,
             tr("The light of the pad, as the three levels mix it. A click opens a palette."));
}

void ValuePanes::connectTo(ViewController& view) {
    for (std::size_t kind = 0; kind < bodies_.size(); ++kind)
        (view.*kPaneOutlets.at(kind))(bodies_.at(kind).frame);
    view.setCommonSceneName(sceneName_);
    for (const ValuePopUp& row : valuePopUps()) {
        PopUpBox* box = popUps_.at(row.name);
        (view.*row.write)(box);
        connect(box, &QComboBox::activated, this, [this, box, &view, &row] {
            emit choiceComing(*row.setting, box->selectedItem());
            (view.*row.action)(*box);
        });
    }
}

void ValuePanes::show(const ViewController& view, const ControlSelection& selection) {
    const std::int32_t index = view.selectControl();
    const QString sends =
        view.pu() ? shown(describeOutput(*view.pu(), *view.sceneValue(), index)) : QString();
    const QString title = shown(paneTitle(selection));
    for (const Body& body : bodies_) {
        showTitle(body, title, selection.alike().size() > 1);
        if (body.sends == nullptr)
            continue;
        body.sends->setText(sends);
        body.sends->setAccessibleName(sends.isEmpty() ? tr("What it sends") : sends);
    }
    if (const ControlRange* const range = controlRangeOf(index))
        showNames(view, range->kind, index - range->start);
    hint_->setVisible(
        std::ranges::all_of(bodies_, [](const Body& body) { return body.frame->isHidden(); }));
    giveKeyboardBack();
    const ControlRange& pads = controlRange(ControlKind::Pad);
    const auto& records = view.sceneValue()->buttonValueArray();
    if (index >= pads.start && index < pads.end() && std::cmp_less_equal(index, records.size()))
        showSwatch(padColour(*records[static_cast<std::size_t>(index - 1)]));
}

// The keyboard is on one of the controls, and what is chosen beside it is told by nothing else.
void ValuePanes::showTitle(const Body& body, const QString& title, bool isOfSeveral) {
    if (body.heading->text() == title)
        return;
    body.heading->setText(title);
    if (isOfSeveral && !body.frame->isHidden())
        announce(*body.heading, title);
    else
        body.heading->setAccessibleName(title);
}

void ValuePanes::showNames(const ViewController& view, ControlKind kind, std::int32_t member) {
    const Setting* const type = findSetting(kind, ButtonValue::AssignTypeField.name);
    const std::int32_t assignType =
        type == nullptr ? kAssignOff : type->read(*view.sceneValue(), member);
    for (const ValuePopUp& row : valuePopUps())
        if (row.pane() == kind)
            popUps_.at(row.name)->setNames(optionNames(*row.setting, assignType));
}

bool ValuePanes::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Hide && !event->spontaneous()) {
        QWidget* at = window()->focusWidget();
        if (at != nullptr && static_cast<QWidget*>(watched)->isAncestorOf(at))
            former_ = at;
    }
    return QWidget::eventFilter(watched, event);
}

void ValuePanes::giveKeyboardBack() {
    const QPointer<QWidget> former = std::exchange(former_, nullptr);
    if (!former)
        return;
    if (former->isVisible() && former->isEnabled())
        return former->setFocus(Qt::OtherFocusReason);
    QWidget* best = nullptr;
    for (const ValuePopUp& row : valuePopUps()) {
        PopUpBox* box = popUps_.at(row.name);
        if (!box->isVisible() || !box->isEnabled())
            continue;
        const bool isSame = box->accessibleName() == former->accessibleName();
        if (best == nullptr || isSame)
            best = box;
        if (isSame)
            break;
    }
    if (best != nullptr)
        best->setFocus(Qt::OtherFocusReason);
}

// A style sheet of its own is dear: it is set only for another colour.
void ValuePanes::showSwatch(const Colour& colour) {
    if (swatchColour_ == colour)
        return;
    swatchColour_ = colour;
    const QColor mixed(colour.red, colour.green, colour.blue);
    swatch_->setStyleSheet(
        QStringLiteral(
            "QPushButton { background: %1; border: 1px solid #808080; border-radius: 7px; }"
            "QPushButton:focus { border: 3px solid %2; }")
            .arg(mixed.name(), mixed.lightnessF() > kBright ? "black" : "white"));
    swatch_->setAccessibleDescription(colourWords(colour));
    swatch_->setToolTip(colourWords(colour));
}

PaneFrame& ValuePanes::pane(ControlKind kind) const {
    return *bodies_.at(placeOf(kind)).frame;
}

PopUpBox& ValuePanes::popUp(std::string_view outlet) const {
    return *popUps_.at(outlet);
}

QSize ValuePanes::sizeHint() const {
    QSize size(0, 0);
    for (const Body& body : bodies_)
        size = size.expandedTo(body.frame->sizeHint());
    return size;
}

QSize ValuePanes::minimumSizeHint() const {
    QSize size(0, 0);
    for (const Body& body : bodies_)
        size = size.expandedTo(body.frame->minimumSizeHint());
    return size;
}

void ValuePanes::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        updateGeometry();
}

} // namespace scenewright
