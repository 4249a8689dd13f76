#include "editor/qt/Dialogs.h"

#include "editor/ValuePopUps.h"
#include "editor/qt/Theme.h"
#include "platform/Diagnostics.h"
#include "tests/editor-qt/WindowBench.h"
#include "tests/support/Limits.h"

#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QTextBlock>
#include <QTreeWidget>
#include <QWhatsThis>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace scenewright {
namespace {

QStringList labels(const QWidget& parent) {
    QStringList texts;
    for (const QLabel* label : parent.findChildren<QLabel*>())
        texts.append(label->text());
    return texts;
}

TEST(DialogTable, ColumnsAreAsWideAsTheirTextsWithAGapUpToTheWidest) {
    QTreeWidget table;
    layOutTable(table, "Table", {"A", "B", "C"});
    const QStringList texts{QString(10, 'W'), "a text", "i"};
    QTreeWidgetItem row(&table, texts); // ends with the table or before it
    fitColumns(table);
    table.resizeColumnToContents(0);
    const int bare = table.columnWidth(0);
    const auto inkOf = [&table](const QString& text) {
        return table.fontMetrics().horizontalAdvance(text);
    };
    EXPECT_GE(bare, inkOf(texts[0]));
    fitColumns(table);
    EXPECT_EQ(table.columnWidth(0), bare + 18);
    EXPECT_EQ(table.columnWidth(1) - inkOf(texts[1]), table.columnWidth(0) - inkOf(texts[0]));
    fitColumns(table, 60);
    EXPECT_EQ(table.columnWidth(0), 60);
    table.header()->setStretchLastSection(false);
    fitColumns(table);
    const int last = table.columnWidth(2);
    table.resizeColumnToContents(2);
    EXPECT_EQ(table.columnWidth(2), last) << "no gap behind it";
}

TEST(About, TellsTheVersionsTheLicenceAndTheLibrariesUntilReturnClosesIt) {
    About about;
    about.resize(600, about.sizeHint().height());
    about.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&about, testing::kLimitMilliseconds));
    EXPECT_EQ(about.windowTitle(), "About Scenewright");
    EXPECT_EQ(about.accessibleName(), "About Scenewright");
    const QStringList texts = labels(about);
    ASSERT_EQ(texts.size(), 4);
    EXPECT_TRUE(texts[0].startsWith("Scenewright "));
    EXPECT_EQ(texts[1], "An editor for the four scenes of a USB MIDI keyboard controller.");
    EXPECT_EQ(texts[2], QStringLiteral("Qt %1, built with Qt %2").arg(qVersion(), QT_VERSION_STR));
    const auto* libraries = about.findChild<QTreeWidget*>();
    ASSERT_GE(libraries->topLevelItemCount(), 9);
    for (int row = 0; row < libraries->topLevelItemCount(); ++row) {
        const QTreeWidgetItem& library = *libraries->topLevelItem(row);
        const std::string name = library.text(0).toStdString();
        EXPECT_TRUE(QRegularExpression("^\\d+(\\.\\d+)*$").match(library.text(1)).hasMatch())
            << name;
        EXPECT_FALSE(library.text(2).isEmpty()) << name;
    }
    const QString licence = about.findChild<QPlainTextEdit*>()->toPlainText();
    EXPECT_TRUE(licence.startsWith("MIT License\n"));
    EXPECT_TRUE(licence.contains("Permission is hereby granted, free of charge"));
    QTest::keyClick(&about, Qt::Key_Return);
    EXPECT_EQ(about.result(), QDialog::Accepted);
    EXPECT_FALSE(about.isVisible());
}

class GainWindowTest : public ::testing::Test {
protected:
    GainWindowTest() { window_.show(); }
    ~GainWindowTest() override { Diagnostics::setLog({}); }

    QList<SliderBar*> sliders() { return window_.findChildren<SliderBar*>(); }
    QStringList labels() {
        QStringList texts;
        for (const TextLabel* label : window_.findChildren<TextLabel*>())
            texts.append(label->text());
        return texts;
    }
    void press(const QString& name) {
        for (QPushButton* button : window_.findChildren<QPushButton*>())
            if (button->accessibleName() == name)
                QTest::mouseClick(button, Qt::LeftButton);
    }

