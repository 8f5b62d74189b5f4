#include "widgets/fileDrop.h"
#include <QDir>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

namespace widgets {

std::optional<QString> acceptFile(QDropEvent *event) {
    const QList<QUrl> urls = event->mimeData()->urls();
    if (urls.size() != 1 || !urls[0].isLocalFile() || !event->possibleActions().testFlag(Qt::CopyAction))
        return std::nullopt;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    return QDir::toNativeSeparators(urls[0].toLocalFile());
}

} // namespace widgets
