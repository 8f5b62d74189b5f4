#include "marc/recordForm.h"
#include "marc/isoLayout.h"
#include "platform/codepage936.h"

using namespace Qt::StringLiterals;

namespace marc {

bool canHold(TargetForm form, char32_t character) {
    switch (form) {
    case TargetForm::GbkIso:
        return character < 0x10000 && platform::isEncodable(QString(QChar(char16_t(character))));
    case TargetForm::MarcXml: // the delimiter is not content
        return character >= 0x20 ? character != 0xFFFE && character != 0xFFFF : character == subfieldDelimiter;
    case TargetForm::Utf8Iso:
        break;
    }
    return true;
}

QString leaderFor(TargetForm form, QString leader) {
    constexpr qsizetype encodingAt = 9, countsAt = 10, entryMapAt = 20;
    leader.replace(countsAt, 2, u"22"_s).replace(entryMapAt, 4, u"450 "_s);
    if (form == TargetForm::GbkIso && leader[encodingAt] == u'a')
        leader[encodingAt] = u' ';
    return leader;
}

} // namespace marc
