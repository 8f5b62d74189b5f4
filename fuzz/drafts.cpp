// A file of drafts with arbitrary bytes: the file is accepted as a whole or set aside as a whole, and drafts are
// restored only into listed records.
#include "fuzz/input.h"
#include "fuzz/targets.h"
#include "workspace/draftFile.h"
#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;
using namespace workspace;

namespace fuzz {

namespace {

QString onlyFile(const QDir &folder, const QString &mask) {
    const QStringList names = folder.entryList({mask}, QDir::Files);
    require(names.size() <= 1, "there is at most one file of drafts");
    return names.isEmpty() ? QString() : folder.filePath(names[0]);
}

QByteArray contents(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void restore(const Drafts &drafts, int listed) {
    DraftBook book;
    book.leave(drafts);
    const auto done =
        book.restore([&](int row) { return row < listed ? std::optional(u"record"_s) : std::nullopt; }, std::nullopt);
    require(done.put.isEmpty() || done.put.lastKey() < listed, "drafts are restored only into listed records");
    require(done.put.size() + done.aside.size() + done.waiting == drafts.size(), "no draft is lost");
    require(book.beyondTheEnd(listed).size() == done.waiting && book.left().isEmpty(),
            "only drafts beyond the end of the list keep waiting");
}

} // namespace

void drafts(QByteArrayView bytes) {
    QDir folder(scratchFolder() + u"drafts");
    folder.removeRecursively();
    folder.mkpath(u"."_s);
    const QString in = folder.path() + u'/';
    const QString source = scratchFile(u"source", "records");
    Input input(bytes);
    const bool headed = input.flag();
    const int listed = input.byte();
    require(DraftFile(in, source).write({{0, {u"x"_s, {}}}}, {}).ok(), "the first write succeeds");
    const QString path = onlyFile(folder, u"*.json"_s);
    QByteArray text = contents(path);
    text = (headed ? text.left(text.indexOf('\n') + 1) : QByteArray()) + input.rest().toByteArray();
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(text) == text.size(), "the input is written");
    file.close();

    DraftFile drafts(in, source);
    const auto found = drafts.read();
    if (!found) {
        require(contents(onlyFile(folder, u"*.kept"_s)) == text && !QFile::exists(path),
                "a rejected file is set aside unchanged");
        return;
    }
    require(drafts.write(found.value().drafts, found.value().older).ok(), "drafts that were read can be written");
    const auto again = DraftFile(in, source).read();
    require(again && again.value().drafts == found.value().drafts && again.value().older == found.value().older,
            "drafts that were written can be read again");
    restore(found.value().drafts, listed);
}

} // namespace fuzz
