#include "assist/windows/frmHelpLR100.h"
#include "assist/field100Table.h"
#include <optional>

using namespace Qt::StringLiterals;

namespace assist {

frmHelpLR100::frmHelpLR100(platform::Host &host, QWidget *parent)
    : CodedBoxWindow(host, field100Table(),
                     {u"frmHelpLR100"_s, u"100字段辅助录入"_s, u"通用处理数据格式"_s, u"通用处理数据"_s, false},
                     parent) {}

std::optional<QString> frmHelpLR100::edit(platform::Host &host, QWidget *parent, const QString &incoming) {
    frmHelpLR100 window(host, parent);
    window.public100ZD = incoming;
    window.exec();
    return window.confirmed;
}

} // namespace assist
