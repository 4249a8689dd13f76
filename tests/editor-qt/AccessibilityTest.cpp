// What a screen reader is told, and whether texts can be read at all.
#include "editor/qt/ControlShape.h"
#include "editor/qt/Dialogs.h"
#include "editor/qt/EditorCommands.h"
#include "tests/editor-qt/WindowBench.h"
#include "tests/support/Limits.h"

#include <QAccessible>
#include <QLabel>
#include <QMenu>
#include <QScrollArea>
#include <QTest>

#include <algorithm>
#include <cstdint>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace scenewright::testing {
namespace {

bool isShownIn(const QWidget& area, const QWidget& widget) {
    const auto* room = qobject_cast<const QScrollArea*>(&area);
    return room != nullptr && (room->widget() == &widget || room->widget()->isAncestorOf(&widget));
}

// A widget of a popup's or a list's own making carries no name of its own in the toolkit.
bool isPartOfAnother(const QWidget& widget) {
    for (const QWidget* at = widget.parentWidget(); at != nullptr; at = at->parentWidget())
        if (qobject_cast<const QComboBox*>(at) ||
            (qobject_cast<const QAbstractScrollArea*>(at) && !isShownIn(*at, widget)))
            return true;
    return false;
}

QString nameOf(QWidget& widget) {
    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(&widget);
    return face == nullptr ? QString() : face->text(QAccessible::Name);
}

// Every widget of the tree that says nothing.
std::string namelessIn(QWidget& root) {
    QStringList nameless;
    QList<QWidget*> widgets = root.findChildren<QWidget*>();
    widgets.append(&root);
    for (QWidget* widget : widgets) {
        if (isPartOfAnother(*widget) || !nameOf(*widget).isEmpty())
            continue;
        nameless.append(QString::fromLatin1(widget->metaObject()->className()) + " " +
                        widget->objectName() + " in " +
                        (widget->parent() ? widget->parent()->metaObject()->className() : ""));
    }
    return nameless.join('\n').toStdString();
}

class Accessibility : public WindowBench {};

TEST_F(Accessibility, EveryWidgetHasAName) {
    EXPECT_EQ(namelessIn(open()), std::string());
    const EditorCommands commands(window(), nullptr);
    About about;
    for (QWidget* root :
         {static_cast<QWidget*>(&window()),
          static_cast<QWidget*>(&window().subWindow<GainWindow>()),
          static_cast<QWidget*>(&window().subWindow<GuideWindow>()), static_cast<QWidget*>(&about)})
        EXPECT_EQ(namelessIn(*root), std::string());
    QWidget root;
    root.setAccessibleName("root");
    QWidget nameless(&root);
    EXPECT_EQ(namelessIn(root), "QWidget  in QWidget") << "one without would be found";
}

TEST_F(Accessibility, WidgetsAreNamedAndDescribedInWords) {
    open();
    const std::pair<const QWidget*, const char*> rows[] = {
        {window().picture().button(1), "Group 1"},
        {window().picture().button(14), "Pad 2"},
        {window().picture().button(45), "Key 25"},
        {&window().panes().popUp("commonPianoKeyCh"), "Keyboard MIDI channel"},
        {&window().panes().popUp("padCB"), "Blue"},
        {&window().scenes().segment(0), "Scene 1, SCENE1"},
    };
    for (const auto& [widget, name] : rows)
        EXPECT_EQ(widget->accessibleName(), name);
    for (std::int32_t tag = 1; tag <= kControlCount; ++tag) {
        const ControlButton* button = window().picture().button(tag);
        EXPECT_TRUE(button->accessibleDescription().startsWith(button->accessibleName() + ": "));
    }
}

TEST_F(Accessibility, PartsOfTheWindowAreWhatTheyWorkAs) {
    open();
    const auto faceOf = [](QWidget& widget) {
        return QAccessible::queryAccessibleInterface(&widget);
    };
    EXPECT_EQ(faceOf(window().notices())->role(), QAccessible::AlertMessage);
    for (int scene = 0; scene < kSceneCount; ++scene) {
        QAccessibleInterface* face = faceOf(window().scenes().segment(scene));
        EXPECT_EQ(face->role(), QAccessible::RadioButton);
        EXPECT_EQ(face->state().checked, scene == 0 ? 1U : 0U);
    }
    using Actions = QAccessibleActionInterface;
    const auto act = [&](QWidget& widget, const QString& action) {
        Actions* const actions = faceOf(widget)->actionInterface();
        EXPECT_TRUE(actions->actionNames().contains(action)) << action.toStdString();
        actions->doAction(action);
    };
    act(window().scenes().segment(2), Actions::toggleAction());
    EXPECT_EQ(window().view().sceneIndex(), 2);
    ControlButton& pad = *window().picture().button(13);
    for (QWidget* const widget :
         {static_cast<QWidget*>(&window().scenes().segment(1)), static_cast<QWidget*>(&pad)}) {
        act(*widget, Actions::setFocusAction());
        EXPECT_EQ(window().focusWidget(), widget);
    }
}

TEST_F(Accessibility, AControlIsChosenAloneWhenPressedAndBesideOthersWhenToggled) {
    open();
    const auto faceOf = [this](std::int32_t tag) {
        return QAccessible::queryAccessibleInterface(window().picture().button(tag));
    };
    using Action = QAccessibleActionInterface;
    struct Row {
        const QString& action;
        std::int32_t tag;
        std::vector<std::int32_t> chosen;
    };
    for (const Row& row :
         {Row{Action::pressAction(), 13, {13}}, Row{Action::toggleAction(), 15, {13, 15}},
          Row{Action::toggleAction(), 13, {15}}, Row{Action::pressAction(), 14, {14}}}) {
        QAccessibleInterface* const face = faceOf(row.tag);
        EXPECT_EQ(face->role(), QAccessible::Button);
        EXPECT_TRUE(face->state().selectable && face->state().multiSelectable);
        EXPECT_EQ(face->actionInterface()->actionNames().mid(0, 2),
                  (QStringList{Action::pressAction(), Action::toggleAction()}));
        face->actionInterface()->doAction(row.action);
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return window().choice().selection().controls() == row.chosen; },
                            testing::kLimitMilliseconds));
        for (const std::int32_t tag : {13, 14, 15})
            EXPECT_EQ(faceOf(tag)->state().selected != 0, std::ranges::count(row.chosen, tag) == 1)
                << tag;
    }
}

