#include "widgets/lineIcon.h"
#include "widgets/lineDrawing.h"
#include "widgets/styleTokens.h"
#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace widgets {

namespace {

class LineIconEngine final : public QIconEngine {
public:
    explicit LineIconEngine(const QString &name)
        : m_name(name) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override {
        paintLineDrawing(*painter, rect, m_name, QApplication::palette(), mode == QIcon::Disabled);
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override {
        const bool dark = schemeOf(QApplication::palette()) == Scheme::Dark;
        const QString key =
            u"line %1 %2x%3 %4 %5"_s.arg(m_name).arg(size.width()).arg(size.height()).arg(mode).arg(dark);
        QPixmap made;
        if (QPixmapCache::find(key, &made))
            return made;
        made = QPixmap(size);
        made.fill(Qt::transparent);
        QPainter painter(&made);
        paint(&painter, made.rect(), mode, state);
        painter.end();
        QPixmapCache::insert(key, made);
        return made;
    }

    QIconEngine *clone() const override { return new LineIconEngine(m_name); }

private:
    QString m_name;
};

struct StandardIcon {
    QStyle::StandardPixmap standard;
    QStringView name;
};
constexpr auto standardIcons = std::to_array<StandardIcon>({
    {QStyle::SP_MessageBoxInformation, u"information"},
    {QStyle::SP_MessageBoxQuestion, u"question"},
    {QStyle::SP_MessageBoxWarning, u"warning"},
    {QStyle::SP_MessageBoxCritical, u"critical"},
    {QStyle::SP_FileIcon, u"file"},
    {QStyle::SP_DirIcon, u"folder"},
    {QStyle::SP_DirClosedIcon, u"folder"},
    {QStyle::SP_DirOpenIcon, u"folder"},
    {QStyle::SP_DirHomeIcon, u"home"},
    {QStyle::SP_ComputerIcon, u"computer"},
    {QStyle::SP_DesktopIcon, u"computer"},
    {QStyle::SP_DriveHDIcon, u"drive"},
    {QStyle::SP_FileDialogBack, u"back"},
    {QStyle::SP_ArrowBack, u"back"},
    {QStyle::SP_ArrowForward, u"forward"},
    {QStyle::SP_FileDialogToParent, u"up"},
    {QStyle::SP_FileDialogNewFolder, u"newFolder"},
    {QStyle::SP_FileDialogListView, u"listView"},
    {QStyle::SP_FileDialogDetailedView, u"detailView"},
    {QStyle::SP_ArrowUp, u"up"},
    {QStyle::SP_ArrowDown, u"down"},
});

} // namespace

QIcon lineIcon(const QString &name) {
    return QIcon(new LineIconEngine(name));
}

std::optional<QIcon> lineIcon(QStyle::StandardPixmap standard) {
    const auto row = std::ranges::find(standardIcons, standard, &StandardIcon::standard);
    return row == standardIcons.end() ? std::nullopt : std::optional(lineIcon(row->name.toString()));
}

} // namespace widgets
