#include "editor/qt/FillDialog.h"

#include "app/SceneChanges.h"
#include "editor/ControlDescription.h"
#include "editor/qt/Dialogs.h"
#include "editor/qt/QtHelpers.h"
#include "model/Setting.h"
#include "model/TypedValue.h"

#include <QColorDialog>
#include <QFormLayout>
#include <QPixmap>
#include <QScreen>
#include <QStyle>
#include <QVBoxLayout>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace scenewright {

namespace {

using What = FillDialog::What;

constexpr std::int32_t kChannelMode = 0; // display modes that show what is filled
constexpr std::int32_t kNumberMode = 2;
constexpr int kOctave = 12;
constexpr int kChannels = 16;
constexpr int kWidth = 380; // in device-independent pixels
constexpr int kLabelMargin = 3;

// What a kind of control needs for it.
struct Offer {
    What what;
    std::string_view field;
};
constexpr std::array<Offer, 5> kOffers{{{What::Notes, "AssignType"},
                                        {What::Controllers, "CCOrNoteNumber"},
                                        {What::Channel, "MIDIChannel"},
                                        {What::Colours, kColourFields.front()},
                                        {What::Transpose, "AssignType"}}};

QString titleOf(What what) {
    switch (what) {
    case What::Notes:
        return FillDialog::tr("Notes");
    case What::Controllers:
        return FillDialog::tr("Controllers");
    case What::Channel:
        return FillDialog::tr("MIDI channel");
    case What::Colours:
        return FillDialog::tr("Colours");
    case What::Transpose:
        return FillDialog::tr("Their notes, moved");
    }
    return {};
}

std::vector<What> offersOf(ControlKind kind) {
    std::vector<What> offered;
    for (const Offer& offer : kOffers)
        if (FillDialog::offers(kind, offer.what))
            offered.push_back(offer.what);
    return offered;
}

std::vector<std::int32_t> membersOf(const ControlSelection& selection, const ControlRange& range) {
    std::vector<std::int32_t> members = selection.alike();
    for (std::int32_t& member : members)
        member -= range.start;
    return members;
}

void setColour(QPushButton& button, const QColor& colour) {
    QPixmap light(QSize(16, 16));
    light.fill(colour);
    button.setIcon(light);
    button.setText(colour.name());
}

} // namespace

bool FillDialog::offers(ControlKind kind, What what) {
    const auto* const offer = std::ranges::find(kOffers, what, &Offer::what);
    return findSetting(kind, offer->field) != nullptr;
}

FillDialog::FillDialog(MainWindow& window, What what)
    : QDialog(&window), window_(window),
      range_(*controlRangeOf(window.choice().selection().chosen())),
      members_(membersOf(window.choice().selection(), range_)), offered_(offersOf(range_.kind)),
      filled_(failure(std::string())), whats_(&makeChild<PopUpBox>(this)),
      pages_(&makeChild<QStackedWidget>(this)), told_(&makeChild<QLabel>(this)) {
    auto& column =
        layOutDialog(*this, tr("Fill %1").arg(shown(alikeTitle(window.choice().selection()))));
    column.setContentsMargins(18, 14, 18, 14);
    auto& label = makeChild<QLabel>(tr("Fill &with"), this);
    label.setBuddy(whats_);
    whats_->setAccessibleName(tr("Fill with"));
    std::vector<std::string> titles;
    for (const What offered : offered_)
        titles.push_back(titleOf(offered).toStdString());
    whats_->addItems(titles);
    column.addWidget(&label);
    column.addWidget(whats_);
    column.addWidget(pages_);
    for (const What offered : offered_)
        addPage(offered);
    told_->setWordWrap(true);
    told_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    told_->setTextFormat(Qt::PlainText);
    told_->setMinimumHeight(2 * fontMetrics().lineSpacing()); // nothing moves when it speaks
    column.addWidget(told_, 1, Qt::AlignTop);
    accept_ = &addAnswers(*this, column, tr("Cance&l"), tr("F&ill"));
    setMinimumWidth(kWidth);
    const auto at = std::ranges::find(offered_, what);
    whats_->selectItem(at == offered_.end() ? 0 : static_cast<std::int32_t>(at - offered_.begin()));
    connect(whats_, &QComboBox::currentIndexChanged, this, &FillDialog::follow);
    follow();
    standBelow();
}

