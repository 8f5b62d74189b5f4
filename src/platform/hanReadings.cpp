#include "platform/hanReadings.h"
#include <QStringView>
#include <algorithm>
#include <array>
#include <unicode/utrans.h>

using namespace Qt::StringLiterals;

namespace platform {

namespace {

constexpr std::array<char16_t, 4> tones{0x0304, 0x0301, 0x030C, 0x0300}; // as combining marks

bool isTone(QChar c) {
    return std::ranges::find(tones, c.unicode()) != tones.end();
}

} // namespace

void HanReadings::Closer::operator()(void **transliterator) const {
    utrans_close(transliterator);
}

HanReadings::HanReadings(void **transliterator)
    : m_transliterator(transliterator) {}
HanReadings::HanReadings(HanReadings &&) noexcept = default;
HanReadings &HanReadings::operator=(HanReadings &&) noexcept = default;
HanReadings::~HanReadings() = default;

Result<HanReadings> HanReadings::open() {
    constexpr QStringView id = u"Han-Latin";
    UErrorCode error = U_ZERO_ERROR;
    UTransliterator *opened = utrans_openU(id.utf16(), int32_t(id.size()), UTRANS_FORWARD, nullptr, 0, nullptr, &error);
    if (U_FAILURE(error))
        return Failure{u"ICU 没有汉语拼音的表（%1）"_s.arg(QLatin1StringView(u_errorName(error)))};
    return HanReadings(opened);
}

const QString &HanReadings::of(char32_t character) {
    const auto known = m_known.constFind(character);
    return known != m_known.constEnd() ? *known : *m_known.insert(character, read(character));
}

QString HanReadings::read(char32_t character) const {
    constexpr int32_t room = 64;
    const bool isPair = QChar::requiresSurrogates(character);
    char16_t text[room] = {isPair ? QChar::highSurrogate(character) : char16_t(character),
                           isPair ? QChar::lowSurrogate(character) : char16_t(0)};
    int32_t length = isPair ? 2 : 1, limit = length;
    UErrorCode error = U_ZERO_ERROR;
    utrans_transUChars(m_transliterator.get(), text, &length, room, 0, &limit, &error);
    QString syllable = QString::fromUtf16(text, U_FAILURE(error) ? 0 : length).normalized(QString::NormalizationForm_D);
    syllable.removeIf(isTone);
    syllable = syllable.normalized(QString::NormalizationForm_C).trimmed().toLower();
    const bool isLatin = !syllable.isEmpty() && std::ranges::all_of(syllable, [](QChar c) {
        return (c >= u'a' && c <= u'z') || c == u'ü' || c == u'ê';
    });
    return isLatin ? syllable : QString();
}

} // namespace platform
