#include "platform/qt/GlyphShapes.h"

#include <QFont>
#include <QFontDatabase>
#include <QPainter>
#include <cmath>
#include <cstring>
#include <map>
#include <unordered_map>
#include <utility>

#include "base/Rounding.h"

namespace corvane {
namespace {

constexpr int kPhases = 4;            // places of a pen within a pixel, each way
constexpr double kLargestKept = 160;  // pixels to the em; larger glyphs are rare
constexpr qsizetype kMostBytes = 24 << 20;

struct PictureKey {
    const FontFace* face;
    double size;
    uint32_t glyph;
    Colour colour;
    int phase;

    friend bool operator==(const PictureKey&, const PictureKey&) = default;
};

struct HashOf {
    size_t operator()(const PictureKey& key) const {
        uint64_t hash = reinterpret_cast<uintptr_t>(key.face), size;
        std::memcpy(&size, &key.size, sizeof size);
        for (uint64_t part :
             {size, uint64_t{key.glyph}, uint64_t{key.colour}, static_cast<uint64_t>(key.phase)})
            hash = (hash ^ part) * 0x9e3779b97f4a7c15u, hash ^= hash >> 29;
        return hash;
    }
};

QPainterPath MakePath(const FontFace& face, uint32_t glyph) {
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (const OutlineStep& s : face.OutlineOf(glyph)) switch (s.kind) {
            case OutlineStep::Kind::Move:
                path.moveTo(s.x[0], s.y[0]);
                break;
            case OutlineStep::Kind::Line:
                path.lineTo(s.x[0], s.y[0]);
                break;
            case OutlineStep::Kind::Quadratic:
                path.quadTo(s.x[0], s.y[0], s.x[1], s.y[1]);
                break;
            case OutlineStep::Kind::Cubic:
                path.cubicTo(s.x[0], s.y[0], s.x[1], s.y[1], s.x[2], s.y[2]);
                break;
        }
    return path;
}

GlyphPicture MakePicture(FontFace& face, const PictureKey& key) {
    const EmBox& box = face.Box(key.glyph);
    const double dx = double(key.phase % kPhases) / kPhases, dy = double(key.phase / kPhases) / kPhases;
    const QPoint corner(Truncate(std::floor(box.left * key.size + dx)) - 1,
                        Truncate(std::floor(box.top * key.size + dy)) - 1);
    const QPoint end(Truncate(std::ceil(box.right * key.size + dx)) + 1,
                     Truncate(std::ceil(box.bottom * key.size + dy)) + 1);
    QImage image(end.x() - corner.x(), end.y() - corner.y(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(dx - corner.x(), dy - corner.y());
    painter.scale(key.size, key.size);
    painter.fillPath(GlyphPath(face, key.glyph), ToQt(key.colour));
    return {std::move(image), corner};
}

// Documents embed only what the font database knows by its file name, so the way goes through a family.
QRawFont MakeRunFont(const QString& path, uint8_t style) {
    const QStringList families =
        QFontDatabase::applicationFontFamilies(QFontDatabase::addApplicationFont(path));
    if (families.isEmpty()) return {};
    QFont font(families.first());
    font.setPixelSize(kRunSize);
    font.setBold(style & kBoldStyle);
    font.setItalic(style & kItalicStyle);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::NoFontMerging);
    const QRawFont found = QRawFont::fromFont(font);
    const bool same = found.fontTable("head") == QRawFont(path, kRunSize).fontTable("head");
    return same ? found : QRawFont();
}

}  // namespace

const QPainterPath& GlyphPath(FontFace& face, uint32_t glyph) {
    static std::map<std::pair<const FontFace*, uint32_t>, QPainterPath> paths;
    const auto [entry, isNew] = paths.try_emplace({&face, glyph});
    if (isNew) entry->second = MakePath(face, glyph);
    return entry->second;
}

const GlyphPicture* PictureOf(FontFace& face, uint32_t glyph, double size, Colour colour, DevicePoint pen,
                              QPoint& pixel) {
    static std::unordered_map<PictureKey, GlyphPicture, HashOf> pictures;
    static qsizetype bytes = 0;
    if (size > kLargestKept || std::abs(pen.x) > 1e6 || std::abs(pen.y) > 1e6) return nullptr;
    const int x = Truncate(std::floor(pen.x * kPhases + 0.5)),
              y = Truncate(std::floor(pen.y * kPhases + 0.5));
    pixel = {x >> 2, y >> 2};
    static_assert(kPhases == 4);
    const PictureKey key{&face, size, glyph, colour, (y & 3) * kPhases + (x & 3)};
    if (const auto found = pictures.find(key); found != pictures.end()) return &found->second;
    if (bytes > kMostBytes) pictures.clear(), bytes = 0;
    const auto entry = pictures.emplace(key, MakePicture(face, key)).first;
    bytes += entry->second.image.sizeInBytes();
    return &entry->second;
}

const QRawFont& RunFont(const FontFace& face) {
    // Never destroyed: at the program's end Qt's own fonts may be gone before ours.
    static auto& fonts = *new std::map<std::pair<std::string, int32_t>, QRawFont>;
    const FontFile& file = face.File();
    const auto [entry, isNew] = fonts.try_emplace({file.path, file.index});
    // Qt reads only the first face of a collection.
    if (isNew && file.index == 0)
        entry->second = MakeRunFont(QString::fromStdString(file.path), face.OwnStyle());
    return entry->second;
}

}  // namespace corvane
