// The widgets that the view logic drives, as narrow as it needs them.
//
// No toolkit type passes here: texts are UTF-8, positions count from 0, -1 is no selection. An
// adapter forwards each call to its widget and nothing else; a test double records it. A change
// that the program makes never calls an action back; only a user's does. Main thread only. The
// owner of the window owns the widgets; the logic holds plain pointers that outlive it.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace scenewright {

// Opaque colour; each part 0 to 255.
struct Colour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    friend bool operator==(const Colour&, const Colour&) = default;
};

class PopUp {
public:
    virtual ~PopUp() = default;
    virtual void removeAllItems() = 0;
    virtual void addItems(const std::vector<std::string>& titles) = 0;
    // A position that the popup does not have leaves it without a selection.
    virtual void selectItem(std::int32_t position) = 0;
    [[nodiscard]] virtual std::int32_t selectedItem() const = 0;
    virtual void setEnabled(bool enabled) = 0;
};

class TextField {
public:
    virtual ~TextField() = default;
    virtual void setText(const std::string& text) = 0;
    virtual void setEditable(bool editable) = 0;
};

class Pane {
public:
    virtual ~Pane() = default;
    virtual void setHidden(bool hidden) = 0;
};

class Segmented {
public:
    virtual ~Segmented() = default;
    [[nodiscard]] virtual std::int32_t selectedSegment() const = 0;
};

class Slider {
public:
    virtual ~Slider() = default;
    [[nodiscard]] virtual std::int32_t tag() const = 0;
    [[nodiscard]] virtual std::int32_t value() const = 0;
    virtual void setValue(std::int32_t value) = 0;
};

// A title with the colour of its whole length.
struct AttributedTitle {
    std::string text;
    std::optional<Colour> colour;
    friend bool operator==(const AttributedTitle&, const AttributedTitle&) = default;
};

// What a user can click.
class Clickable {
public:
    virtual ~Clickable() = default;
    // Called when the user clicks it, in place of what it did before.
    virtual void setAction(std::function<void()> action) = 0;
};

class Button : public Clickable {
public:
    [[nodiscard]] virtual std::int32_t tag() const = 0;
    // The image of that name among the resources; nothing takes the image away.
    virtual void setImage(const std::optional<std::string>& name) = 0;
    // Sets the title and drops its colour.
    virtual void setTitle(const std::string& title) = 0;
    [[nodiscard]] virtual AttributedTitle attributedTitle() const = 0;
    virtual void setAttributedTitle(const AttributedTitle& title) = 0;
    // The button, or what it stands for, has changed: it is drawn anew and described anew.
    virtual void setNeedsDisplay() = 0;
};

// The device picture: its buttons are found by tag.
class ButtonBoard {
public:
    virtual ~ButtonBoard() = default;
    // Null when no button carries the tag.
    [[nodiscard]] virtual Button* viewWithTag(std::int32_t tag) = 0;
};

// Where a list gets its rows from.
class ListDataSource {
public:
    virtual ~ListDataSource() = default;
    [[nodiscard]] virtual std::int32_t rowCount() = 0;
    [[nodiscard]] virtual std::string rowTitle(std::int32_t row) = 0;
    [[nodiscard]] virtual bool mayEdit(std::int32_t row) = 0;
};

// Whom a list asks and tells about its selection.
class ListDelegate {
public:
    virtual ~ListDelegate() = default;
    // A user's selection only, before it takes effect; returns what is selected then.
    [[nodiscard]] virtual std::vector<std::int32_t>
    proposeSelection(const std::vector<std::int32_t>& rows) = 0;
    // Every change of the selection, the program's own included.
    virtual void selectionDidChange() = 0;
};

class List {
public:
    virtual ~List() = default;
    virtual void setDataSource(ListDataSource* source) = 0;
    virtual void setDelegate(ListDelegate* delegate) = 0;
    virtual void reload() = 0;
    // Replaces the selection.
    virtual void selectRow(std::int32_t row) = 0;
    // The row last clicked; -1 when the selection was not made by a click.
    [[nodiscard]] virtual std::int32_t clickedRow() const = 0;
};

// The program's main window.
class Window {
public:
    virtual ~Window() = default;
    // The close button of the window's frame; it lives as long as the window.
    [[nodiscard]] virtual Clickable& standardCloseButton() = 0;
};

// The running application.
class Application {
public:
    virtual ~Application() = default;
    virtual void terminate() = 0;
};

} // namespace scenewright
