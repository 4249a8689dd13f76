#include "tests/editor-qt/GuidePictures.h"

#include "app/ScenePlayer.h"
#include "app/WindowAction.h"
#include "editor/qt/DeviceCommands.h"
#include "editor/qt/FillDialog.h"
#include "editor/qt/SceneSheet.h"
#include "editor/qt/Theme.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QTemporaryDir>
#include <QTreeWidget>

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <vector>

namespace scenewright {

namespace {

using Keep = std::function<bool(const QPixmap& picture, const std::string& name)>;

constexpr std::int32_t kFirstPad = 13;

void settle() {
    for (int turn = 0; turn < 3; ++turn)
        QApplication::processEvents();
}

// The window with what stands in front of it, where it stands, but inside.
QPixmap pictureOf(MainWindow& window, QWidget& front) {
    constexpr int kMargin = 6;
    QPixmap picture = window.grab();
    const QPixmap there = front.grab();
    QRect room(front.pos() - window.pos(), front.size());
    const QRect inside = window.rect().adjusted(kMargin, kMargin, -kMargin, -kMargin);
    room.moveBottomRight({std::min(room.right(), inside.right()), //
                          std::min(room.bottom(), inside.bottom())});
    room.moveTopLeft({std::max(room.left(), inside.left()), std::max(room.top(), inside.top())});
    QPainter painter(&picture);
    painter.drawPixmap(room.topLeft(), there);
    painter.setPen(Qt::gray);
    painter.drawRect(room);
    return picture;
}

bool keepFill(MainWindow& window, const Keep& keep) {
    window.picture().button(kFirstPad)->click();
    window.choice().selectAll();
    FillDialog dialog(window, FillDialog::What::Notes);
    for (auto* field : dialog.findChildren<QComboBox*>())
        if (field->isEditable())
            field->setCurrentText(QStringLiteral("minor-pentatonic"));
    dialog.show();
    settle();
    const bool isKept = keep(pictureOf(window, dialog), "fill");
    dialog.reject();
    return isKept;
}

bool keepPalette(MainWindow& window, const Keep& keep) {
    window.picture().button(kFirstPad + 1)->click();
    window.panes().swatch().click();
    settle();
    QWidget* const palette = QApplication::activePopupWidget();
    const bool isKept = palette != nullptr && keep(pictureOf(window, *palette), "palette");
    if (palette != nullptr)
        palette->close();
    return isKept;
}

void play(std::initializer_list<MidiMessage> messages) {
    for (const MidiMessage& message : messages)
        VirtualPort::play(message);
    settle();
}

bool keepMonitor(MainWindow& window, const Keep& keep) {
    MonitorStrip& strip = *window.findChild<MonitorStrip*>();
    strip.action().trigger();
    play({{0x99, 36, 100}, {0x89, 36, 0}, {0xB0, 74, 40}, {0xB0, 74, 93}, {0x99, 38, 88}});
    strip.show();
    settle();
    const bool isKept = keep(window.grab(), "monitor");
    strip.action().trigger();
    return isKept;
}

bool keepTrial(MainWindow& window, const Keep& keep) {
    TryStrip& strip = *window.findChild<TryStrip*>();
    strip.action().trigger();
    play({{0xB0, 74, 93}});
    play({{0xB0, 7, 12}});
    const bool isKept = keep(window.grab(), "try");
    for (int press = 0; press < 2; ++press) { // ends it, and closes it
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent(&strip, &escape);
    }
    return isKept;
}

void press(ControlButton& button) {
    const QPointF middle = button.rect().center();
    QMouseEvent event(QEvent::MouseButtonPress, middle, button.mapToGlobal(middle), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&button, &event);
}

bool keepPlaying(MainWindow& window, const Keep& keep) {
    QAction& action = *window.menu().view().actions().back();
    action.setChecked(true);
    settle();
    press(*window.picture().button(kFirstPad + 2));
    settle();
    const bool isKept = keep(window.grab(), "play");
    action.setChecked(false);
    return isKept;
}

// Two of them and a device that is none, in a window of their own.
bool keepKeyboards(QSize size, const Keep& keep) {
    using enum AttachedDevice::Access;
    const auto device = [](const char* port, const char* name, const char* serial,
                           AttachedDevice::Access access, DeviceIds ids = deviceList().at(0)) {
        return AttachedDevice{.bus = 1,
                              .port = port,
                              .ids = ids,
                              .name = name,
                              .serial = serial,
                              .hasMidiStreaming = true,
                              .access = access};
    };
    const std::vector devices{device("1-1", "Keys 25", "0001", Usable),
                              device("1-2.4", "Keys 25", "0002", NoPermission),
                              device("3-1", "Drum pads", "", Usable, {.vendor = 1, .product = 2})};
    QuitController quit;
    Appearance appearance;
    MainWindow window(quit, appearance, false);
    EditorCommands commands(window,
                            std::make_shared<Keyboards>("", [&devices] { return devices; }));
    window.resize(size);
    window.show();
    commands.keyboards().action().trigger();
    settle();
    QTreeWidget& table = commands.keyboards().dialog()->table();
    table.setCurrentItem(table.topLevelItem(1));
    settle();
    return keep(pictureOf(window, *commands.keyboards().dialog()), "keyboards");
}

bool keepSheet(MainWindow& window, const Keep& keep) {
    constexpr int kWidth = 620;
    const QTemporaryDir folder;
    const QString file = folder.filePath("sheet.png");
    SceneSheet sheet(window.view().pu(), {{WindowAction::scenes().front(), 0}}, "live.bank");
    return sheet.write(file.toStdString(), QPageSize::A4) &&
           keep(QPixmap(file).scaledToWidth(kWidth, Qt::SmoothTransformation), "sheet");
}

} // namespace

bool keepGuidePictures(MainWindow& window, const Keep& keep) {
    return keepFill(window, keep) && keepPalette(window, keep) && keepMonitor(window, keep) &&
           keepTrial(window, keep) && keepPlaying(window, keep) && keepSheet(window, keep) &&
           keepKeyboards(window.size(), keep);
}

} // namespace scenewright
