#include "editor/qt/SceneSheet.h"

#include "editor/ControlDescription.h"
#include "editor/qt/ControlShape.h"
#include "editor/qt/QtHelpers.h"
#include "model/ControlOutput.h"
#include "model/Midi.h"
#include "platform/Files.h"
#include "platform/Text.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QLocale>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryFile>
#include <QTextOption>

#include <algorithm>
#include <array>
#include <cmath>
#include <dlfcn.h>
#include <utility>

namespace scenewright {

namespace {

// Lengths on the paper are in tenths of a point, so that whole numbers do for the size of a font.
constexpr qreal kUnitsPerPoint = 10;
constexpr qreal kMargin = 340; // 12 mm
constexpr int kHeading = 160;
constexpr int kSmall = 80;
constexpr qreal kGap = 100;
constexpr std::array kTableFonts{76, 72, 68, 64, 60, 56, 52, 48}; // the first that fits
constexpr qreal kRowGap = 16;
constexpr qreal kCellGap = 50;
constexpr qreal kColumnGap = 60;
constexpr qreal kSendsPart = 0.42; // of what the names leave of the width
constexpr std::int32_t kFirstKey = controlRange(ControlKind::Key).start; // in the right half
constexpr qreal kPictureWidth = 940; // in device-independent pixels, as in the window
constexpr qreal kPicturePart = 0.42; // of a page's height, at most, where that is the less
constexpr std::int32_t kNumbers = 2; // the display mode
constexpr qreal kPngDotsPerPoint = 150.0 / 72;
constexpr QColor kInk(0, 0, 0);
constexpr QColor kRule(170, 170, 170);
constexpr qreal kRuleWidth = 3;
constexpr qreal kTallest = 10000; // a row

const QByteArray kPdfEnd = QByteArrayLiteral("%%EOF\n");

std::string notDrawn(const std::filesystem::path& file) {
    return translated(sourceText("scenewright::File", "{}: the sheet cannot be drawn"),
                      readableText(file.string()));
}

Result<void> replaced(const std::filesystem::path& file, const QByteArray& bytes) {
    return replaceFile(file, {reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                              static_cast<std::size_t>(bytes.size())})
        .map([](const Replaced&) {});
}

QFont fontOf(int size, bool isBold = false) {
    QFont font;
    font.setPixelSize(size);
    font.setBold(isBold);
    return font;
}

// Words are broken where one alone is too long.
QTextOption wrapped() {
    QTextOption option(Qt::AlignLeft | Qt::AlignTop);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}

QSizeF unitsOf(const QPageSize& paper) {
    return paper.size(QPageSize::Point) * kUnitsPerPoint;
}

QRectF inside(const QRectF& paper) {
    return paper.adjusted(kMargin, kMargin, -kMargin, -kMargin);
}

// Rows of texts below one another, each as high as it needs; only measured unless `isDrawn`.
class Table {
public:
    // `names` is how wide the first column's widest text is.
    Table(QPainter& painter, qreal left, qreal width, qreal names, bool isDrawn)
        : painter_(painter), left_(left), width_(width),
          columns_(columnsOf(names, width - names - kCellGap)), isDrawn_(isDrawn) {}

    // Gives where the next one begins.
    qreal row(const SceneSheet::Row& texts, qreal top) {
        qreal bottom = top;
        qreal left = left_;
        for (std::size_t column = 0; column < texts.size(); ++column) {
            const qreal width = columns_.at(column);
            const QRectF room(left, top, width - kCellGap, kTallest);
            bottom =
                std::max(bottom, painter_.boundingRect(room, texts.at(column), wrapped()).bottom());
            if (isDrawn_)
                painter_.drawText(room, texts.at(column), wrapped());
            left += width;
        }
        if (isDrawn_)
            rule(bottom + kRowGap / 2);
        return bottom + kRowGap;
    }

private:
    // Of the columns: the names with their gap, and two in what is left beside them.
    static std::array<qreal, 3> columnsOf(qreal names, qreal rest) {
        return {names + kCellGap, rest * kSendsPart, rest * (1 - kSendsPart)};
    }

    void rule(qreal at) {
        painter_.setPen(QPen(kRule, kRuleWidth));
        painter_.drawLine(QPointF(left_, at), QPointF(left_ + width_, at));
        painter_.setPen(kInk);
    }