TEST_F(Accessibility, ControlsOfThePictureStandInTheOrderOfTheirTags) {
    open();
    QAccessibleInterface* picture = QAccessible::queryAccessibleInterface(&window().picture());
    ASSERT_EQ(picture->childCount(), kControlCount);
    for (int place = 0; place < kControlCount; ++place) {
        QAccessibleInterface* control = picture->child(place);
        EXPECT_EQ(control->object(), window().picture().button(place + 1));
        EXPECT_EQ(picture->indexOfChild(control), place);
    }
    const ControlButton& black = *window().picture().button(22);
    const QPoint onBoth = black.mapToGlobal(QPoint(2, 10));
    EXPECT_EQ(picture->childAt(onBoth.x(), onBoth.y())->object(), &black);
}

// Parameter: display mode and whether the window has its default size or that of a small screen.
class Titles : public WindowBench,
               public ::testing::WithParamInterface<std::tuple<std::int32_t, bool>> {};

TEST_P(Titles, FitTheirControlsAndAreGreen) {
    open();
    const auto& [mode, isSmall] = GetParam();
    if (isSmall)
        window().resize(1024, 600);
    // Both a controller's and a note's titles are shown; the longest numbers are among them.
    for (std::int32_t tag = 13; tag <= kControlCount; ++tag) {
        auto& record =
            *window().view().sceneValue()->buttonValueArray().at(static_cast<std::size_t>(tag - 1));
        record.setAssignType(tag % 2 + 1);
        record.setCCOrNoteNumber(tag % 2 == 0 ? 1 : 127);
        record.setOnValue(127);
        record.setOffValue(100);
    }
    window().displayModes().selectItem(mode);
    window().view().changeDispalyAction(window().displayModes());
    for (std::int32_t tag = 1; tag <= kControlCount; ++tag) {
        const ControlButton* button = window().picture().button(tag);
        const AttributedTitle title = button->attributedTitle();
        const CaptionSetting setting = button->captionSetting();
        EXPECT_TRUE(setting.fits) << tag << " " << title.text;
        EXPECT_GE(setting.font.pixelSize(), kSmallestCaption);
        EXPECT_EQ(title.colour, (Colour{50, 180, 50})) << tag;
        EXPECT_TRUE(QRectF(button->rect()).contains(button->captionRect()));
    }
}

INSTANTIATE_TEST_SUITE_P(AllModes, Titles,
                         ::testing::Combine(::testing::Range(0, 8), ::testing::Bool()));

class Texts : public WindowBench, public ::testing::WithParamInterface<bool> {};

// Every label and button of the window has the room that its text takes.
TEST_P(Texts, AreNotClipped) {
    open();
    if (GetParam())
        window().resize(1024, 600);
    for (std::int32_t control : {0, 1, 5, 9, 13, 21}) {
        window().list().selectRow(control);
        QTest::qWait(10);
        for (const QLabel* label : window().findChildren<QLabel*>()) {
            if (!label->isVisible() || label->wordWrap())
                continue;
            const QString text = QString(label->text()).remove('&');
            EXPECT_LE(label->fontMetrics().horizontalAdvance(text), label->contentsRect().width())
                << text.toStdString();
            EXPECT_LE(label->fontMetrics().height() * !text.isEmpty(),
                      label->contentsRect().height())
                << text.toStdString();
        }
        for (const QPushButton* button : window().findChildren<QPushButton*>()) {
            if (!button->isVisible()) // and not laid out
                continue;
            EXPECT_GE(button->width(), button->minimumSizeHint().width())
                << button->text().toStdString();
        }
        for (const PopUpBox* box : window().findChildren<PopUpBox*>()) {
            if (!box->isVisible())
                continue;
            EXPECT_LE(box->fontMetrics().horizontalAdvance(box->currentText()), box->width() - 30)
                << box->objectName().toStdString();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(BothSizes, Texts, ::testing::Bool());

} // namespace
} // namespace scenewright::testing