    GainWindow window_;
};

TEST_F(GainWindowTest, SlidersAndButtonsAreThoseOfItsController) {
    std::vector<std::string> lines;
    Diagnostics::setLog([&lines](std::string_view line) { lines.emplace_back(line); });
    const QStringList before(8, "64/127");
    EXPECT_EQ(labels(), before);
    for (int place = 0; place < 8; ++place) {
        SliderBar& slider = *sliders().at(place);
        QTest::keyClick(&slider, Qt::Key_End);
        EXPECT_NE(slider.QSlider::value(), 64);
        EXPECT_EQ(window_.controller().gainArray().at(static_cast<std::size_t>(place)),
                  slider.QSlider::value());
        QStringList after = before;
        after[place] = QString("%1/127").arg(slider.QSlider::value());
        EXPECT_EQ(labels(), after);
        press("Default");
        EXPECT_EQ(labels(), before);
    }
    lines.clear();
    press("OK");
    press("Apply");
    EXPECT_EQ(lines, (std::vector<std::string>{"OK", "Apply"}));
    EXPECT_TRUE(window_.isVisible());
}

TEST_F(GainWindowTest, EachGainIsAColumnAndAButtonAsWideAsTwo) {
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_, testing::kLimitMilliseconds));
    QList<QLabel*> headings; // and what is below the columns
    for (QLabel* label : window_.findChildren<QLabel*>())
        if (qobject_cast<TextLabel*>(label) == nullptr)
            headings.append(label);
    const auto values = window_.findChildren<TextLabel*>();
    ASSERT_EQ(headings.size(), 9);
    for (int gain = 0; gain < 8; ++gain) {
        const QRect value = values.at(gain)->geometry();
        const QRect slider = sliders().at(gain)->geometry();
        const QRect heading = headings.at(gain)->geometry();
        EXPECT_EQ(headings.at(gain)->text(), QString::number(gain + 1));
        EXPECT_NEAR(slider.center().x(), value.center().x(), 1) << gain;
        EXPECT_NEAR(heading.center().x(), value.center().x(), 1) << gain;
        EXPECT_LT(heading.bottom(), slider.top()) << gain;
        EXPECT_LT(slider.bottom(), value.top()) << gain;
        EXPECT_TRUE(gain == 0 || value.left() > values.at(gain - 1)->geometry().right()) << gain;
        EXPECT_EQ(slider.height(), 170) << gain;
        values.at(gain)->setText("127/127");
        EXPECT_LE(values.at(gain)->sizeHint().width(), value.width()) << gain;
        EXPECT_EQ(values.at(gain)->alignment(), Qt::AlignCenter) << gain;
    }
    const QRect hint = headings.last()->geometry();
    EXPECT_GT(hint.top(), values.front()->geometry().bottom());
    EXPECT_EQ(hint.left(), values.front()->x());
    EXPECT_EQ(hint.right(), values.back()->geometry().right());
    const auto buttons = window_.findChildren<QPushButton*>();
    ASSERT_EQ(buttons.size(), 3);
    for (const auto& [button, first] : {std::pair{0, 0}, {1, 4}, {2, 6}}) {
        const QRect place = buttons.at(button)->geometry();
        EXPECT_GT(place.top(), hint.bottom()) << button;
        EXPECT_EQ(place.top(), buttons.front()->y()) << button;
        EXPECT_NEAR(place.left(), values.at(first)->x(), 1) << button;
        EXPECT_NEAR(place.right(), values.at(first + 1)->geometry().right(), 1) << button;
    }
    EXPECT_TRUE(buttons.at(2)->isDefault());
}

// Takes what the program would have the desktop open.
class Desktop {
public:
    Desktop() {
        for (const char* scheme : kSchemes)
            QDesktopServices::setUrlHandler(QLatin1String(scheme), &taker_, "setSource");
    }
    ~Desktop() {
        for (const char* scheme : kSchemes)
            QDesktopServices::unsetUrlHandler(QLatin1String(scheme));
    }
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    [[nodiscard]] QUrl opened() const { return taker_.source(); }

private:
    static constexpr std::array kSchemes{"file", "https"};
    QTextBrowser taker_; // for its slot
};

