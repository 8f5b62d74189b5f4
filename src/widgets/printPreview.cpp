#include "widgets/printPreview.h"
#include "widgets/lineIcon.h"
#include <QAction>
#include <QCoreApplication>
#include <QPrintPreviewDialog>
#include <QToolBar>
#include <array>

using namespace Qt::StringLiterals;

namespace widgets {

namespace {

// In the order of the tool bar of Qt's own preview.
constexpr auto toolIcons =
    std::to_array<QStringView>({u"zoom-fit-width", u"zoom-fit-page", u"zoom-out", u"zoom-in", u"layout-portrait",
                                u"layout-landscape", u"go-first", u"go-previous", u"go-next", u"go-last",
                                u"view-page-one", u"view-page-sided", u"view-page-multi", u"page-setup", u"printer"});

// Gives the tools of the preview the icons of the program.
void dressTools(const QPrintPreviewDialog &preview) {
    const auto *bar = preview.findChild<QToolBar *>();
    auto icon = toolIcons.begin();
    for (QAction *tool : bar ? bar->actions() : QList<QAction *>())
        if (!tool->icon().isNull() && icon != toolIcons.end())
            tool->setIcon(lineIcon((icon++)->toString()));
}

} // namespace

QPrintPreviewDialog *newPrintPreview(QPrinter &printer, QWidget *parent) {
    auto *preview = new QPrintPreviewDialog(&printer, parent);
    dressTools(*preview);
    const QString printing = QCoreApplication::translate("QPrintPreviewDialog", "Print");
    for (QAction *action : preview->findChildren<QAction *>())
        if (action->text() == printing)
            action->setShortcut(QKeySequence::Print);
    return preview;
}

} // namespace widgets
