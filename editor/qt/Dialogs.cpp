#include "editor/qt/Dialogs.h"

#include "editor/qt/PopUpBox.h"
#include "editor/qt/QtHelpers.h"
#include "editor/qt/Theme.h"
#include "platform/Resources.h"

#include <QDesktopServices>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <cstdint>
#include <memory>

namespace scenewright {

namespace {

// In device-independent pixels.
constexpr QSize kAboutSize(560, 520);
constexpr QSize kDetailsSize(520, 220);
constexpr QSize kGuideSize(860, 640);
constexpr int kBetweenColumns = 18;
constexpr int kSliderHeight = 170;
constexpr int kWidestPicture = 760; // of the guide
constexpr int kMargin = 18;

void addClose(QDialog& dialog, QVBoxLayout& column) {
    auto& close = makeChild<QPushButton>(NoticeDetails::tr("&Close"), &dialog);
    close.setAccessibleName(NoticeDetails::tr("Close"));
    close.setDefault(true);
    QObject::connect(&close, &QPushButton::clicked, &dialog, &QDialog::accept);
    column.addWidget(&close, 0, Qt::AlignRight);
}

using G = GainController;
using WriteSlider = void (G::*)(Slider*);
using WriteLabel = void (G::*)(TextField*);
constexpr std::array<WriteSlider, GainWindow::kGains> kSliders{
    &G::setSlider1, &G::setSlider2, &G::setSlider3, &G::setSlider4,
    &G::setSlider5, &G::setSlider6, &G::setSlider7, &G::setSlider8};
constexpr std::array<WriteLabel, GainWindow::kGains> kLabels{
    &G::setLabel1, &G::setLabel2, &G::setLabel3, &G::setLabel4,
    &G::setLabel5, &G::setLabel6, &G::setLabel7, &G::setLabel8};

// What the toolkit knows of style sheets, in place of the sheet that a browser gets.
QString sheet() {
    const Theme& theme = themeOf(isDark(QGuiApplication::palette()));
    return QStringLiteral(
               "h1, h2, h3 { color: %1 } a { color: %2 } code, pre { background-color: %3 }"
               "td, th { padding: 3px 12px 3px 0; vertical-align: top }"
               "th { text-align: left } .pages { color: %4 }")
        .arg(theme.text.name(), theme.accent.name(), theme.field.name(), theme.muted.name());
}

// Sharp on every screen, and no wider than the page.
QImage pictureFor(const QWidget& page, const QString& file) {
    QImage picture(file);
    if (picture.isNull())
        return picture;
    const int width = std::min(picture.width(), kWidestPicture);
    const int pixels = qRound(width * page.devicePixelRatioF());
    if (picture.width() > pixels)
        picture = picture.scaledToWidth(pixels, Qt::SmoothTransformation);
    picture.setDevicePixelRatio(qreal(picture.width()) / width);
    return picture;
}

} // namespace

About::About(QWidget* parent) : QDialog(parent) {
    auto& column = layOutDialog(*this, tr("About Scenewright"));
    column.setContentsMargins(26, 22, 26, 18);
    auto& heading =
        makeChild<QLabel>(tr("Scenewright %1").arg(QStringLiteral(SCENEWRIGHT_VERSION)), this);
    heading.setProperty("role", "heading");
    const QString versions =
        tr("Qt %1, built with Qt %2")
            .arg(QString::fromLatin1(qVersion()), QStringLiteral(QT_VERSION_STR));
    const QString text = tr("An editor for the four scenes of a USB MIDI keyboard controller.");
    column.addWidget(&heading);
    for (const QString& line : {text, versions})
        column.addWidget(&makeChild<QLabel>(line, this));
    auto& table = makeChild<QTreeWidget>(this);
    layOutTable(table, tr("Libraries"), {tr("Library"), tr("Built with"), tr("Licence")});
    for (const Library& library : libraries())
        table.addTopLevelItem(
            std::make_unique<QTreeWidgetItem>(
                QStringList{shown(library.name), shown(library.version), shown(library.licence)})
                .release()); // the tree owns it from here
    fitColumns(table);
    column.addWidget(&table, 1);
    column.addWidget(&makeChild<QLabel>(tr("Scenewright's own licence:"), this));
    auto& licence = makeChild<QPlainTextEdit>(shown(licenceText()), this);
    licence.setReadOnly(true);
    licence.setTabChangesFocus(true);
    licence.setAccessibleName(tr("Licence"));
    column.addWidget(&licence, 1);
    addClose(*this, column);
    resize(kAboutSize);
}

NoticeDetails::NoticeDetails(const QString& text, QWidget* parent) : QDialog(parent) {
    auto& column = layOutDialog(*this, tr("Notice"));
    auto& whole = makeChild<QPlainTextEdit>(this);
    whole.setReadOnly(true);
    whole.setTabChangesFocus(true);
    whole.setAccessibleName(windowTitle());
    whole.setPlainText(QString(text).replace(QLatin1Char('\n'), QLatin1String("\n\n")));
    column.addWidget(&whole, 1);
    addClose(*this, column);
    resize(kDetailsSize);
}

QVBoxLayout& layOutDialog(QDialog& dialog, const QString& title) {
    dialog.setWindowTitle(title);
    dialog.setAccessibleName(title);
    auto& column = makeChild<QVBoxLayout>(&dialog);
    column.setContentsMargins(18, 16, 18, 14);
    column.setSpacing(10);
    return column;
}

void layOutTable(QTreeWidget& table, const QString& name, const QStringList& columns) {
    table.setAccessibleName(name);
    table.setHeaderLabels(columns);
    table.setItemDelegate(&makeChild<RowDelegate>(&table));
    table.setRootIsDecorated(false);
    table.setAllColumnsShowFocus(true);
    table.setUniformRowHeights(true);
}

void fitColumns(QTreeWidget& table, int widest) {
    for (int column = 0; column < table.columnCount(); ++column) {
        table.resizeColumnToContents(column);
        if (column + 1 < table.columnCount())
            table.setColumnWidth(column,
                                 std::min(table.columnWidth(column) + kBetweenColumns, widest));
    }
}

QHBoxLayout& addRow(QDialog& dialog, QVBoxLayout& column, const QString& name) {
    auto& row = makeChild<QWidget>(&dialog);
    row.setAccessibleName(name);
    auto& line = makeChild<QHBoxLayout>(&row);
    line.setContentsMargins(0, 0, 0, 0);
    column.addWidget(&row);
    return line;
}

QPushButton& addRowButton(QHBoxLayout& row, const QString& title, const QString& help) {
    auto& button = makeButton(title, row.parentWidget());
    button.setToolTip(help);
    row.addWidget(&button);
    return button;
}

QPushButton& addAnswers(QDialog& dialog, QVBoxLayout& column, const QString& cancel,
                        const QString& accept) {
    auto& row = addRow(dialog, column, {});
    row.addStretch();
    const auto add = [&](const QString& title) -> QPushButton& {
        auto& button = addRowButton(row, title, {});
        button.setAutoDefault(true);
        return button;
    };
    QObject::connect(&add(cancel), &QPushButton::clicked, &dialog, &QDialog::reject);
    auto& accepting = add(accept);
    accepting.setDefault(true);
    QObject::connect(&accepting, &QPushButton::clicked, &dialog, &QDialog::accept);
    return accepting;
}

GainWindow::GainWindow(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("Gain Panel"));
    setAccessibleName(windowTitle());
    auto& grid = makeChild<QGridLayout>(this);
    grid.setContentsMargins(18, 16, 18, 16);
    grid.setHorizontalSpacing(8);
    grid.setVerticalSpacing(8);
    for (std::int32_t tag = 1; tag <= kGains; ++tag)
        makeGain(grid, tag);
    makeButtons(grid);
    controller_.viewDidLoad();
}

