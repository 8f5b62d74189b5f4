// Runs a conversion on a file made of bytes.
#pragma once

#include "support/recordFiles.h"
#include "support/recordText.h"
#include "tidy/tidyRun.h"
#include <QStringConverter>

namespace tidy {

// Continues to the end; returns the error text, or an empty string.
inline QString goOn(TidyRun &tidy, platform::Status status = platform::success()) {
    while (status) {
        const platform::Result<bool> more = tidy.step();
        if (!more)
            return more.failure().description;
        if (!more.value()) {
            status = tidy.close();
            break;
        }
    }
    return status ? QString() : status.failure().description;
}

inline QString run(TidyRun &tidy) {
    return goOn(tidy, tidy.open());
}

struct Tidied {
    TidyResult result;
    QByteArray bytes;
};

inline Tidied tidied(const files::Folder &folder, const QByteArray &source, TargetForm form = TargetForm::GbkIso) {
    TidyRun tidy(folder.write(u"source.iso"_s, source), folder.path(u"t.iso"_s), form);
    EXPECT_EQ(run(tidy), QString());
    return {tidy.result(), folder.read(u"t.iso"_s)};
}

inline QByteArray sample() {
    QFile file(QStringLiteral(SAMPLE_FILE));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

inline QByteArray converted(const QString &text, QStringConverter::Encoding encoding) {
    return QStringEncoder(encoding, QStringConverter::Flag::WriteBom)(text);
}

} // namespace tidy
