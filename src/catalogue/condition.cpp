#include "catalogue/condition.h"

using namespace Qt::StringLiterals;

namespace catalogue {

QString conditionLine(const Condition &condition) {
    return condition.isEmpty() ? u"全部记录，未加条件"_s : QString(u"条件：" + condition.words);
}

} // namespace catalogue