void GainWindow::makeGain(QGridLayout& grid, std::int32_t tag) {
    auto& heading = makeChild<QLabel>(QString::number(tag), this);
    heading.setProperty("role", "heading");
    auto& slider = makeChild<SliderBar>(tag, this);
    giveSheet(slider, Sheet::Sliders);
    slider.setMinimumHeight(kSliderHeight);
    slider.setAccessibleName(tr("Gain %1").arg(tag));
    auto& label = makeChild<TextLabel>(this);
    label.setAccessibleDescription(tr("Value of gain %1").arg(tag)); // its name is its text
    label.setAlignment(Qt::AlignCenter);
    // As wide as its longest text, so that the panel does not move under the hand.
    label.setMinimumWidth(label.fontMetrics().horizontalAdvance(QStringLiteral("127/127")) + 6);
    grid.addWidget(&heading, 0, tag - 1, Qt::AlignHCenter);
    grid.addWidget(&slider, 1, tag - 1, Qt::AlignHCenter);
    grid.addWidget(&label, 2, tag - 1);
    const auto place = static_cast<std::size_t>(tag - 1);
    (controller_.*kSliders.at(place))(&slider);
    (controller_.*kLabels.at(place))(&label);
    connect(&slider, &SliderBar::moved, this,
            [this, &slider] { controller_.changeAction(slider); });
}