class HelpTest : public testing::WindowBench {
protected:
    GuideWindow& openGuide() {
        open();
        QTest::keyClick(&window(), Qt::Key_F1);
        return window().subWindow<GuideWindow>();
    }
};

QString pageOf(GuideWindow& guide) {
    return guide.pages().source().fileName();
}

QPushButton& buttonOf(GuideWindow& guide, const QString& name) {
    for (QPushButton* button : guide.findChildren<QPushButton*>())
        if (button->accessibleName() == name)
            return *button;
    throw std::logic_error("no button of that name");
}

// What a page links to and shows.
struct Content {
    QStringList links;
    int pictures = 0;
    int wrong = 0; // of the pictures: missing, or wider than a page
};

Content contentOf(const QTextDocument& page) {
    Content content;
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next())
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            const QTextCharFormat format = at.fragment().charFormat();
            content.links.append(format.anchorHref().section('#', 0, 0));
            if (!format.isImageFormat())
                continue;
            const auto picture =
                page.resource(QTextDocument::ImageResource, QUrl(format.toImageFormat().name()))
                    .value<QImage>();
            ++content.pictures;
            content.wrong += picture.isNull() || picture.deviceIndependentSize().width() > 760;
        }
    return content;
}

TEST_F(HelpTest, F1OpensTheGuideOfWhichEachPageCanBeReachedAndHasItsPictures) {
    GuideWindow& guide = openGuide();
    EXPECT_TRUE(guide.isVisible());
    EXPECT_EQ(pageOf(guide), "guide.html");
    EXPECT_TRUE(guide.pages().toPlainText().contains("The first five minutes"));
    const QTextDocument& page = *guide.pages().document();
    std::set<QString> reached;
    int pictures = 0;
    QStringList waiting{pageOf(guide)};
    while (!waiting.isEmpty()) {
        const QString file = waiting.takeFirst();
        if (!file.endsWith(".html") || !reached.insert(file).second)
            continue;
        guide.pages().setSource(guide.pages().source().resolved(QUrl(file)));
        EXPECT_EQ(pageOf(guide), file);
        const Content content = contentOf(page);
        EXPECT_EQ(content.wrong, 0) << file.toStdString();
        pictures += content.pictures;
        waiting.append(content.links);
    }
    EXPECT_GE(reached.size(), 7U);
    EXPECT_GE(pictures, 7);
}

// The colour of the first text of a page that stands in this element.
QColor colourOf(const QTextDocument& page, bool isHeading) {
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next())
        for (auto at = block.begin(); !at.atEnd(); ++at)
            if (const QTextCharFormat format = at.fragment().charFormat();
                !format.isAnchor() && (block.blockFormat().headingLevel() > 0) == isHeading)
                return format.foreground().color();
    return {};
}

TEST_F(HelpTest, PagesHaveTheColoursOfTheThemeAndFollowIt) {
    GuideWindow& guide = openGuide();
    const QTextDocument& page = *guide.pages().document();
    const auto actions = window().findChildren<QAction*>();
    for (const char* const title : {"&Light", "&Dark", "As the &System"}) {
        (*std::ranges::find(actions, QLatin1String(title), &QAction::text))->trigger();
        QApplication::processEvents();
        const Theme& theme = themeOf(isDark(QApplication::palette()));
        EXPECT_EQ(colourOf(page, true), theme.text) << title;
        EXPECT_EQ(colourOf(page, false), theme.muted) << title << ", the list of the pages";
    }
    const QVariant gone = page.resource(QTextDocument::ImageResource, QUrl("gone.png"));
    EXPECT_TRUE(gone.value<QImage>().isNull());
}

TEST_F(HelpTest, LinkToAHeadingShowsIt) {
    GuideWindow& guide = openGuide();
    guide.pages().setSource(guide.pages().source().resolved(QUrl("window.html#the-menus")));
    QCoreApplication::processEvents();
    GuidePages& pages = guide.pages();
    const QTextBlock top = pages.cursorForPosition(QPoint(30, 4)).block();
    EXPECT_TRUE(top.text() == "The menus" || top.next().text() == "The menus")
        << top.text().toStdString();
}

