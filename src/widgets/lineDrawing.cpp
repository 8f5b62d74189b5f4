#include "widgets/lineDrawing.h"
#include "widgets/styleTokens.h"

using namespace Qt::StringLiterals;

namespace widgets {

QString recordingName(const QString &name, const QPalette &palette, bool faint) {
    return name + (schemeOf(palette) == Scheme::Dark ? u"-dark"_s : u"-light"_s) + (faint ? u"-faint"_s : QString());
}

} // namespace widgets