void GainWindow::makeButtons(QGridLayout& grid) {
    auto& standard = makeChild<QPushButton>(tr("De&fault"), this);
    auto& apply = makeChild<QPushButton>(tr("&Apply"), this);
    auto& ok = makeChild<QPushButton>(tr("&OK"), this);
    auto& hint = makeChild<QLabel>(tr("Kept while the window is open; not sent"), this);
    hint.setProperty("role", "hint");
    for (QPushButton* button : {&standard, &apply, &ok})
        button->setAccessibleName(unmarked(button->text()));
    ok.setDefault(true);
    ok.setProperty("main", true);
    grid.addWidget(&hint, 3, 0, 1, kGains);
    grid.addWidget(&standard, 4, 0, 1, 2);
    grid.addWidget(&apply, 4, 4, 1, 2);
    grid.addWidget(&ok, 4, 6, 1, 2);
    connect(&standard, &QPushButton::clicked, this, [this] { controller_.doDefaultAction(); });
    connect(&apply, &QPushButton::clicked, this, [this] { controller_.doApplyAction(); });
    connect(&ok, &QPushButton::clicked, this, [this] { controller_.doOKAction(); });
}

GuidePages::GuidePages(QWidget* parent) : QTextBrowser(parent) {
    setAccessibleName(tr("Guide"));
    setFrameShape(QFrame::NoFrame);
    document()->setDocumentMargin(kMargin);
}

void GuidePages::begin() {
    const auto file = Resources::find("guide/guide", "html");
    if (file)
        setSource(QUrl::fromLocalFile(QString::fromStdString(file->string())));
    else
        setPlainText(tr("The guide is not among the program's resources."));
}

void GuidePages::doSetSource(const QUrl& url, QTextDocument::ResourceType type) {
    if (url.isLocalFile() && url.path().endsWith(QLatin1String(".html")))
        QTextBrowser::doSetSource(url, type);
    else
        QDesktopServices::openUrl(url);
}

QVariant GuidePages::loadResource(int type, const QUrl& name) {
    if (type == QTextDocument::StyleSheetResource)
        return sheet();
    if (type == QTextDocument::ImageResource)
        return pictureFor(*this, source().resolved(name).toLocalFile());
    return QTextBrowser::loadResource(type, name);
}

void GuidePages::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !source().isEmpty())
        reload();
}

GuideWindow::GuideWindow(QWidget* parent)
    : QDialog(parent), pages_(&makeChild<GuidePages>(this)), search_(&makeChild<QLineEdit>(this)),
      found_(&makeChild<QLabel>(this)) {
    setWindowTitle(tr("Guide"));
    setAccessibleName(windowTitle());
    auto& column = makeChild<QVBoxLayout>(this);
    column.setContentsMargins(0, 10, 0, 0);
    auto row = std::make_unique<QHBoxLayout>();
    row->setContentsMargins(kMargin, 0, kMargin, 0);
    const auto add = [&](const QString& title, const QString& name) -> QPushButton& {
        auto& button = makeButton(title, this);
        button.setAccessibleName(name);
        row->addWidget(&button);
        return button;
    };
    auto& back = add(tr("&Back"), tr("Back"));
    auto& forward = add(tr("&Forward"), tr("Forward"));
    auto& contents = add(tr("&Contents"), tr("Contents"));
    auto& browser = add(tr("&Open in Browser"), tr("Open in Browser"));
    row->addStretch(1);
    row->addWidget(found_);
    search_->setPlaceholderText(
        tr("Search (%1)").arg(QKeySequence(QKeySequence::Find).toString(QKeySequence::NativeText)));
    search_->setAccessibleName(tr("Search this page"));
    found_->setAccessibleName(search_->accessibleName());
    row->addWidget(search_);
    column.addLayout(row.release()); // the column owns it from here
    column.addWidget(pages_, 1);
    for (QPushButton* button : {&back, &forward})
        button->setEnabled(false);
    connect(pages_, &QTextBrowser::backwardAvailable, &back, &QWidget::setEnabled);
    connect(pages_, &QTextBrowser::forwardAvailable, &forward, &QWidget::setEnabled);
    connect(&back, &QPushButton::clicked, pages_, &QTextBrowser::backward);
    connect(&forward, &QPushButton::clicked, pages_, &QTextBrowser::forward);
    connect(&contents, &QPushButton::clicked, pages_, &GuidePages::begin);
    connect(&browser, &QPushButton::clicked, this,
            [this] { QDesktopServices::openUrl(pages_->source()); });
    connect(search_, &QLineEdit::returnPressed, this, &GuideWindow::find);
    auto& toSearch = makeChild<QShortcut>(QKeySequence(QKeySequence::Find), this);
    connect(&toSearch, &QShortcut::activated, search_,
            [this] { search_->setFocus(Qt::ShortcutFocusReason); });
    pages_->begin();
    pages_->setFocus();
    resize(kGuideSize);
}

// From where the last one was found, and from the beginning after the end.
void GuideWindow::find() {
    bool isFound = pages_->find(search_->text());
    if (!isFound) {
        pages_->moveCursor(QTextCursor::Start);
        isFound = pages_->find(search_->text());
    }
    found_->setText(isFound ? QString() : tr("Not on this page"));
    found_->setAccessibleName(isFound ? search_->accessibleName() : found_->text());
}

} // namespace scenewright
