#include "editor/qt/AccessibleFaces.h"

#include "editor/qt/DevicePicture.h"
#include "editor/qt/NoticeBar.h"

#include <QAccessibleWidget>

#include <memory>

namespace scenewright {

namespace {

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
        return QStringList(toggleAction()) + QAccessibleWidget::actionNames();
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

void installAccessibleFaces() {
    QAccessible::installFactory(&faceOf);
}

} // namespace scenewright
