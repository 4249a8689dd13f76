#include "editor/qt/GuideWindow.h"

#include "editor/qt/QtHelpers.h"
#include "editor/qt/Theme.h"
#include "platform/Resources.h"

#include <QDesktopServices>
#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>

namespace scenewright {

namespace {

// In device-independent pixels.
constexpr QSize kWindowSize(860, 640);
constexpr int kWidestPicture = 760;
constexpr int kMargin = 18;

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
        auto& button = makeChild<QPushButton>(title, this);
        button.setAutoDefault(false);
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
    resize(kWindowSize);
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
