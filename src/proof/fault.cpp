#include "proof/fault.h"
#include <array>

using namespace Qt::StringLiterals;

namespace proof {

namespace {

struct Frame {
    FaultKind kind;
    QStringView before, after;
};

constexpr QStringView mark = u"Error:", lineEnd = u"\r\n";
constexpr auto frames = std::to_array<Frame>({
    {FaultKind::Missing, mark, lineEnd},
    {FaultKind::Repeated, mark, lineEnd},
    {FaultKind::Subfield, mark, lineEnd},
    {FaultKind::Isbn, mark, {}},
    {FaultKind::IsbnParts, mark, lineEnd},
    {FaultKind::IsbnSegments, {}, lineEnd},
});

constexpr bool standInOrder() {
    for (size_t at = 0; at < frames.size(); ++at)
        if (frames[at].kind != FaultKind(at))
            return false;
    return true;
}
static_assert(standInOrder());

} // namespace

QString report(const std::vector<Fault> &faults) {
    QString text;
    for (const Fault &fault : faults) {
        const Frame &frame = frames[size_t(fault.kind)];
        text += frame.before + fault.words + frame.after;
    }
    return text;
}

} // namespace proof