    QPainter& painter_;
    qreal left_;
    qreal width_;
    std::array<qreal, 3> columns_; // their widths
    bool isDrawn_;
};

} // namespace

QPageSize SceneSheet::usualPaper() {
    const bool isLetter = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
    return QPageSize(isLetter ? QPageSize::Letter : QPageSize::A4);
}

SceneSheet::SceneSheet(std::shared_ptr<const PopUpValue> lists, std::vector<Page> pages,
                       QString title)
    : lists_(std::move(lists)), pages_(std::move(pages)), title_(std::move(title)) {}

SceneSheet::Row SceneSheet::rowOf(const SceneValue& scene, std::int32_t control) const {
    const QString name = shown(controlName(control));
    const QString settings = shown(describeControl(*lists_, scene, control)).mid(name.size() + 2);
    const auto output = controlOutput(scene, control);
    if (output)
        return {
            name,
            tr("%1, channel %2").arg(shown(outputName(*lists_, *output))).arg(output->channel + 1),
            settings};
    return {name, output.error() == Silence::Group ? QString() : tr("nothing"), settings};
}

void SceneSheet::drawControlOf(QPainter& painter, std::int32_t tag, const SceneValue& scene,
                               qreal scale) const {
    const ControlKind kind = controlRangeOf(tag)->kind;
    const ControlShape shape = shapeOf(kind, tag);
    const auto place = static_cast<std::size_t>(tag - 1);
    const auto& records = scene.buttonValueArray();
    const ButtonValue record = place < records.size() ? *records[place] : ButtonValue();
    const Colour light = kind == ControlKind::Pad ? padColour(record) : Colour{};
    const QRectF bounds = controlPlace(tag);
    const QRectF room(bounds.topLeft() * scale, bounds.size() * scale);
    drawControl(painter, room, {.shape = shape, .light = {light.red, light.green, light.blue}});
    const QString text = shown(displaySummary(*lists_, kind, record, kNumbers));
    const QRectF caption = captionRect(shape, room);
    const int largest = static_cast<int>(std::lround(kLargestCaption * scale));
    drawCaption(painter, caption, text, setCaption(text, caption.size(), QFont(), largest),
                kPlainCaption);
}

void SceneSheet::drawPicture(QPainter& painter, const QRectF& room, const SceneValue& scene) {
    const qreal scale = kPictureWidth / kDrawingSize.width();
    painter.save();
    painter.translate(room.topLeft());
    painter.scale(room.width() / kPictureWidth, room.width() / kPictureWidth);
    drawBody(painter, QRectF(QPointF(), kDrawingSize * scale));
    for (const bool isAbove : {false, true}) // the black keys lie on the white ones
        for (std::int32_t tag = 1; tag < kControlIndexEnd; ++tag)
            if ((shapeOf(controlRangeOf(tag)->kind, tag) == ControlShape::BlackKey) == isAbove)
                drawControlOf(painter, tag, scene, scale);
    painter.restore();
}

qreal SceneSheet::drawTable(QPainter& painter, const QRectF& room, const SceneValue& scene,
                            const TablePart& part) const {
    painter.setFont(fontOf(part.font));
    qreal names = 0;
    for (std::int32_t control = part.from; control < part.to; ++control)
        names = std::max(
            names,
            painter.boundingRect(room, Qt::TextSingleLine, shown(controlName(control))).width());
    Table table(painter, room.left(), room.width(), names, part.isDrawn);
    painter.setFont(fontOf(part.font, true));
    qreal bottom = table.row({QString(), tr("Sends"), tr("Settings")}, room.top());
    painter.setFont(fontOf(part.font));
    for (std::int32_t control = part.from; control < part.to; ++control)
        bottom = table.row(rowOf(scene, control), bottom);
    return bottom;
}

qreal SceneSheet::drawTables(QPainter& painter, const QRectF& room, const SceneValue& scene,
                             int font, bool isDrawn) const {
    const QSizeF half((room.width() - kColumnGap) / 2, room.height());
    const QPointF right(room.left() + half.width() + kColumnGap, room.top());
    return std::max(
        drawTable(painter, {room.topLeft(), half}, scene, {1, kFirstKey, font, isDrawn}),
        drawTable(painter, {right, half}, scene, {kFirstKey, kControlIndexEnd, font, isDrawn}));
}

void SceneSheet::drawPage(QPainter& painter, const QRectF& room, const Page& page) {
    const SceneValue& scene = *page.scene;
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.setPen(kInk);
    painter.setFont(fontOf(kHeading, true));
    const auto& common = scene.commonValue();
    const QString name = common ? shown(displayName(common->SceneName())) : QString();
    painter.drawText(room, Qt::AlignLeft | Qt::AlignTop,
                     tr("Scene %1: %2").arg(page.place + 1).arg(name));
    painter.setFont(fontOf(kSmall));
    painter.drawText(room, Qt::AlignRight | Qt::AlignTop, title_);
    qreal top = room.top() + kHeading + kGap;
    const QString settings = rowOf(scene, 0).at(2);
    const QRectF line(QPointF(room.left(), top), room.bottomRight());
    painter.drawText(line, settings, wrapped());
    top += painter.boundingRect(line, settings, wrapped()).height() + kGap;

    const qreal ratio = kDrawingSize.width() / kDrawingSize.height();
    const qreal height = std::min(room.width() / ratio, (room.bottom() - top) * kPicturePart);
    const qreal left = room.center().x() - height * ratio / 2;
    drawPicture(painter, QRectF(left, top, height * ratio, height), scene);
    const QRectF rest(QPointF(room.left(), top + height + kGap), room.bottomRight());
    const auto* const fitting = std::ranges::find_if(kTableFonts, [&](int font) {
        return drawTables(painter, rest, scene, font, false) <= rest.bottom();
    });
    drawTables(painter, rest, scene, fitting == kTableFonts.end() ? kTableFonts.back() : *fitting,
               true);
}

bool SceneSheet::draw(QPagedPaintDevice& device, std::size_t first, std::size_t last) {
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    const QRectF whole(QPointF(),
                       device.pageLayout().fullRect(QPageLayout::Point).size() * kUnitsPerPoint);
    const qreal scale = painter.viewport().width() / whole.width();
    painter.scale(scale, scale);
    for (std::size_t page = first; page <= last && page < pages_.size(); ++page) {
        if (page != first && !device.newPage())
            return false;
        drawPage(painter, inside(whole), pages_[page]);
    }
    return painter.end();
}

void SceneSheet::drawAsStrip(QPainter& painter, const QSizeF& paper) {
    for (std::size_t page = 0; page < pages_.size(); ++page)
        drawPage(painter, inside({QPointF(0, paper.height() * static_cast<qreal>(page)), paper}),
                 pages_[page]);
}

Result<bool> SceneSheet::render(QIODevice& sink, const QString& suffix, const QPageSize& paper) {
    const QSizeF one = unitsOf(paper);
    const QSizeF all(one.width(), one.height() * static_cast<qreal>(pages_.size()));
    if (suffix == QLatin1String("pdf")) {
        QPdfWriter writer(&sink);
        writer.setPageSize(paper);
        writer.setPageMargins({});
        writer.setTitle(title_);
        return draw(writer, 0, pages_.size() - 1);
    }
    if (suffix == QLatin1String("svg")) {
        return PaperDevices::load().map([&](PaperDevices* devices) {
            const auto svg = devices->makeSvg(sink, title_, (all / kUnitsPerPoint).toSize(),
                                              QRectF(QPointF(), all));
            QPainter painter(svg.get());
            drawAsStrip(painter, one);
            return true;
        });
    }
    const qreal scale = kPngDotsPerPoint / kUnitsPerPoint;
    QImage image((all * scale).toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(scale, scale);
    drawAsStrip(painter, one);
    painter.end();
    return image.save(&sink, "PNG");
}

Result<void> SceneSheet::print(SheetPrinter& printer) {
    const auto isDrawn = [&] { return draw(printer.device, printer.firstPage, printer.lastPage); };
    if (printer.file.isEmpty()) {
        if (isDrawn())
            return {};
        return failure(tr("%1: the printer takes no sheet").arg(printer.name).toStdString());
    }
    // What the toolkit could not write whole it does not tell.
    QTemporaryFile pages;
    if (pages.open())
        printer.setFile(pages.fileName());
    const QByteArray bytes = pages.isOpen() && isDrawn() ? pages.readAll() : QByteArray();
    printer.setFile(printer.file);
    if (!bytes.endsWith(kPdfEnd))
        return failure(notDrawn(printer.file.toStdString()));
    return replaced(printer.file.toStdString(), bytes);
}

Result<void> SceneSheet::write(const std::filesystem::path& file, const QPageSize& paper) {
    const QString suffix = QFileInfo(QString::fromStdString(file.string())).suffix().toLower();
    if (!QStringList{"pdf", "svg", "png"}.contains(suffix))
        return failure(translated(sourceText("scenewright::File",
                                             "{0}: a sheet is written to a file that ends in one "
                                             "of {1}"),
                                  readableText(file.string()), kSheetSuffixes));
    QBuffer sink;
    sink.open(QIODevice::WriteOnly);
    return render(sink, suffix, paper).and_then([&](bool isDrawn) -> Result<void> {
        if (!isDrawn)
            return failure(notDrawn(file));
        return replaced(file, sink.data());
    });
}

// The module stays until the program ends. The toolkit's own loader tries other names too, and its
// reason is that of the last.
Result<PaperDevices*> PaperDevices::load() {
    const QString file =
        QCoreApplication::applicationDirPath() + QStringLiteral("/../lib/scenewright/paper.so");
    void* const module = ::dlopen(QFile::encodeName(file).constData(), RTLD_NOW);
    void* const entry = module == nullptr ? nullptr : ::dlsym(module, "paperDevices");
    if (entry == nullptr)
        return failure(std::string(::dlerror()));
    return reinterpret_cast<decltype(&paperDevices)>(entry)();
}

} // namespace scenewright
