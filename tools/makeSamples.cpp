// Builds the sample files of a folder: "sample.iso" with all records of the tagged texts, one to a line of code page
// 936, and a small file for each kind of damage.
#include "tools/damageRecipes.h"
#include "tools/taggedText.h"
#include <QDir>
#include <QFile>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

int complain(const QString &path, const QString &what) {
    std::fprintf(stderr, "%s: %s\n", qPrintable(path), qPrintable(what));
    return 1;
}

bool write(const QString &path, const QByteArray &bytes) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}

} // namespace

int main(int count, char **arguments) {
    if (count < 3)
        return complain(u"makeSamples"_s, u"usage: makeSamples FOLDER TAGGEDTEXT..."_s);
    QList<QByteArray> records;
    for (int i = 2; i < count; ++i) {
        QFile source(QString::fromLocal8Bit(arguments[i]));
        if (!source.open(QIODevice::ReadOnly))
            return complain(source.fileName(), source.errorString());
        const tools::TaggedText text = tools::parseTaggedText(QString::fromUtf8(source.readAll()));
        if (!text.error.isEmpty())
            return complain(source.fileName(), text.error);
        for (const tools::TaggedRecord &record : text.records) {
            const auto bytes = tools::assemble(record);
            if (!bytes)
                return complain(source.fileName(), u"a record has a character without a code in code page 936: "_s +
                                                       record.fields.value(0).content);
            records.append(*bytes);
        }
    }
    const QDir folder(QString::fromLocal8Bit(arguments[1]));
    bool good = folder.mkpath(u"."_s) && write(folder.filePath(u"sample.iso"_s), records.join("\r\n") + "\r\n");
    for (const tools::DamageRecipe &recipe : tools::damageRecipes())
        good = good && write(folder.filePath(recipe.fileName.toString()), recipe.make(records));
    return good ? 0 : complain(folder.path(), u"cannot be written"_s);
}
