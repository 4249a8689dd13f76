// The module of printers and SVG files.
#include "editor/qt/QtHelpers.h"
#include "editor/qt/SceneSheet.h"

#include <QObject>
#include <QPrintDialog>
#include <QPrinter>
#include <QSvgGenerator>

#include <utility>

namespace scenewright {

namespace {

SheetPrinter chosen(QPrinter& printer, int pages) {
    const bool isRange = printer.printRange() == QPrinter::PageRange;
    printer.setFullPage(true);
    return {.device = printer,
            .name = printer.printerName(),
            .file = printer.outputFileName(),
            .setFile = [&printer](const QString& file) { printer.setOutputFileName(file); },
            .firstPage = static_cast<std::size_t>(isRange ? printer.fromPage() - 1 : 0),
            .lastPage = static_cast<std::size_t>(isRange ? printer.toPage() - 1 : pages - 1)};
}

class ToolkitsDevices final : public PaperDevices {
public:
    std::unique_ptr<QPaintDevice> makeSvg(QIODevice& sink, const QString& title, const QSize& size,
                                          const QRectF& all) override {
        auto svg = std::make_unique<QSvgGenerator>();
        svg->setOutputDevice(&sink);
        svg->setTitle(title);
        svg->setSize(size);
        svg->setViewBox(all);
        svg->setResolution(72);
        return svg;
    }

    void askForPrinter(QWidget& window, const QString& document, int pages,
                       std::function<void(SheetPrinter&)> print) override {
        const auto printer = std::make_shared<QPrinter>();
        printer->setDocName(document);
        auto& dialog = makeChild<QPrintDialog>(printer.get(), &window);
        dialog.setAttribute(Qt::WA_DeleteOnClose);
        dialog.setOption(QAbstractPrintDialog::PrintPageRange);
        dialog.setMinMax(1, pages);
        dialog.setFromTo(1, pages);
        QObject::connect(&dialog, &QDialog::accepted, &dialog,
                         [printer, pages, print = std::move(print)] {
                             SheetPrinter given = chosen(*printer, pages);
                             print(given);
                         });
        dialog.open();
    }
};

} // namespace

} // namespace scenewright

extern "C" scenewright::PaperDevices* paperDevices() {
    static scenewright::ToolkitsDevices devices;
    return &devices;
}
