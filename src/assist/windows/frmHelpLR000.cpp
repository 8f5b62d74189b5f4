#include "assist/windows/frmHelpLR000.h"
#include "assist/leaderTable.h"
#include <optional>

using namespace Qt::StringLiterals;

namespace assist {

frmHelpLR000::frmHelpLR000(platform::Host &host, QWidget *parent)
    : CodedBoxWindow(host, leaderTable(),
                     {u"frmHelpLR000"_s, u"头标区辅助录入"_s, u"头标区格式"_s, u"记录头标区"_s, true}, parent) {}

std::optional<QString> frmHelpLR000::edit(platform::Host &host, QWidget *parent, const QString &incoming) {
    frmHelpLR000 window(host, parent);
    window.publicTouBiao = incoming;
    window.exec();
    return window.confirmed;
}

} // namespace assist