TEST_F(HelpTest, KeysFollowALinkAndGoBack) {
    GuideWindow& guide = openGuide();
    QTest::keyClick(&guide.pages(), Qt::Key_Tab);
    QTest::keyClick(&guide.pages(), Qt::Key_Return);
    EXPECT_EQ(pageOf(guide), "window.html");
    QTest::keyClick(&guide.pages(), Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(pageOf(guide), "guide.html");
    buttonOf(guide, "Forward").click();
    EXPECT_EQ(pageOf(guide), "window.html");
    buttonOf(guide, "Contents").click();
    EXPECT_EQ(pageOf(guide), "guide.html");
    QTest::keyClick(&guide, Qt::Key_Escape);
    EXPECT_FALSE(guide.isVisible());
}

TEST_F(HelpTest, SearchFindsEachPlaceInTurnAndSaysWhenThereIsNone) {
    GuideWindow& guide = openGuide();
    ASSERT_TRUE(waitUntil([&] { return guide.isActiveWindow(); }));
    QTest::keyClick(&guide, Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(guide.search().hasFocus());
    QTest::keyClicks(&guide.search(), "ctrl");
    std::set<int> places;
    for (int turn = 0; turn < 100; ++turn) {
        QTest::keyClick(&guide.search(), Qt::Key_Return);
        EXPECT_EQ(guide.pages().textCursor().selectedText().toLower(), "ctrl");
        places.insert(guide.pages().textCursor().position());
    }
    EXPECT_GT(places.size(), 1U);
    EXPECT_LT(places.size(), 100U); // it began anew
    const auto says = [&](const char* text) {
        const auto labels = guide.findChildren<QLabel*>();
        return std::ranges::any_of(
            labels, [&](const QLabel* label) { return label->text() == QLatin1String(text); });
    };
    EXPECT_FALSE(says("Not on this page"));
    QTest::keyClicks(&guide.search(), "xyz");
    QTest::keyClick(&guide.search(), Qt::Key_Return);
    EXPECT_TRUE(says("Not on this page"));
}

TEST_F(HelpTest, WhatIsNotAPageIsTheDesktopsToOpen) {
    const Desktop desktop;
    GuideWindow& guide = openGuide();
    const QUrl page = guide.pages().source();
    for (const QUrl& other : {page.resolved(QUrl("editor-dark.png")), QUrl("https://a.invalid/")}) {
        guide.pages().setSource(other);
        EXPECT_EQ(desktop.opened(), other);
        EXPECT_EQ(guide.pages().source(), page);
    }
    buttonOf(guide, "Open in Browser").click();
    EXPECT_EQ(desktop.opened(), page);
}

TEST_F(HelpTest, EachFieldAnswersShiftF1WithItsHelp) {
    open();
    for (const ValuePopUp& row : valuePopUps()) {
        const PopUpBox& box = window().panes().popUp(row.name);
        EXPECT_EQ(box.whatsThis().toStdString(), translated(row.setting->help())) << row.name;
        EXPECT_EQ(box.accessibleDescription(), box.whatsThis()) << row.name;
    }
    const auto helpOf = [this](const char* popUp) {
        return window().panes().popUp(popUp).whatsThis();
    };
    EXPECT_EQ(helpOf("knobLowerOrLeftValue"), "The value at the left end.");
    EXPECT_EQ(helpOf("sliderLowerOrLeftValue"), "The value at the lower end.");
    EXPECT_FALSE(window().panes().swatch().whatsThis().isEmpty());
    window().picture().button(13)->click();
    PopUpBox& box = window().panes().popUp("padAssignType");
    const auto isAnswered = [] {
        return std::ranges::any_of(QApplication::topLevelWidgets(), [](const QWidget* widget) {
            return widget->inherits("QWhatsThat"); // the toolkit's own
        });
    };
    EXPECT_FALSE(isAnswered());
    QTest::keyClick(&box, Qt::Key_F1, Qt::ShiftModifier);
    EXPECT_TRUE(isAnswered());
    window().menu().whatsThis().trigger(); // the next click asks
    EXPECT_TRUE(QWhatsThis::inWhatsThisMode());
    QWhatsThis::leaveWhatsThisMode();
}

} // namespace
} // namespace scenewright
