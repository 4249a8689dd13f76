// Scenes on paper, a page each: the picture of the keyboard as the window shows it, and a table of
// what each control sends and is set to, in words.
#pragma once

#include "model/PopUpValue.h"
#include "model/SceneValue.h"
#include "platform/Text.h"

#include <QCoreApplication>
#include <QPageSize>
#include <QRectF>
#include <QSize>
#include <QString>

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

class QIODevice;
class QPagedPaintDevice;
class QPainter;
class QPaintDevice;
class QWidget;

namespace scenewright {

// A printer that was chosen, or a file that is printed to.
struct SheetPrinter {
    QPagedPaintDevice& device; // the whole of its page
    QString name;
    QString file; // empty for a printer
    std::function<void(const QString& file)> setFile;
    // Counted from 0.
    std::size_t firstPage;
    std::size_t lastPage;
};

// What a sheet is put on besides PDF files and images. It is a module beside the program, loaded
// when it is first needed: each start of the window would pay for the libraries of printers and
// SVG.
class PaperDevices {
public:
    // Main thread; kept until the program ends. On error, why in one sentence.
    [[nodiscard]] static Result<PaperDevices*> load();

    virtual ~PaperDevices() = default;

    // An SVG file of that size, drawn on in units of which `all` are as large; written to the sink
    // when the last painter ends.
    [[nodiscard]] virtual std::unique_ptr<QPaintDevice>
    makeSvg(QIODevice& sink, const QString& title, const QSize& size, const QRectF& all) = 0;

    // Asks for a printer and which pages of so many, in a dialog of the window. `print` is called
    // when the user agrees. A document's name is suggested for a file that is printed to.
    virtual void askForPrinter(QWidget& window, const QString& document, int pages,
                               std::function<void(SheetPrinter&)> print) = 0;
};

class SceneSheet {
    Q_DECLARE_TR_FUNCTIONS(scenewright::SceneSheet)

public:
    struct Page {
        std::shared_ptr<const SceneValue> scene;
        std::int32_t place = 0; // among the scenes of its bank
    };

    // Letter where people measure so, else A4.
    [[nodiscard]] static QPageSize usualPaper();

    // `title` stands on each page: the file, say.
    SceneSheet(std::shared_ptr<const PopUpValue> lists, std::vector<Page> pages, QString title);

    [[nodiscard]] const std::vector<Page>& pages() const { return pages_; }

    // As the file's name ends: a PDF with all pages, or an SVG or PNG with the pages below one
    // another. On error the file is what it was.
    [[nodiscard]] Result<void> write(const std::filesystem::path& file, const QPageSize& paper);
    // On error a file that is printed to is what it was.
    [[nodiscard]] Result<void> print(SheetPrinter& printer);

    // A control's name, what it sends, and its settings.
    using Row = std::array<QString, 3>;

private:
    // Rows from one control to the one before another.
    struct TablePart {
        std::int32_t from = 0;
        std::int32_t to = 0;
        int font = 0;
        bool isDrawn = false; // else only measured
    };

    [[nodiscard]] Row rowOf(const SceneValue& scene, std::int32_t control) const;
    void drawControlOf(QPainter& painter, std::int32_t tag, const SceneValue& scene,
                       qreal scale) const;
    void drawPicture(QPainter& painter, const QRectF& room, const SceneValue& scene);
    // Both give where the rows end.
    qreal drawTable(QPainter& painter, const QRectF& room, const SceneValue& scene,
                    const TablePart& part) const;
    qreal drawTables(QPainter& painter, const QRectF& room, const SceneValue& scene, int font,
                     bool isDrawn) const;
    void drawPage(QPainter& painter, const QRectF& room, const Page& page);
    // The pages from `first` to `last`, counted from 0; the device has its paper. Whether it took
    // them.
    [[nodiscard]] bool draw(QPagedPaintDevice& device, std::size_t first, std::size_t last);
    void drawAsStrip(QPainter& painter, const QSizeF& paper);
    [[nodiscard]] Result<bool> render(QIODevice& sink, const QString& suffix,
                                      const QPageSize& paper);

    std::shared_ptr<const PopUpValue> lists_;
    std::vector<Page> pages_;
    QString title_;
};

// The endings of the names that a sheet can be written to.
inline constexpr const char* kSheetSuffixes = "pdf, svg, png";

} // namespace scenewright

// What the module exports.
extern "C" [[nodiscard]] scenewright::PaperDevices* paperDevices();
