// The filters of all file dialogs (see FileDialog::filter).
#pragma once

#include <QStringView>

namespace platform::filters {

inline constexpr QStringView records = u"cnmarc_file(*.iso)|*.iso|text_file(*.txt)|*.txt|all_files(*.*)|*.*";
inline constexpr QStringView tidying =
    u"cnmarc_file(*.iso)|*.iso|xml_file(*.xml)|*.xml|text_file(*.txt)|*.txt|all_files(*.*)|*.*";
inline constexpr QStringView storeRecords = u"cnmarc_file(*.iso)|*.iso|all_files(*.*)|*.*";
inline constexpr QStringView exportedRecords = u"cnmarc_file(*.iso)|*.iso|all files(*.*)|*.*"; // with a blank
inline constexpr QStringView refusedRecords = u"机读目录文件(*.iso)|*.iso|所有文件(*.*)|*.*";
inline constexpr QStringView remarks = u"文本表格(*.tsv)|*.tsv|所有文件(*.*)|*.*";
inline constexpr QStringView schemas = u"机读格式的模式(*.json)|*.json|所有文件(*.*)|*.*";
inline constexpr QStringView reportPages = u"PDF 文件(*.pdf)|*.pdf|所有文件(*.*)|*.*";
inline constexpr QStringView webPages = u"网页(*.html)|*.html|所有文件(*.*)|*.*";
inline constexpr QStringView spreadsheets = u"电子表格(*.csv)|*.csv|所有文件(*.*)|*.*";
inline constexpr QStringView tasks = u"任务(*.json)|*.json|所有文件(*.*)|*.*";
inline constexpr QStringView targets = u"目标(*.json)|*.json|所有文件(*.*)|*.*";
inline constexpr QStringView isbns = u"文本或表格(*.txt;*.csv)|*.txt *.csv|所有文件(*.*)|*.*";

} // namespace platform::filters
