// Doubles of the editor's widgets. Each writes what the logic does to it into one shared journal,
// in order, and behaves like its widget as far as the logic can tell.
#pragma once

#include "editor/Widgets.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace scenewright::testing {

using Lines = std::vector<std::string>;

// Lines such as `padCR.selectItem(5)`; log lines as `log: text`.
class Journal {
public:
    void add(const std::string& line) { lines_.push_back(line); }
    void clear() { lines_.clear(); }
    [[nodiscard]] const Lines& lines() const { return lines_; }
    // The lines that begin so.
    [[nodiscard]] Lines of(const std::string& beginning) const {
        Lines found;
        for (const std::string& line : lines_) {
            if (line.starts_with(beginning))
                found.push_back(line);
        }
        return found;
    }
    // The lines that do not name a button of the picture.
    [[nodiscard]] Lines withoutPicture() const {
        Lines found;
        for (const std::string& line : lines_) {
            if (!line.starts_with("button"))
                found.push_back(line);
        }
        return found;
    }

private:
    Lines lines_;
};

// What every double has: its name in the journal.
class Double {
public:
    Double(Journal& journal, std::string name) : journal_(&journal), name_(std::move(name)) {}

protected:
    void note(const std::string& what) const { journal_->add(name_ + "." + what); }
    static std::string yesNo(bool value) { return value ? "yes" : "no"; }

private:
    Journal* journal_;
    std::string name_;
};

class PopUpDouble final : public PopUp, Double {
public:
    using Double::Double;
    void removeAllItems() override {
        note("removeAllItems()");
        titles.clear();
        selected = -1;
    }
    // Titles are noted as the first one and their number.
    void addItems(const std::vector<std::string>& added) override {
        note("addItems(" + (added.empty() ? "" : added.front()) + " x" +
             std::to_string(added.size()) + ")");
        titles.insert(titles.end(), added.begin(), added.end());
    }
    void selectItem(std::int32_t position) override {
        note("selectItem(" + std::to_string(position) + ")");
        const bool isThere = position >= 0 && static_cast<std::size_t>(position) < titles.size();
        selected = isThere ? position : -1;
    }
    [[nodiscard]] std::int32_t selectedItem() const override { return selected; }
    void setEnabled(bool value) override {
        note("setEnabled(" + yesNo(value) + ")");
        enabled = value;
    }

    std::vector<std::string> titles;
    std::int32_t selected = -1;
    bool enabled = true;
};

class TextFieldDouble final : public TextField, Double {
public:
    using Double::Double;
    void setText(const std::string& value) override {
        note("setText(" + value + ")");
        text = value;
    }
    void setEditable(bool editable) override { note("setEditable(" + yesNo(editable) + ")"); }

    std::string text;
};

class PaneDouble final : public Pane, Double {
public:
    using Double::Double;
    void setHidden(bool value) override {
        note("setHidden(" + yesNo(value) + ")");
        hidden = value;
    }

    bool hidden = false;
};

class SegmentedDouble final : public Segmented {
public:
    [[nodiscard]] std::int32_t selectedSegment() const override { return selected; }

    std::int32_t selected = 0;
};

class SliderDouble final : public Slider, Double {
public:
    SliderDouble(Journal& journal, std::string name, std::int32_t tag)
        : Double(journal, std::move(name)), tag_(tag) {}
    [[nodiscard]] std::int32_t tag() const override { return tag_; }
    [[nodiscard]] std::int32_t value() const override { return position; }
    void setValue(std::int32_t value) override {
        note("setValue(" + std::to_string(value) + ")");
        position = value;
    }

    std::int32_t position = 0;

private:
    std::int32_t tag_;
};

class ButtonDouble final : public Button, Double {
public:
    ButtonDouble(Journal& journal, std::int32_t tag)
        : Double(journal, "button" + std::to_string(tag)), tag_(tag) {}
    [[nodiscard]] std::int32_t tag() const override { return tag_; }
    void setImage(const std::optional<std::string>& name) override {
        note("setImage(" + name.value_or("none") + ")");
        image = name;
    }
    void setTitle(const std::string& text) override {
        note("setTitle(" + text + ")");
        title = {text, std::nullopt};
    }
    [[nodiscard]] AttributedTitle attributedTitle() const override { return title; }
    void setAttributedTitle(const AttributedTitle& value) override {
        const Colour colour = value.colour.value_or(Colour{});
        note("setAttributedTitle(" + value.text + ", " + std::to_string(colour.red) + " " +
             std::to_string(colour.green) + " " + std::to_string(colour.blue) + ")");
        title = value;
    }
    void setNeedsDisplay() override { note("setNeedsDisplay()"); }
    void setAction(std::function<void()> /*action*/) override { note("setAction()"); }

    std::optional<std::string> image;
    AttributedTitle title;

private:
    std::int32_t tag_;
};

// A picture with the buttons 1 to 45, each of which can be taken away.
class BoardDouble final : public ButtonBoard {
public:
    explicit BoardDouble(Journal& journal) {
        for (std::int32_t tag = 1; tag <= 45; ++tag)
            buttons.emplace(tag, std::make_unique<ButtonDouble>(journal, tag));
    }
    [[nodiscard]] Button* viewWithTag(std::int32_t tag) override {
        asked.push_back(tag);
        const auto button = buttons.find(tag);
        return button == buttons.end() ? nullptr : button->second.get();
    }

    std::map<std::int32_t, std::unique_ptr<ButtonDouble>> buttons;
    std::vector<std::int32_t> asked;
};

// Tells its delegate of a selection that differs from the one before, as the widget does.
class ListDouble final : public List, Double {
public:
    using Double::Double;
    void setDataSource(ListDataSource* value) override {
        note("setDataSource()");
        source = value;
    }
    void setDelegate(ListDelegate* value) override {
        note("setDelegate()");
        delegate = value;
    }
    void reload() override { note("reload()"); }
    void selectRow(std::int32_t row) override {
        note("selectRow(" + std::to_string(row) + ")");
        change(row);
    }
    [[nodiscard]] std::int32_t clickedRow() const override { return clicked; }

    // The user's ways to choose a row.
    void click(std::int32_t row) { choose(row, row); }
    void chooseByKeys(std::int32_t row) { choose(row, -1); }

    ListDataSource* source = nullptr;
    ListDelegate* delegate = nullptr;
    std::int32_t clicked = -1;
    std::int32_t selected = -1;

private:
    void choose(std::int32_t row, std::int32_t clickedThere) {
        clicked = clickedThere;
        change(delegate->proposeSelection({row}).at(0));
        clicked = -1;
    }
    void change(std::int32_t row) {
        if (row == selected)
            return;
        selected = row;
        delegate->selectionDidChange();
    }
};

} // namespace scenewright::testing
