// Scenes on paper, a page each: the picture of the keyboard as the window shows it, and a table of
// what each control sends and is set to, in words.
#pragma once

#include "model/PopUpValue.h"
#include "model/SceneValue.h"
#include "platform/Text.h"

#include <QCoreApplication>
#include <QPageSize>
#include <QRectF>
#include <QString>

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

class QIODevice;
class QPagedPaintDevice;
class QPainter;
class QPrinter;

namespace scenewright {

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
    // On the paper and the pages that were chosen for the printer, which is one or a file. On error
    // the file is what it was.
    [[nodiscard]] Result<void> print(QPrinter& printer);

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
    [[nodiscard]] bool render(QIODevice& sink, const QString& suffix, const QPageSize& paper);

    std::shared_ptr<const PopUpValue> lists_;
    std::vector<Page> pages_;
    QString title_;
};

// The endings of the names that a sheet can be written to.
inline constexpr const char* kSheetSuffixes = "pdf, svg, png";

} // namespace scenewright
