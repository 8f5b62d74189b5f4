#include "catalogue/windows/workingFrm.h"
#include "widgets/layout.h"
#include "widgets/oneSize.h"

using namespace Qt::StringLiterals;

namespace catalogue {

WorkingFrm::WorkingFrm(QWidget *parent)
    : Window(u"WorkingFrm"_s, u"提示"_s, parent)
    , Label1(widgets::named(new QLabel(u"操作进行中。。。请稍候"_s, this), u"Label1"_s)) {
    widgets::keepOneSize(this);
    setLayout(widgets::column({Label1}));
    setWindowFlag(Qt::WindowStaysOnTopHint);
    setCursor(Qt::WaitCursor);
    connect(this, &Window::unloaded, this, &WorkingFrm::unsetCursor);
}

} // namespace catalogue
