// Runs each target on its stored inputs in an ordinary build.
#include "fuzz/targets.h"
#include <QDir>
#include <cstdio>
#include <gtest/gtest.h>

namespace {

struct Target {
    const char *name;
    void (*run)(QByteArrayView);
    bool readsFiles = false; // the sample files, including the damaged ones, are inputs too
    friend void PrintTo(const Target &target, std::ostream *out) { *out << target.name; }
};

class Replay : public testing::TestWithParam<Target> {
protected:
    // A violated property ends the process: the last file name printed is that of the failing input.
    static void play(const QDir &folder) {
        const QFileInfoList members = folder.entryInfoList(QDir::Files, QDir::Name);
        ASSERT_FALSE(members.isEmpty());
        for (const QFileInfo &member : members) {
            QFile file(member.filePath());
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            std::printf("%s\n", qPrintable(member.filePath()));
            std::fflush(stdout);
            GetParam().run(file.readAll());
        }
    }
};

TEST_P(Replay, KeptInputs) {
    play(QDir(QStringLiteral(FUZZ_CORPUS) + u'/' + QLatin1String(GetParam().name)));
    if (GetParam().readsFiles)
        play(QDir(QStringLiteral(FUZZ_SAMPLES)));
}

INSTANTIATE_TEST_SUITE_P(, Replay,
                         testing::Values(Target{"record", fuzz::record, true}, Target{"mapping", fuzz::mapping},
                                         Target{"configuration", fuzz::configuration}, Target{"texts", fuzz::texts},
                                         Target{"query", fuzz::query}, Target{"maskedEdit", fuzz::maskedEdit},
                                         Target{"splitMerge", fuzz::splitMerge, true}, Target{"tidy", fuzz::tidy, true},
                                         Target{"drafts", fuzz::drafts}, Target{"schema", fuzz::schema},
                                         Target{"answers", fuzz::answers}, Target{"tasks", fuzz::tasks}),
                         [](const auto &info) { return info.param.name; });

} // namespace
