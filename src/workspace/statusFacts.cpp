#include "workspace/statusFacts.h"

using namespace Qt::StringLiterals;

namespace workspace {

namespace {

QString editing(const StatusFacts &facts) {
    if (!facts.column)
        return {};
    QString text = u"第 %1 位"_s.arg(*facts.column);
    if (facts.columns)
        text += u"/%1"_s.arg(*facts.columns);
    return facts.assistant ? QString(text + u"　Ctrl+E 辅助录入") : text;
}

QString ofTheFile(const StatusFacts &facts) {
    QStringList said;
    if (facts.readToTheEnd && facts.file.terminators != facts.read && facts.file.lines > 0)
        said.append(u"文件有 %1 个记录结束符，读出 %2 条"_s.arg(facts.file.terminators).arg(facts.read));
    if (facts.file.looksLikeUtf8)
        said.append(u"文件像是 UTF-8 编码"_s);
    if (!facts.readToTheEnd && facts.read > 0 && facts.file.lines > facts.read)
        said.append(u"只读出 %1/%2 条，导入只含已读出的"_s.arg(facts.read).arg(facts.file.lines));
    return said.join(u"；");
}

QString ofTheImport(const StatusFacts &facts) {
    if (!facts.imported)
        return {};
    QString text = u"本次已导入 %1 条"_s.arg(facts.imported->wentIn);
    if (facts.imported->leftOut > 0)
        text += u"，跳过 %1 条"_s.arg(facts.imported->leftOut);
    if (facts.imported->refused > 0)
        text += u"，未成功 %1 条"_s.arg(facts.imported->refused);
    return facts.imported->leftOut + facts.imported->refused > 0 ? QString(text + u"，F8 列出") : text;
}

} // namespace

QString statusLine(const StatusFacts &facts) {
    QStringList said{facts.warning.isEmpty() ? QString() : QString(u"⚠ " + facts.warning),
                     editing(facts),
                     facts.draftFault.isEmpty() ? QString() : QString(u"⚠ " + facts.draftFault),
                     facts.databaseTrouble.isEmpty() ? QString()
                                                     : QString(u"⚠ " + facts.databaseTrouble + u"，不能导入"),
                     facts.remark,
                     ofTheImport(facts),
                     facts.deed,
                     facts.deed.contains(facts.rowRemark) ? QString() : facts.rowRemark,
                     facts.fieldsCameOrWent ? u"⚠ 本条增删了字段，离开时不会询问：请改动一处内容"_s : QString(),
                     ofTheFile(facts),
                     facts.changed > 0 ? u"已改 %1 条，未导入"_s.arg(facts.changed) : QString()};
    said.removeAll(QString());
    return said.join(statusSeparator);
}

} // namespace workspace
