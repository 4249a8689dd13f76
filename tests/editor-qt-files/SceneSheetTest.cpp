#include "editor/qt/SceneSheet.h"

#include "app/WindowAction.h"
#include "editor/qt/QtHelpers.h"
#include "model/PopUpValue.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/TempFolder.h"

#include <QFile>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QRegularExpression>
#include <QSet>
#include <QWidget>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace scenewright::testing {

namespace {

class SceneSheetTest : public ::testing::Test {
protected:
    SceneSheetTest() { WindowAction::getSceneValue(); }

    static ButtonValue& record(std::int32_t control) {
        return *WindowAction::scenes()[0]->buttonValueArray().at(static_cast<std::size_t>(control) -
                                                                 1);
    }
    [[nodiscard]] static SceneSheet sheet(std::size_t count = 4) {
        std::vector<SceneSheet::Page> pages;
        for (std::size_t place = 0; place < count; ++place)
            pages.push_back({WindowAction::scenes().at(place), static_cast<std::int32_t>(place)});
        return {loadPopUpValue(), std::move(pages), QStringLiteral("live.bank")};
    }
    [[nodiscard]] std::string file(const char* name) const { return folder_.file(name); }
    // What is written to a file of that name.
    [[nodiscard]] QByteArray written(const char* name, SceneSheet drawn = sheet(),
                                     const QPageSize& paper = QPageSize(QPageSize::A4)) const {
        const auto done = drawn.write(file(name), paper);
        EXPECT_TRUE(done) << (done ? "" : done.error());
        QFile bytes(QString::fromStdString(file(name)));
        return bytes.open(QIODevice::ReadOnly) ? bytes.readAll() : QByteArray();
    }
    [[nodiscard]] QImage picture(const QPageSize& paper = QPageSize(QPageSize::A4)) const {
        return QImage::fromData(written("sheet.png", sheet(), paper), "PNG");
    }

private:
    TempFolder folder_;
};

// How many dots of the part are not white.
int inkIn(const QImage& image, const QRect& part) {
    int count = 0;
    const QImage cut = image.copy(part).convertToFormat(QImage::Format_Grayscale8);
    for (int y = 0; y < cut.height(); ++y) {
        const std::span line(cut.constScanLine(y), static_cast<std::size_t>(cut.width()));
        count += static_cast<int>(cut.width() - std::ranges::count(line, 255));
    }
    return count;
}

// The margins of a strip of pages are white, and what is inside is not.
void expectWithinMargins(const QImage& image, int pages) {
    constexpr int kMargin = 68; // a little less than 12 mm, in dots
    const int height = image.height() / pages;
    for (int page = 0; page < pages; ++page) {
        const QRect whole(0, page * height, image.width(), height);
        const QRect inner = whole.adjusted(kMargin, kMargin, -kMargin, -kMargin);
        EXPECT_EQ(inkIn(image, whole) - inkIn(image, inner), 0) << page;
        EXPECT_GT(inkIn(image, inner), whole.width() * whole.height() / 10) << page;
    }
}

TEST(SceneSheetPaper, IsA4WhereLengthsAreMetric) {
    EXPECT_EQ(SceneSheet::usualPaper().id(), QPageSize::A4) << "in the tests' own locale";
}

TEST_F(SceneSheetTest, APdfHasAPageEachScene) {
    const QByteArray pdf = written("live.pdf");
    EXPECT_TRUE(pdf.startsWith("%PDF-"));
    EXPECT_TRUE(pdf.contains("/MediaBox [0 0 595"));
    EXPECT_TRUE(written("letter.pdf", sheet(1), QPageSize(QPageSize::Letter))
                    .contains("/MediaBox [0 0 612"));
    EXPECT_EQ(QString::fromLatin1(pdf).count(QRegularExpression("/Type /Page\\b(?!s)")), 4);
    EXPECT_EQ(QString::fromLatin1(written("one.PDF", sheet(1)))
                  .count(QRegularExpression("/Type /Page\\b(?!s)")),
              1);
}

TEST_F(SceneSheetTest, APictureHasThePagesBelowOneAnotherOnWhitePaper) {
    const QImage letter = picture(QPageSize(QPageSize::Letter));
    EXPECT_EQ(letter.size(), QSize(1275, 4 * 1650));
    expectWithinMargins(letter, 4);
    const QImage a4 = picture();
    EXPECT_NEAR(a4.width(), 1240, 1);
    EXPECT_NEAR(a4.height(), 4 * 1754, 8);
    expectWithinMargins(a4, 4);
}

// Where the dark body of the keyboard is, along a row of dots.
std::pair<int, int> bodyAlong(const QImage& image, int y) {
    int first = image.width();
    int last = -1;
    for (int x = 0; x < image.width(); ++x)
        if (qGray(image.pixel(x, y)) < 60) {
            first = std::min(first, x);
            last = x;
        }
    return {first, last};
}

TEST_F(SceneSheetTest, TheKeyboardStandsInTheMiddleBetweenTheMarginsOrIsSmaller) {
    constexpr double kDots = 150.0 / 720; // a tenth of a point
    const QImage page = QImage::fromData(written("one.png", sheet(1)), "PNG");
    const auto [left, right] = bodyAlong(page, page.height() / 5);
    EXPECT_NEAR(left, 340 * kDots, 6);
    EXPECT_NEAR(right, page.width() - 340 * kDots, 6);
    const QPageSize wide(QSizeF(842, 595), QPageSize::Point, "any", QPageSize::ExactMatch);
    const QImage low = QImage::fromData(written("low.png", sheet(1), wide), "PNG");
    const auto [first, last] = bodyAlong(low, low.height() / 3);
    EXPECT_GT(first, 340 * kDots + 40);
    EXPECT_NEAR(first + last, low.width(), 4);
    EXPECT_GT(last - first, low.width() / 2);
}

TEST_F(SceneSheetTest, APageOfAnyShapeKeepsItsMargins) {
    for (const QSizeF size : {QSizeF(842, 595), QSizeF(420, 595)}) {
        const QPageSize paper(size, QPageSize::Point, "any", QPageSize::ExactMatch);
        expectWithinMargins(QImage::fromData(written("any.png", sheet(1), paper), "PNG"), 1);
    }
}

// The sizes of what stands in the table of a sheet on paper of that height in points.
QSet<int> fontsOf(const QByteArray& svg) {
    QSet<int> sizes;
    auto found =
        QRegularExpression("font-size=\"(\\d+)\"[^>]*>Key \\d").globalMatch(QString::fromUtf8(svg));
    while (found.hasNext())
        sizes.insert(found.next().captured(1).toInt());
    return sizes;
}

TEST_F(SceneSheetTest, TheTableIsSetAsLargeAsThePaperHasRoomForIt) {
    std::vector<int> sizes;
    for (int height = 440; height <= 1100; height += 20) {
        const QPageSize paper(QSizeF(595, height), QPageSize::Point, "any", QPageSize::ExactMatch);
        const QSet<int> fonts = fontsOf(written("any.svg", sheet(1), paper));
        ASSERT_EQ(fonts.size(), 1) << height;
        if (sizes.empty() || sizes.back() != *fonts.begin())
            sizes.push_back(*fonts.begin());
    }
    EXPECT_EQ(sizes, (std::vector<int>{48, 52, 56, 60, 64, 68, 72, 76}));
}

// A text of a drawing, or a line that begins there.
struct Part {
    QPointF place;
    QString text;
    int font = 0;
    int weight = 0;
};

std::vector<Part> textsOf(const QString& svg) {
    std::vector<Part> parts;
    auto found = QRegularExpression("<text [^>]* x=\"([\\d.]+)\" y=\"([\\d.]+)\"[^>]*"
                                    "font-size=\"(\\d+)\" font-weight=\"(\\d+)\"[^>]*>([^<]*)<")
                     .globalMatch(svg);
    while (found.hasNext()) {
        const auto match = found.next();
        parts.push_back({QPointF(match.captured(1).toDouble(), match.captured(2).toDouble()),
                         match.captured(5), match.captured(3).toInt(), match.captured(4).toInt()});
    }
    return parts;
}

// Lengths are in tenths of a point; A4 is 5950 wide.
TEST_F(SceneSheetTest, APageHasItsHeadingAndTwoTablesOfThreeColumns) {
    const QString svg = QString::fromUtf8(written("one.svg", sheet(1)));
    const std::vector<Part> texts = textsOf(svg);
    // The leftmost of that text, in whatever order the two tables are drawn.
    const auto at = [&](const char* text) {
        Part found;
        for (const Part& part : texts)
            if (part.text == text && (found.text.isEmpty() || part.place.x() < found.place.x()))
                found = part;
        EXPECT_EQ(found.text, text);
        return found;
    };
    EXPECT_EQ(at("Scene 1: SCENE1").place.x(), 340);
    EXPECT_EQ(at("Scene 1: SCENE1").font, 160);
    EXPECT_EQ(at("Scene 1: SCENE1").weight, 700);
    EXPECT_EQ(at("live.bank").font, 80);
    QFont font;
    font.setPixelSize(80);
    EXPECT_NEAR(at("live.bank").place.x() +
                    QFontMetricsF(font).horizontalAdvance(QStringLiteral("live.bank")),
                5610, 3);
    constexpr double kHalf = (5270 - 60) / 2.0;
    const double sends = at("Sends").place.x() - 340;
    EXPECT_EQ(at("Sends").weight, 700);
    EXPECT_EQ(at("Knob 1").place.x(), 340);
    EXPECT_EQ(at("Knob 1").weight, 400);
    EXPECT_EQ(at("Key 1").place.x(), 340 + kHalf + 60);
    EXPECT_NEAR(at("Settings").place.x() - at("Sends").place.x(), 0.42 * (kHalf - sends), 0.5);
    font.setPixelSize(at("Knob 1").font);
    const QFontMetricsF metrics(font);
    double names = 0;
    for (const Part& part : texts)
        if (part.place.x() == 340 && part.font == font.pixelSize() && part.weight == 400)
            names = std::max(names, metrics.horizontalAdvance(part.text));
    EXPECT_NEAR(sends, names + 50, 0.6);

    std::vector<double> rules; // of the right table
    auto found = QRegularExpression("points=\"3005,([\\d.]+) 5610,").globalMatch(svg);
    while (found.hasNext())
        rules.push_back(found.next().captured(1).toDouble());
    ASSERT_EQ(rules.size(), 1 + 25U);
    EXPECT_GT(svg.indexOf(">C#3<"), svg.indexOf(">C5<")) << "black keys lie on the white ones";
    EXPECT_GT(svg.indexOf(">C5<"), 0);
    EXPECT_TRUE(svg.contains("stroke=\"#aaaaaa\" stroke-opacity=\"1\" stroke-width=\"3\""));
    const double row = rules[2] - rules[1];
    EXPECT_NEAR(row, metrics.height() + 16, 0.4);
    EXPECT_NEAR(at("Key 3").place.y() - rules[2], 8 + metrics.ascent(), 0.4)
        << "a rule stands in the middle between two rows";
}

// Every pad and key sends a controller with a long name, in each language.
TEST_F(SceneSheetTest, TheLongestTextsStayOnThePage) {
    for (const auto& scene : WindowAction::scenes())
        for (std::size_t control = 12; control < scene->buttonValueArray().size(); ++control) {
            scene->buttonValueArray()[control]->setAssignType(1);
            scene->buttonValueArray()[control]->setCCOrNoteNumber(91);
        }
    for (const char* const language : {"de", "es", "fr"}) {
        const Translation translation{QLocale(language)};
        ASSERT_TRUE(translation.isLoaded());
        expectWithinMargins(QImage::fromData(written("one.png", sheet(1)), "PNG"), 1);
    }
}

TEST_F(SceneSheetTest, APadShinesInItsColour) {
    for (const std::int32_t pad : {13, 14})
        record(pad).setAssignType(0);
    record(13).setCR(127);
    record(13).setCG(0);
    record(13).setCB(0);
    const auto reddish = [this] {
        const QImage page = QImage::fromData(written("one.png", sheet(1)), "PNG");
        int count = 0;
        for (int y = 0; y < page.height() / 2; ++y)
            for (int x = 0; x < page.width(); ++x) {
                const QRgb dot = page.pixel(x, y);
                count += qRed(dot) > 150 && qGreen(dot) < 60 && qBlue(dot) < 60 ? 1 : 0;
            }
        return count;
    };
    const int lit = reddish();
    record(13).setCR(0);
    EXPECT_GT(lit, reddish() + 100);
}

TEST_F(SceneSheetTest, TheTableSaysInWordsWhatEachControlSendsAndIsSetTo) {
    record(5).setEnable(1);
    record(5).setCCOrNoteNumber(74);
    record(1).setMIDIChannel(2);
    record(13).setAssignType(0);
    const QString svg = QString::fromUtf8(written("live.svg"));
    for (const char* const text :
         {"Scene 1: SCENE1", "Scene 4: SCENE4", "live.bank", "Knob 1", "CC 74 Brightness",
          "channel 3", "Key 25", "nothing", "global channel 1"})
        EXPECT_TRUE(svg.contains(QLatin1String(text))) << text;
    EXPECT_EQ(svg.count("live.bank"), 1 + 4) << "the title, and a head of each page";
    EXPECT_EQ(svg.count("nothing"), 1) << "the pad; a group of controls is no silent one";
    EXPECT_TRUE(svg.contains("<svg width=\"209.9") && svg.contains(" height=\"1188."));
}

TEST_F(SceneSheetTest, WhatCannotBeWrittenOrDrawnIsAnError) {
    for (const auto& [name, sentence] : std::vector<std::pair<std::string, std::string>>{
             {"live.gif", ": a sheet is written to a file that ends in one of pdf, svg, png"},
             {"live", ": a sheet is written to a file that ends in one of pdf, svg, png"},
             {"none/live.pdf", ": No such file or directory."}}) {
        const auto done = sheet().write(file(name.c_str()), QPageSize(QPageSize::A4));
        ASSERT_FALSE(done);
        EXPECT_TRUE(done.error().ends_with(sentence)) << done.error();
    }
    EXPECT_EQ(sheet(0).write(file("none.png"), QPageSize(QPageSize::A4)).error(),
              file("none.png") + ": the sheet cannot be drawn")
        << "of no scene";
}

// What came of printing the sheet as it is chosen in the dialog, which is the toolkit's.
Result<void> printed(SceneSheet sheet, const std::function<void(QPrinter&)>& choose) {
    QWidget window;
    Result<void> done = failure("never printed");
    const auto devices = PaperDevices::load();
    if (!devices)
        return failure(devices.error());
    (*devices)->askForPrinter(window, "Mine", 4,
                              [&](SheetPrinter& printer) { done = sheet.print(printer); });
    auto& dialog = *window.findChild<QPrintDialog*>();
    EXPECT_EQ(dialog.printer()->docName(), "Mine");
    EXPECT_EQ(dialog.toPage(), 4);
    choose(*dialog.printer());
    dialog.done(QDialog::Accepted);
    EXPECT_TRUE(dialog.printer()->fullPage()) << "the margins are the sheet's own";
    return done;
}

qsizetype pagesIn(const QString& pdf) {
    return pdf.count(QRegularExpression("/Type /Page\\b(?!s)"));
}

// As in the dialog without a printer.
TEST_F(SceneSheetTest, ItIsPrintedToAFileWithTheChosenPaperAndPages) {
    const auto pagesFrom = [&](int first, int last) {
        const auto done = printed(sheet(), [&](QPrinter& printer) {
            printer.setOutputFileName(QString::fromStdString(file("printed.pdf")));
            printer.setPageSize(QPageSize(QPageSize::Letter));
            printer.setPageOrientation(QPageLayout::Landscape);
            if (first > 0) {
                printer.setPrintRange(QPrinter::PageRange);
                printer.setFromTo(first, last);
            }
        });
        EXPECT_TRUE(done) << (done ? "" : done.error());
        QFile bytes(QString::fromStdString(file("printed.pdf")));
        EXPECT_TRUE(bytes.open(QIODevice::ReadOnly));
        const QString pdf = QString::fromLatin1(bytes.readAll());
        EXPECT_TRUE(pdf.contains("/MediaBox [0 0 792"));
        return pagesIn(pdf);
    };
    EXPECT_EQ(pagesFrom(0, 0), 4);
    EXPECT_EQ(pagesFrom(2, 3), 2);
}

// Stands for a printer.
struct Spool : QPdfWriter {
    using QPdfWriter::QPdfWriter;
    bool newPage() override { return hasPaper && QPdfWriter::newPage(); }
    bool hasPaper = true; // for more than one page
};

TEST_F(SceneSheetTest, APrinterGetsThePagesOrIsNamedWhenItTakesNone) {
    const auto printed = [this](const char* spool, bool hasPaper = true) {
        Spool device(QString::fromStdString(file(spool)));
        device.hasPaper = hasPaper;
        SheetPrinter printer{.device = device,
                             .name = "Laser",
                             .file = {},
                             .setFile = nullptr,
                             .firstPage = 1,
                             .lastPage = 2};
        return sheet().print(printer);
    };
    EXPECT_EQ(printed("none/spool").error(), "Laser: the printer takes no sheet");
    EXPECT_EQ(printed("spool", false).error(), "Laser: the printer takes no sheet");
    EXPECT_TRUE(printed("spool"));
    QFile spool(QString::fromStdString(file("spool")));
    ASSERT_TRUE(spool.open(QIODevice::ReadOnly));
    EXPECT_EQ(pagesIn(QString::fromLatin1(spool.readAll())), 2);
}

TEST_F(SceneSheetTest, PrintingThatFailsSaysSoAndLeavesTheFile) {
    const auto errorOf = [&](const char* name) {
        return printed(sheet(),
                       [&](QPrinter& printer) {
                           printer.setOutputFileName(QString::fromStdString(file(name)));
                       })
            .error();
    };
    EXPECT_EQ(errorOf("none/printed.pdf"), "Cannot write " + file("none/printed.pdf") + ": " +
                                               file("none") + ": No such file or directory.");
    const QByteArray before = written("printed.pdf", sheet(1));
    {
        const FileSizeLimit limit(static_cast<rlim_t>(before.size())); // all four are more
        EXPECT_EQ(errorOf("printed.pdf"), file("printed.pdf") + ": the sheet cannot be drawn");
    }
    QFile after(QString::fromStdString(file("printed.pdf")));
    ASSERT_TRUE(after.open(QIODevice::ReadOnly));
    EXPECT_EQ(after.readAll(), before);
}

TEST_F(SceneSheetTest, ASceneWithoutControlsIsAPageAllTheSame) {
    SceneSheet drawn(loadPopUpValue(), {{std::make_shared<SceneValue>(), 0}}, {});
    EXPECT_TRUE(drawn.write(file("bare.pdf"), QPageSize::A4));
}

} // namespace

} // namespace scenewright::testing
