#include "widgets/pdfText.h"
#include "platform/plainFile.h"
#include <QFile>
#include <QGlyphRun>
#include <QRawFont>
#include <QRegularExpression>
#include <QTextLayout>
#include <optional>
#include <string_view>

using namespace Qt::StringLiterals;

namespace widgets {

namespace {

constexpr char32_t planeEnd = 0x10000;

// Qt's own search from the end reads before the first byte, where no memory may be mapped.
qsizetype lastIndexOf(QByteArrayView bytes, std::string_view wanted, qsizetype from = -1) {
    const std::string_view text(bytes.data(), size_t(bytes.size()));
    const size_t found = text.rfind(wanted, from < 0 ? std::string_view::npos : size_t(from));
    return found == std::string_view::npos ? -1 : qsizetype(found);
}

// Returns the glyph of each character of the Basic Multilingual Plane; 0 if the font has none.
std::vector<quint32> glyphsOf(const QRawFont &font) {
    QString plane;
    for (char32_t code = 0; code < planeEnd; ++code)
        plane += QChar::isSurrogate(code) ? QChar(u' ') : QChar(char16_t(code));
    std::vector<quint32> glyphs(planeEnd);
    int count = int(planeEnd);
    font.glyphIndexesForChars(plane.constData(), int(plane.size()), glyphs.data(), &count);
    return glyphs;
}

struct FaceGlyphs {
    QRawFont font;
    QHash<quint32, char16_t> drawn;
};

// Laying out each character alone shows which font face draws it.
QList<FaceGlyphs> facesOf(const QString &characters, const QFont &font, const QPaintDevice *device) {
    QList<FaceGlyphs> faces;
    for (const QChar character : characters) {
        QTextLayout layout(character, font, device);
        layout.beginLayout();
        (void)layout.createLine();
        layout.endLayout();
        for (const QGlyphRun &run : layout.glyphRuns()) {
            auto face = std::ranges::find(faces, run.rawFont(), &FaceGlyphs::font);
            if (face == faces.end())
                face = faces.insert(faces.end(), {run.rawFont(), {}});
            for (const quint32 glyph : run.glyphIndexes())
                face->drawn.insert(glyph, character.unicode());
        }
    }
    return faces;
}

// A PDF file divided by its cross-reference table. The offsets are those of the plain table that Qt writes: one
// section, 20 bytes per entry.
class PdfObjects {
public:
    static std::optional<PdfObjects> read(QByteArrayView file) {
        const qsizetype at = lastIndexOf(file, "startxref");
        const qint64 table = at < 0 ? -1 : file.sliced(at + 9).toByteArray().trimmed().split('\n').first().toLongLong();
        if (table <= 0 || table >= at || !file.sliced(table).startsWith("xref\n0 "))
            return std::nullopt;
        const qsizetype trailer = file.indexOf("trailer", table);
        const qsizetype entries = file.indexOf('\n', table + 5) + 1;
        if (trailer < 0 || entries <= 0 || entries > trailer)
            return std::nullopt;
        return PdfObjects{file, table, file.sliced(entries, trailer - entries), file.sliced(trailer, at - trailer)};
    }
    // The bytes from the object's number to the end of the object.
    QByteArrayView object(int number) const {
        constexpr qsizetype entry = 20;
        if (number <= 0 || number >= m_entries.size() / entry)
            return {};
        const qint64 from = m_entries.sliced(number * entry, 10).toByteArray().toLongLong();
        const qsizetype end = from > 0 ? m_file.indexOf("endobj", from) : -1;
        return end < 0 ? QByteArrayView() : m_file.sliced(from, end - from);
    }
    // Returns the bytes to append so that `objects` replace the existing ones.
    QByteArray update(const QMap<int, QByteArray> &objects) const {
        QByteArray added;
        QByteArray table = "xref\n";
        for (const auto &[number, object] : objects.asKeyValueRange()) {
            const QByteArray place = QByteArray::number(m_file.size() + added.size()).rightJustified(10, '0');
            table += QByteArray::number(number) + " 1\n" + place + " 00000 n \n";
            added += object;
        }
        QByteArray trailer = m_trailer.toByteArray();
        trailer.insert(std::max(lastIndexOf(trailer, ">>"), qsizetype(0)),
                       "/Prev " + QByteArray::number(m_table) + '\n');
        const QByteArray start = QByteArray::number(m_file.size() + added.size());
        return added + table + trailer + "startxref\n" + start + "\n%%EOF\n";
    }

private:
    PdfObjects(QByteArrayView file, qint64 table, QByteArrayView entries, QByteArrayView trailer)
        : m_file(file)
        , m_table(table)
        , m_entries(entries)
        , m_trailer(trailer) {}

