// The forms in which a file can be saved after tidying, in the order in which the window offers them.
#pragma once

#include "tidy/recordForms.h"
#include <array>

namespace tidy {

struct FormRow {
    TargetForm form;
    QStringView caption;
    QStringView ending; // end of a suggested name
};

inline constexpr auto targetForms = std::to_array<FormRow>({
    {TargetForm::GbkIso, u"GBK，一行一条（本程序使用）", u"-gbk.iso"},
    {TargetForm::Utf8Iso, u"UTF-8，ISO 2709（无行结束符）", u"-utf8.iso"},
    {TargetForm::MarcXml, u"MARCXML（UTF-8）", u"-marc.xml"},
});

// Returns a name in the folder of the source. Empty if the source has no file name.
QString suggestedTarget(const QString &source, const FormRow &form);

} // namespace tidy