// At the foot of the window, where the least of the picture is behind it.
void FillDialog::standBelow() {
    adjustSize();
    const int frame = style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const QRect room =
        screen()->availableGeometry().adjusted(0, frame, -width(), -height() - frame);
    const QPoint foot = window_.mapToGlobal(window_.rect().bottomLeft()) - QPoint(0, height());
    move(std::clamp(foot.x(), room.left(), std::max(room.left(), room.right())),
         std::clamp(foot.y(), room.top(), std::max(room.top(), room.bottom())));
}

void FillDialog::addPage(What what) {
    auto& page = makeChild<QWidget>(pages_);
    auto& form = makeChild<QFormLayout>(&page);
    form.setContentsMargins(0, 0, 0, 0);
    form.setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    const auto add = [&](const QString& title, auto& field) -> auto& {
        form.addRow(title, &field);
        form.labelForField(&field)->setContentsMargins(0, 0, kLabelMargin, 0);
        field.setAccessibleName(unmarked(title));
        return field;
    };
    const auto line = [&](const QString& title, const QString& text) {
        auto& made = add(title, makeChild<QLineEdit>(text, &page));
        connect(&made, &QLineEdit::textChanged, this, &FillDialog::follow);
        return &made;
    };
    const auto number = [&](const QString& title, int least, int most, int value) {
        auto& made = add(title, makeChild<QSpinBox>(&page));
        made.setRange(least, most);
        made.setValue(value);
        connect(&made, &QSpinBox::valueChanged, this, &FillDialog::follow);
        return &made;
    };
    switch (what) {
    case What::Notes:
        note_ = line(tr("First &note"), QStringLiteral("C2"));
        noteSteps_ = &add(tr("&Scale or steps"), makeChild<QComboBox>(&page));
        noteSteps_->setEditable(true);
        for (const Scale& scale : scales())
            noteSteps_->addItem(shown(scale.name));
        noteSteps_->setCurrentText(QStringLiteral("chromatic"));
        noteSteps_->setToolTip(tr("A scale, or semitones from each note to the next: 2,2,1"));
        connect(noteSteps_, &QComboBox::currentTextChanged, this, &FillDialog::follow);
        break;
    case What::Controllers:
        controller_ = line(tr("First &controller"), QStringLiteral("20"));
        controllerSteps_ = line(tr("&Steps"), QStringLiteral("1"));
        break;
    case What::Channel:
        channel_ = number(tr("&Channel"), 1, kChannels, 1);
        break;
    case What::Colours:
        colours_ = &add(tr("&Colours"), makeChild<PopUpBox>(&page));
        colours_->addItems({tr("From one to another").toStdString()});
        for (const NamedPalette& palette : palettes())
            colours_->addItems({tr("Palette %1, in turn").arg(shown(palette.name)).toStdString()});
        colours_->selectItem(0);
        connect(colours_, &QComboBox::currentIndexChanged, this, &FillDialog::follow);
        fromColour_ = &add(tr("&From"), makeChild<QPushButton>(&page));
        toColour_ = &add(tr("&To"), makeChild<QPushButton>(&page));
        setColour(*fromColour_, Qt::red);
        setColour(*toColour_, Qt::yellow);
        for (QPushButton* button : {fromColour_, toColour_})
            connect(button, &QPushButton::clicked, this, [this, button] { askForColour(*button); });
        break;
    case What::Transpose:
        semitones_ = number(tr("&Semitones"), -kLargestSettingValue, kLargestSettingValue, kOctave);
        break;
    }
    pages_->addWidget(&page);
}

void FillDialog::askForColour(QPushButton& button) {
    const QColor chosen = QColorDialog::getColor(QColor(button.text()), this, tr("Colour of Pads"));
    if (chosen.isValid())
        setColour(button, chosen);
    follow();
}