    QByteArrayView m_file;
    qint64 m_table;
    QByteArrayView m_entries;
    QByteArrayView m_trailer;
};

// Returns the characters by glyph, as given by the ranges of a font's table. Qt damages lines of tables with more than
// a hundred ranges; these are skipped.
QMap<int, int> charactersOf(const QString &ranges) {
    static const QRegularExpression line(
        u"^<([0-9A-F]{4})> <([0-9A-F]{4})> (?:<([0-9A-F]{4})>|\\[((?:<[0-9A-F]{4}> )+)\\])$"_s,
        QRegularExpression::MultilineOption);
    constexpr qsizetype listed = 7; // length of one character in a list
    const auto number = [](QStringView digits) { return digits.toInt(nullptr, 16); };
    QMap<int, int> characters;
    for (auto found = line.globalMatch(ranges); found.hasNext();) {
        const QRegularExpressionMatch range = found.next();
        const int first = number(range.capturedView(1));
        const int count = number(range.capturedView(2)) - first + 1;
        const QStringView list = range.capturedView(4);
        if (!list.isEmpty() && list.size() != count * listed)
            continue;
        for (int i = 0; i < count; ++i)
            characters.insert(first + i, list.isEmpty() ? number(range.capturedView(3)) + i
                                                        : number(list.sliced(i * listed + 1, 4)));
    }
    return characters;
}

QByteArray hex(int code) {
    return '<' + QByteArray::number(code, 16).rightJustified(4, '0') + '>';
}

// Returns the font's table with the new names, or an empty array if it contains none of them.
QByteArray renamed(QByteArrayView object, const SameGlyph &names) {
    const qsizetype stream = object.indexOf("stream\n");
    const qsizetype first = object.indexOf("beginbfrange");
    const qsizetype end = lastIndexOf(object, "endbfrange");
    if (stream < 0 || first < stream || end < first)
        return {};
    QMap<int, int> characters = charactersOf(QString::fromLatin1(object.sliced(first, end - first)));
    bool changed = false;
    QByteArrayList lines;
    for (const auto &[glyph, character] : characters.asKeyValueRange()) {
        const auto name = names.find(char16_t(character));
        changed = changed || name != names.end();
        const int code = name == names.end() ? character : int(*name);
        lines.append(hex(glyph) + ' ' + hex(code) + '\n');
    }
    if (!changed)
        return {};
    // Up to the number of ranges, which precedes "beginbfrange".
    QByteArray map = object.sliced(stream + 7, lastIndexOf(object, "\n", first) + 1 - stream - 7).toByteArray();
    constexpr qsizetype linesAtOnce = 100; // limit of the PDF format
    for (qsizetype at = 0; at < lines.size(); at += linesAtOnce) {
        const QByteArrayList part = lines.mid(at, linesAtOnce);
        map += QByteArray::number(part.size()) + " beginbfchar\n" + part.join() + "endbfchar\n";
    }
    map += "endcmap\nCMapName currentdict /CMap defineresource pop\nend\nend\n";
    return "<< /Length " + QByteArray::number(map.size()) + " >>\nstream\n" + map + "\nendstream\nendobj\n";
}

QMap<int, QByteArray> renamedTables(QByteArrayView file, const PdfObjects &objects, const SameGlyph &names) {
    constexpr QByteArrayView key = "/ToUnicode ";
    QMap<int, QByteArray> changed;
    for (qsizetype at = file.indexOf(key); at >= 0; at = file.indexOf(key, at + 1)) {
        constexpr qsizetype digits = 10;
        const QByteArrayView behind =
            file.sliced(at + key.size()).first(std::min(digits, file.size() - at - key.size()));
        const int number = behind.first(std::max(behind.indexOf(' '), qsizetype(0))).toByteArray().toInt();
        const QByteArray table = renamed(objects.object(number), names);
        if (!table.isEmpty())
            changed.insert(number, QByteArray::number(number) + " 0 obj\n" + table);
    }
    return changed;
}

} // namespace

void DrawnCharacters::add(QStringView text) {
    if (m_drawn.empty())
        m_drawn.resize(planeEnd);
    for (const QChar character : text)
        m_drawn[character.unicode()] = !character.isSurrogate();
}

QString DrawnCharacters::all() const {
    QString characters;
    for (size_t code = 0; code < m_drawn.size(); ++code) {
        if (m_drawn[code])
            characters += QChar(char16_t(code));
    }
    return characters;
}

void addSameGlyphs(SameGlyph &found, const DrawnCharacters &drawn, const QFont &font, const QPaintDevice *device) {
    for (const FaceGlyphs &face : facesOf(drawn.all(), font, device)) {
        const std::vector<quint32> glyphs = glyphsOf(face.font);
        for (size_t code = 0; code < glyphs.size(); ++code) {
            const auto same = face.drawn.find(glyphs[code]);
            if (glyphs[code] != 0 && same != face.drawn.end() && !drawn.contains(char16_t(code)))
                found.insert(char16_t(code), *same);
        }
    }
}

platform::Status nameDrawnCharacters(const QString &path, const SameGlyph &names) {
    QFile file(path);
    if (const platform::Status plain = platform::mayBecomeFile(path); !plain)
        return plain.failure();
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered))
        return platform::Failure{file.errorString(), int(file.error())};
    const qint64 size = file.size();
    uchar *const mapped = file.map(0, size);
    const QByteArrayView bytes(mapped, mapped ? size : 0);
    const std::optional<PdfObjects> objects = PdfObjects::read(bytes);
    if (!objects)
        return platform::Failure{u"文件{%1}不是可以改写的 PDF"_s.arg(path)};
    const QMap<int, QByteArray> tables = renamedTables(bytes, *objects, names);
    const QByteArray update = tables.isEmpty() ? QByteArray() : objects->update(tables);
    file.unmap(mapped);
    if (update.isEmpty() || (file.seek(size) && platform::notTaken(file, update).isEmpty()))
        return platform::success();
    const platform::Failure failure{file.errorString(), int(file.error())};
    file.resize(size);
    return failure;
}

} // namespace widgets
