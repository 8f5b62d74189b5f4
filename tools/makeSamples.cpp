// Builds the sample files of a folder: "sample.iso" with all records of the tagged texts, one per line in code page
// 936, "five.iso", and in the folder "damaged" a small file for each kind of damage.
#include "tools/damageRecipes.h"
#include "tools/sourceText.h"
#include "tools/taggedText.h"
#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;
using tools::complain;

namespace {

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
        const QString path = QString::fromLocal8Bit(arguments[i]);
        const auto lines = tools::readSource(path);
        const auto text = lines ? tools::parseTaggedText(lines.value()) : lines.failure();
        if (!text)
            return complain(path, text.failure().description);
        for (const tools::TaggedRecord &record : text.value())
            records.append(tools::assemble(record));
    }
    const QDir folder(QString::fromLocal8Bit(arguments[1]));
    bool good = folder.mkpath(u"damaged"_s) && write(folder.filePath(u"sample.iso"_s), records.join("\r\n") + "\r\n");
    for (const tools::DamageRecipe &recipe : tools::damageRecipes())
        good = good && write(folder.filePath(recipe.fileName.toString()), recipe.make(records));
    return good ? 0 : complain(folder.path(), u"cannot be written"_s);
}
