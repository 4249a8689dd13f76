// The list of controls, and which of them are chosen by mouse and keys, in it and on the picture.
#pragma once

#include "editor/ControlSelection.h"
#include "editor/ViewController.h"
#include "editor/Widgets.h"
#include "editor/qt/DevicePicture.h"
#include "editor/qt/ValuePanes.h"

#include <QAbstractListModel>
#include <QListView>
#include <QObject>

#include <cstdint>
#include <vector>

namespace scenewright {

// The rows of a data source.
class ControlRows final : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    void setSource(ListDataSource* source);
    void reload();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    ListDataSource* source_ = nullptr;
};

// A row is clicked with the mouse, or with Return or Enter while the keys stand on it; moving with
// the keys selects without a click. What the keys have passed over counts as not chosen yet: a
// click on it, or the program's selecting it, is a change of the selection. With Ctrl or Shift the
// user asks for several rows: it is told, and who is told selects them beside the one.
class ControlList final : public QListView, public List {
    Q_OBJECT

public:
    explicit ControlList(QWidget* parent = nullptr);

    void setDataSource(ListDataSource* source) override;
    void setDelegate(ListDelegate* delegate) override;
    void reload() override;
    void selectRow(std::int32_t row) override;
    [[nodiscard]] std::int32_t clickedRow() const override { return clickedRow_; }

    // As wide as its longest title asks for.
    void fitTitles();

    // The one of the given selection; -1 for none.
    [[nodiscard]] std::int32_t selectedRow() const { return row_; }
    // Shows these as selected too.
    void selectBeside(const std::vector<std::int32_t>& rows);

signals:
    // By the user, with Ctrl, Shift or neither; then the row has been clicked.
    void rowChosen(std::int32_t row, Qt::KeyboardModifiers modifiers);

protected:
    // The selection follows only what the delegate answers, so the view itself selects nothing.
    [[nodiscard]] QItemSelectionModel::SelectionFlags
    selectionCommand(const QModelIndex& index, const QEvent* event) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;

private:
    void click(std::int32_t row, Qt::KeyboardModifiers modifiers);
    void chooseByUser(std::int32_t row, bool isClick);
    void apply(std::int32_t row, bool isClick);

    ControlRows rows_;
    ListDelegate* delegate_ = nullptr;
    std::int32_t row_ = -1;
    std::int32_t clickedRow_ = -1;
    bool isPassedOver_ = false; // the selection was made by the keys
    bool isApplying_ = false;
};

// One control, as the view logic has it, or several around it. With Ctrl a control is taken in or
// out, with Shift all up to it; a band on the picture takes what it touches. What it is given
// outlives it. Main thread only.
class ControlChoice final : public QObject {
    Q_OBJECT

public:
    ControlChoice(ViewController& view, DevicePicture& picture, ControlList& list,
                  ValuePanes& panes, QObject* parent);

    [[nodiscard]] const ControlSelection& selection() const { return selection_; }
    // All of the chosen one's kind.
    void selectAll();
    // Brings picture and list up to date after a change of the view. What the view chose by itself
    // is chosen alone.
    void follow();

signals:
    // Others are chosen beside the same one, so that the view has told nothing.
    void changed();

private:
    // Of a button of the picture.
    void click(const ControlButton& button);
    void choose(std::int32_t control, Qt::KeyboardModifiers modifiers);
    void chooseAll(const std::vector<std::int32_t>& controls, Qt::KeyboardModifiers modifiers);
    // Chooses in the view what the selection has come to.
    void apply();
    // Before the view writes a popup's option into the chosen control: into the others alike.
    void writeBeside(const Setting& setting, std::int32_t option);

    ViewController& view_;
    DevicePicture& picture_;
    ControlList& list_;
    ControlSelection selection_;
};

} // namespace scenewright
