#include "editor/qt/Dialogs.h"

#include "editor/qt/Libraries.h"
#include "editor/qt/PopUpBox.h"
#include "editor/qt/QtHelpers.h"

#include <QLabel>
#include <QLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

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
    for (const int at : {0, 1}) {
        table.resizeColumnToContents(at);
        table.setColumnWidth(at, table.columnWidth(at) + kBetweenColumns);
    }
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

QPushButton& addRowButton(QWidget& row, const QString& title, const QString& help) {
    auto& button = makeChild<QPushButton>(title, &row);
    button.setAccessibleName(QString(title).remove(QLatin1Char('&')));
    button.setToolTip(help);
    button.setAutoDefault(false);
    row.layout()->addWidget(&button);
    return button;
}

} // namespace scenewright
