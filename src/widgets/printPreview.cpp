#include "widgets/printPreview.h"
#include "platform/desktop/screenSize.h"
#include "widgets/layout.h"
#include "widgets/lineIcon.h"
#include <QAction>
#include <QComboBox>
#include <QCoreApplication>
#include <QGraphicsView>
#include <QLineEdit>
#include <QMainWindow>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
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

void nameControls(const QPrintPreviewDialog &preview) {
    for (auto *box : preview.findChildren<QComboBox *>())
        nameForReader(box, u"显示比例"_s);
    for (auto *box : preview.findChildren<QLineEdit *>())
        box->setAccessibleName(qobject_cast<QComboBox *>(box->parentWidget()) ? u"显示比例"_s : u"页码"_s);
    for (auto *page : preview.findChildren<QPrintPreviewWidget *>())
        page->setAccessibleName(u"打印预览"_s);
    for (auto *page : preview.findChildren<QGraphicsView *>())
        page->setAccessibleName(u"打印预览"_s);
}

// If the screen is too narrow for all tools, those after the fields get a second bar.
void foldTools(const QPrintPreviewDialog &preview) {
    auto *bar = preview.findChild<QToolBar *>();
    auto *window = bar ? qobject_cast<QMainWindow *>(bar->parentWidget()) : nullptr;
    if (!window || bar->sizeHint().width() <= platform::usableScreenSize(&preview).width())
        return;
    auto *second = new QToolBar(bar->windowTitle());
    second->setMovable(bar->isMovable());
    const QList<QAction *> tools = bar->actions();
    for (QAction *tool : tools.mid(tools.size() / 2)) {
        bar->removeAction(tool);
        second->addAction(tool);
    }
    window->addToolBarBreak();
    window->addToolBar(second);
}

} // namespace

QPrintPreviewDialog *newPrintPreview(QPrinter &printer, QWidget *parent) {
    auto *preview = new QPrintPreviewDialog(&printer, parent);
    dressTools(*preview);
    nameControls(*preview);
    foldTools(*preview);
    const QString printing = QCoreApplication::translate("QPrintPreviewDialog", "Print");
    for (QAction *action : preview->findChildren<QAction *>())
        if (action->text() == printing)
            action->setShortcut(QKeySequence::Print);
    return preview;
}

} // namespace widgets
