#include "fuzz/input.h"
#include "platform/codepage936.h"
#include <QFile>
#include <QTemporaryDir>
#include <cstdio>
#include <cstdlib>
#include <cstring>

using namespace Qt::StringLiterals;

namespace fuzz {

QByteArrayView Input::take(qsizetype count) {
    const QByteArrayView taken = m_left.first(std::min(count, m_left.size()));
    m_left = m_left.sliced(taken.size());
    return taken;
}

int Input::byte() {
    const QByteArrayView taken = take(1);
    return taken.isEmpty() ? 0 : uchar(taken.front());
}

QString Input::text() {
    const bool units = byte() % 4 == 3;
    const QByteArrayView bytes = piece();
    if (!units)
        return platform::decode(bytes);
    QString text(bytes.size() / 2, Qt::Uninitialized);
    std::memcpy(text.data(), bytes.data(), size_t(text.size()) * 2);
    return text;
}

QString Input::number() {
    constexpr QStringView signs = u"0123456789012345678901234567890.-+ ,eE٣２";
    QString text;
    for (const char sign : piece())
        text += signs[uchar(sign) % signs.size()];
    return text;
}

void require(bool holds, const char *what) {
    if (holds)
        return;
    std::fprintf(stderr, "\nDOES NOT HOLD: %s\n", what);
    std::abort();
}

QString scratchFolder() {
    static const QTemporaryDir folder;
    return folder.path() + u'/';
}

QString scratchFile(QStringView name, QByteArrayView bytes) {
    QFile file(scratchFolder() + name);
    require(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) &&
                file.write(bytes.data(), bytes.size()) == bytes.size(),
            "a scratch file can be written");
    return file.fileName();
}

} // namespace fuzz
