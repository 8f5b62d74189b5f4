// The most frequent reading of a Chinese character, by ICU's transliterator.
#pragma once

#include "platform/result.h"
#include <QHash>
#include <memory>

namespace platform {

class HanReadings {
public:
    // Fails if the ICU library lacks the transliterator.
    static Result<HanReadings> open();
    HanReadings(HanReadings &&) noexcept;
    HanReadings &operator=(HanReadings &&) noexcept;
    ~HanReadings();

    // Returns the syllable in Latin letters, lower case, without its tone, with "ü" where it is one; an empty text if
    // the character has no known reading. The reference is valid until the next call.
    const QString &of(char32_t character);

private:
    struct Closer {
        void operator()(void **transliterator) const;
    };
    explicit HanReadings(void **transliterator);
    QString read(char32_t character) const;

    std::unique_ptr<void *, Closer> m_transliterator;
    QHash<char32_t, QString> m_known;
};

} // namespace platform