What FillDialog::what() const {
    return offered_.at(static_cast<std::size_t>(whats_->selectedItem()));
}

std::string FillDialog::start() const {
    switch (what()) {
    case What::Controllers:
        return "cc:" + controller_->text().toStdString();
    case What::Channel:
        return fmt::format("ch:{}", channel_->value());
    case What::Colours:
        if (const std::int32_t place = colours_->selectedItem(); place > 0)
            return std::string(palettes()[static_cast<std::size_t>(place) - 1].name);
        return (fromColour_->text() + QLatin1String("..") + toColour_->text()).toStdString();
    case What::Notes:
    case What::Transpose: // which has no start, and is not asked for one
        break;
    }
    return note_->text().toStdString();
}

Result<FillSteps> FillDialog::steps() const {
    FillSteps steps;
    if (what() != What::Notes && what() != What::Controllers)
        return steps;
    const std::string text =
        (what() == What::Notes ? noteSteps_->currentText() : controllerSteps_->text())
            .toStdString();
    if (const Scale* const scale = findScale(text); scale != nullptr && what() == What::Notes)
        return stepsOf(*scale);
    steps.intervals = intervalsOf(text);
    if (!steps.intervals)
        return failure(
            tr("Steps are whole numbers with commas between, as in 2,2,1").toStdString());
    return steps;
}

Result<SceneList> FillDialog::fill() const {
    const PopUpValue& lists = *window_.view().pu();
    const std::int32_t scene = window_.view().sceneIndex();
    const auto inWords = [this](const FillError& error) { return sentenceOf(error).toStdString(); };
    if (what() == What::Transpose)
        return transposedScenes(lists, scene, range_.kind, members_, semitones_->value())
            .map_error(inWords);
    return steps().and_then([&](const FillSteps& steps) {
        return filledScenes(lists, scene, range_.kind, members_, start(), steps).map_error(inWords);
    });
}

QString FillDialog::sentenceOf(const FillError& error) const {
    const QString control = shown(controlName(controlIndexOf(error.place)));
    switch (error.cause) {
    case FillError::Cause::Start:
        return what() == What::Notes ? tr("The first note is typed as in C2 or Db2, or as a number "
                                          "from 0 to 127.")
                                     : tr("The first controller is typed as a number from 0 to "
                                          "127, or by its name, as in sustain.");
    case FillError::Cause::TooLow:
        return tr("%1 would be below %2, the lowest there is.").arg(control, shown(error.end));
    case FillError::Cause::TooHigh:
        return tr("%1 would be above %2, the highest there is.").arg(control, shown(error.end));
    case FillError::Cause::NoneNotes:
        return tr("None of them sends a note.");
    case FillError::Cause::NoNote: // as notes, they are made to send them
    case FillError::Cause::Usage:
        break;
    }
    return shown(error.text);
}

void FillDialog::follow() {
    pages_->setCurrentIndex(whats_->selectedItem());
    if (colours_ != nullptr)
        for (QPushButton* button : {fromColour_, toColour_})
            button->setEnabled(colours_->selectedItem() == 0);
    filled_ = fill();
    const QString told =
        filled_ ? tr("The picture shows what comes of it.") : shown(filled_.error());
    if (told_->text() != told) {
        told_->setText(told);
        announce(*told_, told);
    }
    accept_->setEnabled(filled_.has_value());
    const auto scene = static_cast<std::size_t>(window_.view().sceneIndex());
    const std::int32_t mode = what() == What::Channel   ? kChannelMode
                              : what() == What::Colours ? window_.view().dispaly_index()
                                                        : kNumberMode;
    window_.picture().preview(*window_.view().pu(),
                              filled_ ? *filled_->at(scene) : *window_.view().sceneValue(),
                              window_.choice().selection().alike(), mode);
}

void FillDialog::done(int result) {
    window_.view().changeDispalyAction(window_.displayModes()); // the picture is as the scene is
    QDialog::done(result);
}

} // namespace scenewright
