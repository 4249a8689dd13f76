#include "editor/qt/SceneCommands.h"

#include "app/WindowAction.h"
#include "bank/SettingText.h"
#include "platform/Resources.h"
#include "tests/editor-qt-files/CommandsBench.h"

#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QTest>
#include <QTimer>

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace scenewright::testing {

namespace {

using Names = std::vector<std::string>;

class SceneCommandsTest : public OpenWindow {
protected:
    SceneCommandsTest() {
        for (std::int32_t scene = 0; scene < kSceneCount; ++scene)
            WindowAction::getSceneWithIndex(scene)->buttonValueArray().at(kPad - 1)->setCR(10 *
                                                                                           scene);
        window().view().showChosenControl();
    }

    // Each scene's name and the red of its first pad: "SCENE1 0".
    static std::vector<std::string> scenes() {
        std::vector<std::string> all;
        for (const auto& scene : WindowAction::scenes())
            all.push_back(displayName(scene->commonValue()->SceneName()) + " " +
                          std::to_string(scene->buttonValueArray().at(kPad - 1)->CR()));
        return all;
    }

    QAction& command(const QString& title) {
        for (QAction* action : commands().scenes().menu().actions())
            if (action->text() == title)
                return *action;
        throw std::out_of_range(title.toStdString());
    }
};

TEST_F(SceneCommandsTest, EachCommandIsOneStepThatIsUndone) {
    const Names before{"SCENE1 0", "SCENE2 10", "SCENE3 20", "SCENE4 30"};
    ASSERT_EQ(scenes(), before);
    struct Row {
        std::function<void()> command;
        Names after;
        const char* step;
    };
    SceneCommands& command = commands().scenes();
    for (const Row& row : {Row{[&] { command.copy(0, 2); },
                               {"SCENE1 0", "SCENE2 10", "SCENE1 0", "SCENE4 30"},
                               "Copy Scene 1 to 3"},
                           Row{[&] { command.swap(1, 3); },
                               {"SCENE1 0", "SCENE4 30", "SCENE3 20", "SCENE2 10"},
                               "Swap Scenes 2 and 4"},
                           Row{[&] { command.reset(3); },
                               {"SCENE1 0", "SCENE2 10", "SCENE3 20", "SCENE4 127"},
                               "Reset Scene 4"}}) {
        row.command();
        EXPECT_EQ(scenes(), row.after);
        EXPECT_EQ(steps().undoText(), row.step);
        steps().undo();
        EXPECT_EQ(scenes(), before);
    }
}

TEST_F(SceneCommandsTest, CommandsOfTheChosenOnesSayHowManyTheyAreFor) {
    const std::pair<int, QStringList> rows[] = {
        {0, {"&Copy Scene Settings", "&Paste Scene Settings", "&Reset Scene Settings"}},
        {1, {"&Copy Control", "&Paste Control", "&Reset Control"}},
        {2, {"&Copy Control", "&Paste Into Controls", "&Reset Controls"}}};
    QStringList titles;
    for (const auto& [count, expected] : rows) {
        if (count > 0)
            QTest::mouseClick(&button(kPad + count), Qt::LeftButton,
                              count == 1 ? Qt::NoModifier : Qt::ControlModifier);
        titles.clear();
        for (const char* const verb : {"Copy", "Paste", "Reset"})
            titles.append(entry(verb).text());
        EXPECT_EQ(titles, expected);
    }
}

TEST_F(SceneCommandsTest, WithoutDefaultsAResetChangesAndTellsNothing) {
    writeBytes(folder.file("default.plist"), {});
    Resources::setFolder(folder.path());
    choose(kPad);
    record(kPad).setCR(9);
    const int before = steps().count();
    press(Qt::Key_Backspace);
    Resources::setFolder({});
    EXPECT_EQ(record(kPad).CR(), 9);
    EXPECT_EQ(notice(), "");
    EXPECT_EQ(steps().count(), before);
}

TEST_F(SceneCommandsTest, ASceneIsCopiedAndNotShared) {
    commands().scenes().copy(0, 1);
    record(kPad).setCR(99);
    EXPECT_EQ(scenes().at(1), "SCENE1 0");
}

TEST_F(SceneCommandsTest, ANameIsTakenWhileTheControllerCanHoldIt) {
    struct Row {
        QString typed;
        QString told;
        bool isTaken;
    };
    for (const Row& row :
         {Row{"Drums", "5 of 12 bytes", true},
          Row{QString::fromUtf8("Überraschung"),
              QString::fromUtf8("a scene's name has at most 12 bytes, and \"Überraschung\" has 13"),
              false},
          Row{QString::fromUtf8("Überraschun"), "12 of 12 bytes", true},
          Row{"thirteen byte", "a scene's name has at most 12 bytes, and \"thirteen byte\" has 13",
              false}}) {
        SCOPED_TRACE(row.typed.toStdString());
        const std::string before = scenes().front();
        inDialog<RenameDialog>(
            [this] { commands().scenes().rename(0); },
            [&](RenameDialog& dialog) {
                auto& name = field<QLineEdit>(dialog, "Name");
                EXPECT_EQ(tabStops(name), (QStringList{"Name", "Cancel", "Rename"}));
                EXPECT_EQ(name.selectedText().toStdString() + " 0", before);
                name.insert(row.typed);
                const QLabel& told = *dialog.findChildren<QLabel*>().front();
                EXPECT_EQ(told.text(), row.told);
                QCoreApplication::processEvents();
                EXPECT_GE(told.height(), told.heightForWidth(told.width())) << "it is seen whole";
                QTest::keyClick(&name, Qt::Key_Return);
                EXPECT_EQ(!dialog.isVisible(), row.isTaken);
                if (!row.isTaken)
                    dialog.reject();
            });
        EXPECT_EQ(scenes().front(), row.isTaken ? row.typed.toStdString() + " 0" : before);
    }
    EXPECT_EQ(steps().undoText(), "Rename Scene 1");
}

TEST_F(SceneCommandsTest, TheMenusRenameAndResetAreForTheSceneThatIsShown) {
    const auto rename = [this](const std::function<void(RenameDialog&)>& end) {
        inDialog<RenameDialog>([this] { command("&Rename...").trigger(); },
                               [&end](RenameDialog& dialog) {
                                   dialog.findChild<QLineEdit*>()->setText("Drums");
                                   end(dialog);
                               });
    };
    press(Qt::Key_2);
    rename([](RenameDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(scenes(), (Names{"SCENE1 0", "SCENE2 10", "SCENE3 20", "SCENE4 30"}));
    rename([](RenameDialog& dialog) { dialog.accept(); });
    EXPECT_EQ(scenes(), (Names{"SCENE1 0", "Drums 10", "SCENE3 20", "SCENE4 30"}));
    command("R&eset Scene").trigger();
    EXPECT_EQ(scenes(), (Names{"SCENE1 0", "SCENE2 127", "SCENE3 20", "SCENE4 30"}));
}

TEST_F(SceneCommandsTest, TheMenusOfferTheOtherScenes) {
    WindowAction::getSceneWithIndex(2)->commonValue()->setSceneName("R&B");
    press(Qt::Key_2);
    for (const auto& [name, after] :
         {std::pair{"swap-with", Names{"SCENE1 0", "SCENE4 30", "R&B 20", "SCENE2 10"}},
          {"copy-to", Names{"SCENE1 0", "SCENE4 30", "R&B 20", "SCENE4 30"}}}) {
        auto* others = commands().scenes().menu().findChild<QMenu*>(name);
        emit others->aboutToShow();
        emit others->aboutToShow(); // it does not grow
        QStringList titles;
        for (const QAction* action : others->actions())
            titles.append(action->text().left(5));
        EXPECT_EQ(titles, (QStringList{"&1  S", "&3  R", "&4  S"}));
        EXPECT_EQ(others->actions().at(1)->text(), "&3  R&&B");
        others->actions().back()->trigger();
        EXPECT_EQ(scenes(), after) << name;
    }
}

TEST_F(SceneCommandsTest, ASegmentsContextMenuIsForItsScene) {
    QAbstractButton& segment = window().scenes().segment(2);
    QContextMenuEvent event(QContextMenuEvent::Mouse, segment.rect().center(),
                            segment.mapToGlobal(segment.rect().center()));
    QApplication::sendEvent(&segment, &event);
    EXPECT_EQ(window().view().sceneIndex(), 2);
    EXPECT_TRUE(commands().scenes().menu().isVisible());
    commands().scenes().menu().close();
}

TEST_F(SceneCommandsTest, ASegmentIsDraggedOnceThePointerIsFarFromWhereItWasPressed) {
    QAbstractButton& segment = window().scenes().segment(1);
    const auto isDraggedTo = [&segment](QPoint place, Qt::MouseButton held = Qt::LeftButton) {
        bool isDragged = false; // seen while the drag waits for its drop
        QTimer::singleShot(0, &segment, [&] {
            if (const auto* const drag = segment.findChild<QDrag*>()) {
                isDragged = true;
                EXPECT_EQ(drag->mimeData()->data("application/x-scenewright-scene"), "1");
                EXPECT_EQ(drag->defaultAction(), Qt::MoveAction) << "Ctrl copies";
            }
            QDrag::cancel();
        });
        QMouseEvent move(QEvent::MouseMove, place, segment.mapToGlobal(place), Qt::NoButton, held,
                         Qt::NoModifier);
        QApplication::sendEvent(&segment, &move);
        QApplication::processEvents();
        return isDragged;
    };
    const int far = QApplication::startDragDistance();
    QTest::mousePress(&segment, Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_FALSE(isDraggedTo(QPoint(4 + far, 5)));
    EXPECT_FALSE(isDraggedTo(QPoint(5 + far, 5), Qt::RightButton));
    EXPECT_TRUE(isDraggedTo(QPoint(5 + far, 5)));
    EXPECT_FALSE(segment.isDown());
}

TEST_F(SceneCommandsTest, ASceneDroppedOnAnotherIsSwappedOrCopied) {
    QMimeData data;
    data.setData("application/x-scenewright-scene", "0");
    QAbstractButton& segment = window().scenes().segment(3);
    const auto drop = [&](Qt::KeyboardModifiers keys, bool isTaken = true) {
        const Names before = scenes();
        const auto action = keys == Qt::ControlModifier ? Qt::CopyAction : Qt::MoveAction;
        QDragEnterEvent enter(QPoint(5, 5), action, &data, Qt::LeftButton, keys);
        QApplication::sendEvent(&segment, &enter);
        EXPECT_EQ(enter.isAccepted(), isTaken);
        EXPECT_EQ(scenes(), before);
        QDropEvent event(QPointF(5, 5), action, &data, Qt::NoButton, keys);
        event.setDropAction(action);
        QApplication::sendEvent(&segment, &event);
    };
    drop(Qt::NoModifier);
    EXPECT_EQ(scenes(), (Names{"SCENE4 30", "SCENE2 10", "SCENE3 20", "SCENE1 0"}));
    drop(Qt::ControlModifier);
    const Names after{"SCENE4 30", "SCENE2 10", "SCENE3 20", "SCENE4 30"};
    EXPECT_EQ(scenes(), after);
    const int before = steps().count();
    data.setData("application/x-scenewright-scene", "3"); // its own
    drop(Qt::NoModifier, false);
    data.removeFormat("application/x-scenewright-scene");
    data.setText("0"); // of another program
    drop(Qt::NoModifier, false);
    EXPECT_EQ(scenes(), after);
    EXPECT_EQ(steps().count(), before);
}

} // namespace

} // namespace scenewright::testing
