#include "editor/qt/Dialogs.h"

#include "editor/qt/QtHelpers.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace scenewright {

namespace {

constexpr QSize kDetailsSize(520, 220);

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
    auto& close = makeChild<QPushButton>(tr("&Close"), this);
    close.setAccessibleName(tr("Close"));
    close.setDefault(true);
    connect(&close, &QPushButton::clicked, this, &QDialog::accept);
    column.addWidget(&close, 0, Qt::AlignRight);
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
    auto& close = makeChild<QPushButton>(tr("&Close"), this);
    close.setAccessibleName(tr("Close"));
    close.setDefault(true);
    connect(&close, &QPushButton::clicked, this, &QDialog::accept);
    column.addWidget(&close, 0, Qt::AlignRight);
    resize(kDetailsSize);
}

} // namespace scenewright
