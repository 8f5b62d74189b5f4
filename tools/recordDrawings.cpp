// Records the drawings of the icons in the colours of both schemes, for a program that is built without Qt Svg.
// Usage: recordDrawings FOLDER
#include "widgets/lineDrawing.h"
#include "widgets/styleTokens.h"
#include <QDir>
#include <QGuiApplication>
#include <QPainter>
#include <QPicture>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

bool record(const QDir &folder, const QString &name, const QPalette &palette, bool faint) {
    QPicture picture;
    QPainter painter(&picture);
    widgets::paintLineDrawing(painter, QRect(0, 0, widgets::drawingSide, widgets::drawingSide), name, palette, faint);
    painter.end();
    return picture.save(folder.filePath(widgets::recordingName(name, palette, faint)));
}

} // namespace

int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 2 || !QDir().mkpath(arguments[1])) {
        std::fprintf(stderr, "usage: recordDrawings FOLDER\n");
        return 1;
    }
    const QDir folder(arguments[1]);
    for (const QFileInfo &drawing : QDir(u":/lines"_s).entryInfoList({u"*.svg"_s})) {
        for (const widgets::Scheme scheme : {widgets::Scheme::Light, widgets::Scheme::Dark}) {
            for (const bool faint : {false, true}) {
                if (!record(folder, drawing.completeBaseName(), widgets::schemePalette(scheme), faint)) {
                    std::fprintf(stderr, "cannot write into %s\n", qPrintable(arguments[1]));
                    return 1;
                }
            }
        }
    }
    return 0;
}
