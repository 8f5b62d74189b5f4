#include "schema/recordTypes.h"
#include <array>

namespace schema {

namespace {

enum class Issue { Any, Single, Continuing };

struct Row {
    QStringView chinese, english;
    QStringView types; // values of position 06; empty: all
    Issue issue;       // from position 07
};

constexpr auto rows = std::to_array<Row>({
    {u"全部资料", u"All Materials", u"", Issue::Any},
    {u"图书", u"Books", u"abtv", Issue::Single},
    {u"连续出版物", u"Continuing Resources", u"", Issue::Continuing},
    {u"测绘资料", u"Maps", u"ef", Issue::Any},
    {u"乐谱", u"Notated Music", u"cd", Issue::Any},
    {u"录音资料", u"Sound Recordings", u"ij", Issue::Any},
    {u"音乐资料", u"Music", u"cdij", Issue::Any},
    {u"影像资料", u"Visual Materials", u"gkor", Issue::Any},
    {u"电子资源", u"Computer Files", u"lm", Issue::Any},
    {u"混合资料", u"Mixed Materials", u"p", Issue::Any},
});

constexpr qsizetype typeAt = 6;
constexpr qsizetype levelAt = 7;

} // namespace

RecordTypes recordTypes(QStringView leader) {
    if (leader.size() <= levelAt)
        return 0;
    const bool continuing = leader[levelAt] == u's' || leader[levelAt] == u'i';
    RecordTypes types = 0;
    for (size_t i = 0; i < rows.size(); ++i) {
        const Row &row = rows[i];
        if ((row.types.isEmpty() || row.types.contains(leader[typeAt])) &&
            (row.issue == Issue::Any || (row.issue == Issue::Continuing) == continuing))
            types |= 1U << i;
    }
    return types;
}

std::optional<RecordTypes> recordType(QStringView name) {
    for (size_t i = 0; i < rows.size(); ++i) {
        if (name == rows[i].chinese || name == rows[i].english)
            return 1U << i;
    }
    return std::nullopt;
}

} // namespace schema
