// Plays the kept inputs of each target in the ordinary build.
#include "fuzz/targets.h"
#include <QDir>
#include <cstdio>
#include <gtest/gtest.h>

namespace {

struct Target {
    const char *name;
    void (*run)(QByteArrayView);
    friend void PrintTo(const Target &target, std::ostream *out) { *out << target.name; }
};

class Corpus : public testing::TestWithParam<Target> {};

TEST_P(Corpus, Holds) {
    const QDir folder(QStringLiteral(FUZZ_CORPUS) + u'/' + QLatin1String(GetParam().name));
    const QFileInfoList members = folder.entryInfoList(QDir::Files, QDir::Name);
    ASSERT_FALSE(members.isEmpty());
    for (const QFileInfo &member : members) {
        QFile file(member.filePath());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        std::printf("%s\n", qPrintable(member.fileName())); // a property that does not hold ends the process
        std::fflush(stdout);
        GetParam().run(file.readAll());
    }
}

INSTANTIATE_TEST_SUITE_P(, Corpus, testing::Values(Target{"record", fuzz::record}),
                         [](const auto &info) { return info.param.name; });

} // namespace
