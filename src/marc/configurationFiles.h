// The files in the program's own folder that describe the format. Four of them are lists of lines, read again at each
// use; their readers intentionally follow different rules. The fifth is the schema (see schema/).
#pragma once

#include "marc/fieldRows.h"
#include <QString>
#include <QStringList>
#include <array>

namespace marc {

inline constexpr QStringView fieldListFile = u"cnmarc_default.Qvs";
inline constexpr QStringView subfieldListFile = u"cnmarc_zzdtshi.Qvs";
inline constexpr QStringView descriptionFile = u"marcBJshuoming.Qvs";
inline constexpr QStringView templateFile = u"mobanJiaoDui.QVs";
inline constexpr QStringView schemaFile = u"cnmarc-schema.json"; // the schema of the records
inline constexpr std::array configurationFiles{fieldListFile, subfieldListFile, descriptionFile, templateFile,
                                               schemaFile};

// The lines of a pick list, or the text of the box to show instead.
struct PickList {
    QStringList lines;
    QString complaint; // the whole text of the box; empty if the list can be shown
};

// Reads the fields that can be chosen. `folder` ends with a separator.
PickList readFieldList(const QString &folder);
// Reads the subfields of the field `tag`.
PickList readSubfieldList(const QString &folder, const QString &tag);

// Fills fieldLabel and subfieldLabel of all rows except the leader's. Returns the text of the box if the file is
// missing, else an empty string.
QString fillDescriptions(FieldRows &rows, const QString &folder);

// Returns "配置文件【" + folder + file + ending.
QString configurationComplaint(const QString &folder, QStringView file, QStringView ending);

} // namespace marc
