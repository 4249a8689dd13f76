// Asks what the chosen controls are given: notes by a scale, controllers in a row, a channel,
// colours; or by how much their notes are moved. While it is open, the picture shows what would
// come of it; the scenes stay as they are.
#pragma once

#include "app/StoredScenes.h"
#include "editor/qt/MainWindow.h"
#include "editor/qt/PopUpBox.h"
#include "model/SceneValue.h"

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QStackedWidget>

#include <cstdint>
#include <string>
#include <vector>

namespace scenewright {

class FillDialog final : public QDialog {
    Q_OBJECT

public:
    enum class What : std::uint8_t { Notes, Controllers, Channel, Colours, Transpose };

    // For the controls that are chosen in the window, which has one at least. It outlives the
    // dialog.
    FillDialog(MainWindow& window, What what);

    [[nodiscard]] static bool offers(ControlKind kind, What what);

    // The scenes with what is asked for; the error says in a player's words why it cannot be done.
    [[nodiscard]] const Result<SceneList>& filled() const { return filled_; }

    void done(int result) override;

private:
    void standBelow();
    void addPage(What what);
    void askForColour(QPushButton& button);
    [[nodiscard]] What what() const;
    // What fillValues() is to start with.
    [[nodiscard]] std::string start() const;
    [[nodiscard]] Result<FillSteps> steps() const;
    [[nodiscard]] Result<SceneList> fill() const;
    [[nodiscard]] QString sentenceOf(const FillError& error) const;
    // Fills anew, and shows it on the picture.
    void follow();

    MainWindow& window_;
    const ControlRange& range_;
    std::vector<std::int32_t> members_; // of the kind, from 0
    std::vector<What> offered_;         // in the order of the popup and the pages
    Result<SceneList> filled_;
    // Children of the dialog; those of a page that the kind does not have are null.
    PopUpBox* whats_;
    QStackedWidget* pages_;
    QLineEdit* note_ = nullptr;
    QComboBox* noteSteps_ = nullptr;
    QLineEdit* controller_ = nullptr;
    QLineEdit* controllerSteps_ = nullptr;
    QSpinBox* channel_ = nullptr;
    PopUpBox* colours_ = nullptr;
    QPushButton* fromColour_ = nullptr;
    QPushButton* toColour_ = nullptr;
    QSpinBox* semitones_ = nullptr;
    QLabel* told_;
    QPushButton* accept_ = nullptr;
};

} // namespace scenewright
