#include "editor/qt/TryStrip.h"

#include "app/DeviceSession.h"
#include "editor/ControlDescription.h"
#include "editor/qt/Dialogs.h"
#include "editor/qt/QtHelpers.h"
#include "editor/qt/StripPlace.h"
#include "protocol/SceneImage.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>

#include <chrono>
#include <memory>
#include <span>

namespace scenewright {

namespace {

constexpr int kGap = 4;
constexpr int kControlWidth = 110;
constexpr int kExpectedWidth = 170;
enum Column { Name, Wanted, Found };

QString resultOf(const TryRun::Row& row, const Titles& noteNames) {
    QString text = shown(verdictText(row, noteNames));
    switch (row.verdict) {
    case TryRun::Verdict::Right:
        return QStringLiteral("✓ ") + text;
    case TryRun::Verdict::Wrong:
        return QStringLiteral("✗ ") + text;
    case TryRun::Verdict::Open:
    case TryRun::Verdict::Assumed:
    case TryRun::Verdict::Skipped:
    case TryRun::Verdict::Silent:
        break;
    }
    return text;
}

} // namespace

TryStrip::TryStrip(MainWindow& window, KeyboardInput& input)
    : QFrame(&window), window_(window), input_(input) {
    setAccessibleName(tr("Try It"));
    hide();
    action_ = window.menu().device().addAction(tr("Try &It"));
    connect(action_, &QAction::triggered, this, &TryStrip::start);
    connect(&input_, &KeyboardInput::came, this, &TryStrip::take);
    // The port goes, and what the keyboard holds may be another thing afterwards.
    connect(&window.commands(), &DeviceCommands::started, this, &TryStrip::close);
}

void TryStrip::layOut() {
    auto& room = makeChild<QHBoxLayout>(this);
    room.setContentsMargins(0, 0, 0, 0);
    room.setSpacing(kGap);
    auto tried = std::make_unique<QVBoxLayout>();
    tried->setSpacing(kGap);
    told_ = &makeChild<SpokenText>(this);
    told_->setProperty("role", "notice");
    tried->addWidget(told_);
    auto& bar = makeChild<QWidget>(this);
    bar.setAccessibleName(accessibleName());
    auto& column = makeChild<QVBoxLayout>(&bar);
    column.setContentsMargins(0, 0, 0, 0);
    column.setSpacing(kGap);
    const auto add = [&bar, &column](const QString& title) {
        auto& button = makeButton(title, &bar);
        column.addWidget(&button);
        return &button;
    };
    skip_ = add(tr("Skip"));
    back_ = add(tr("Back"));
    auto* const copyReport = add(tr("Copy Report"));
    end_ = add(tr("End"));
    column.addStretch();
    table_ = &makeChild<QTreeWidget>(this);
    layOutTable(*table_, tr("What was tried"), {tr("Control"), tr("Expected"), tr("Result")});
    table_->setColumnWidth(Name, kControlWidth);
    table_->setColumnWidth(Wanted, kExpectedWidth);
    tried->addWidget(table_);
    room.addLayout(tried.release()); // which owns it from here
    room.addWidget(&bar);

    connect(skip_, &QPushButton::clicked, this, [this] {
        run_->skip();
        showNext({});
    });
    connect(back_, &QPushButton::clicked, this, [this] {
        run_->again();
        showNext({});
    });
    connect(copyReport, &QPushButton::clicked, this,
            [this] { QApplication::clipboard()->setText(report()); });
    connect(end_, &QPushButton::clicked, this, &TryStrip::end);
}

void TryStrip::start() {
    const auto& known = KnownKeyboard::image();
    if (!known) {
        window_.notices().post({.source = Notice::Source::Midi,
                                .text = tr("It is not known yet what the keyboard holds. Send or "
                                           "read the scenes first, and then try them")});
        return;
    }
    if (!input_.listenFor(*this))
        return;
    if (table_ == nullptr)
        layOut();
    scene_ = window_.view().sceneIndex();
    const auto place = static_cast<std::size_t>(scene_) * kSceneImageSize;
    run_.emplace(*sceneFrom(std::span<const std::uint8_t, kSceneImageSize>(
        std::span(*known).subspan(place, kSceneImageSize))));
    table_->clear();
    for (const TryRun::Row& row : run_->rows())
        table_->addTopLevelItem( // which owns it from here
            std::make_unique<QTreeWidgetItem>(
                QStringList{shown(controlName(row.control)), shown(expectedText(row, noteNames()))})
                .release());
    window_.strips().open(*this);
    showNext(tr("Choose scene %1 on the keyboard.").arg(scene_ + 1));
    skip_->setFocus(Qt::OtherFocusReason);
}

Titles TryStrip::noteNames() const {
    const auto lists = window_.view().pu();
    return lists ? lists->pad_NoteNumber_Array() : Titles();
}

void TryStrip::take(const std::vector<MidiMessage>& messages) {
    if (!run_)
        return;
    for (const MidiMessage& message : messages)
        if (const TryRun::Row* row = run_->take(message, std::chrono::steady_clock::now()))
            showNext(
                tr("%1: %2.").arg(shown(controlName(row->control)), resultOf(*row, noteNames())));
}

void TryStrip::showNext(const QString& done) {
    for (std::size_t place = 0; place < run_->rows().size(); ++place)
        showRow(place);
    const TryRun::Row* const next = run_->next();
    skip_->setEnabled(next != nullptr);
    end_->setText(next != nullptr ? tr("End") : tr("Close"));
    end_->setAccessibleName(end_->text());
    if (next == nullptr)
        return told_->say(tr("%1 Scene %2: %3")
                              .arg(done)
                              .arg(scene_ + 1)
                              .arg(shown(reportText(*run_)))
                              .trimmed());
    told_->say(tr("Touch %1. %2").arg(shown(controlName(next->control)), done).trimmed());
    if (!isPopUpOpen())
        window_.showControl(scene_, next->control);
}

void TryStrip::showRow(std::size_t place) {
    const TryRun::Row& row = run_->rows()[place];
    QTreeWidgetItem& item = *table_->topLevelItem(static_cast<int>(place));
    item.setText(Found, resultOf(row, noteNames()));
    if (&row == run_->next())
        table_->setCurrentItem(&item);
}

// The results stay to be read; the second time they go.
void TryStrip::end() {
    if (run_->next() == nullptr)
        return close();
    run_->end();
    showNext({});
}

void TryStrip::close() {
    if (!run_)
        return;
    run_.reset();
    input_.endFor(*this);
    window_.strips().close(*this);
}

void TryStrip::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        return end();
    QFrame::keyPressEvent(event);
}

QString TryStrip::report() const {
    QStringList lines{tr("Scene %1: %2").arg(scene_ + 1).arg(shown(reportText(*run_)))};
    for (int row = 0; row < table_->topLevelItemCount(); ++row) {
        const QTreeWidgetItem& item = *table_->topLevelItem(row);
        lines.append(QStringList{item.text(Name), item.text(Wanted), item.text(Found)}.join(
            QLatin1Char('\t')));
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace scenewright
