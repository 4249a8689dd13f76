#include "editor/qt/Dialogs.h"

#include "editor/qt/PopUpBox.h"
#include "editor/qt/QtHelpers.h"
#include "editor/qt/Theme.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <cstdint>
#include <memory>

namespace scenewright {

namespace {

constexpr QSize kAboutSize(560, 520);
constexpr int kBetweenColumns = 18; // device-independent pixels
constexpr QSize kDetailsSize(520, 220);

void addClose(QDialog& dialog, QVBoxLayout& column) {
    auto& close = makeChild<QPushButton>(NoticeDetails::tr("&Close"), &dialog);
    close.setAccessibleName(NoticeDetails::tr("Close"));
    close.setDefault(true);
    QObject::connect(&close, &QPushButton::clicked, &dialog, &QDialog::accept);
    column.addWidget(&close, 0, Qt::AlignRight);
}

constexpr int kSliderHeight = 170;

using G = GainController;
using WriteSlider = void (G::*)(Slider*);
using WriteLabel = void (G::*)(TextField*);
constexpr std::array<WriteSlider, GainWindow::kGains> kSliders{
    &G::setSlider1, &G::setSlider2, &G::setSlider3, &G::setSlider4,
    &G::setSlider5, &G::setSlider6, &G::setSlider7, &G::setSlider8};
constexpr std::array<WriteLabel, GainWindow::kGains> kLabels{
    &G::setLabel1, &G::setLabel2, &G::setLabel3, &G::setLabel4,
    &G::setLabel5, &G::setLabel6, &G::setLabel7, &G::setLabel8};

} // namespace

About::About(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("About Scenewright"));
    setAccessibleName(windowTitle());
    auto& column = makeChild<QVBoxLayout>(this);
    column.setContentsMargins(26, 22, 26, 18);
    column.setSpacing(10);
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
    setWindowTitle(tr("Notice"));
    setAccessibleName(windowTitle());
    auto& column = makeChild<QVBoxLayout>(this);
    column.setContentsMargins(18, 16, 18, 14);
    column.setSpacing(10);
    auto& whole = makeChild<QPlainTextEdit>(this);
    whole.setReadOnly(true);
    whole.setTabChangesFocus(true);
    whole.setAccessibleName(windowTitle());
    whole.setPlainText(QString(text).replace(QLatin1Char('\n'), QLatin1String("\n\n")));
    column.addWidget(&whole, 1);
    addClose(*this, column);
    resize(kDetailsSize);
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

QPushButton& addRowButton(QWidget& row, const QString& title, const QString& help) {
    auto& button = makeChild<QPushButton>(title, &row);
    button.setAccessibleName(QString(title).remove(QLatin1Char('&')));
    button.setToolTip(help);
    button.setAutoDefault(false);
    row.layout()->addWidget(&button);
    return button;
}

QPushButton& addAnswers(QDialog& dialog, QVBoxLayout& column, const QString& cancel,
                        const QString& accept) {
    auto& row = makeChild<QWidget>(&dialog);
    auto& buttons = makeChild<QHBoxLayout>(&row);
    buttons.setContentsMargins(0, 0, 0, 0);
    buttons.addStretch(1);
    const auto add = [&](const QString& title) -> QPushButton& {
        auto& button = makeChild<QPushButton>(title, &dialog);
        button.setAccessibleName(QString(title).remove(QLatin1Char('&')));
        buttons.addWidget(&button);
        return button;
    };
    QObject::connect(&add(cancel), &QPushButton::clicked, &dialog, &QDialog::reject);
    auto& accepting = add(accept);
    accepting.setDefault(true);
    QObject::connect(&accepting, &QPushButton::clicked, &dialog, &QDialog::accept);
    column.addWidget(&row);
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
        button->setAccessibleName(button->text().remove(QLatin1Char('&')));
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

} // namespace scenewright
