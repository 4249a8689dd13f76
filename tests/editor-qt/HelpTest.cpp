// The guide, and what the window says of each field when it is asked.
#include "editor/ValuePopUps.h"
#include "editor/qt/Dialogs.h"
#include "tests/editor-qt/WindowBench.h"

#include <QApplication>
#include <QDesktopServices>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTextBlock>

#include <algorithm>
#include <array>
#include <set>
#include <stdexcept>

namespace scenewright {

namespace {

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
    int missing = 0; // of the pictures
};

Content contentOf(const QTextDocument& page) {
    Content content;
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next())
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            const QTextCharFormat format = at.fragment().charFormat();
            content.links.append(format.anchorHref().section('#', 0, 0));
            if (!format.isImageFormat())
                continue;
            const QVariant picture =
                page.resource(QTextDocument::ImageResource, QUrl(format.toImageFormat().name()));
            ++content.pictures;
            content.missing += picture.value<QImage>().isNull() ? 1 : 0;
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
        EXPECT_EQ(content.missing, 0) << file.toStdString();
        pictures += content.pictures;
        waiting.append(content.links);
    }
    EXPECT_GE(reached.size(), 7U);
    EXPECT_GE(pictures, 7);
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
    QTest::keyClick(&guide, Qt::Key_F, Qt::ControlModifier);
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
}

} // namespace

} // namespace scenewright
