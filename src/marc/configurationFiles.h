// The four text files in the program's own folder that carry what the program knows of the format in words. They are
// read afresh at each use. Each reader has its own rules, which differ on purpose.
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
inline constexpr std::array configurationFiles{fieldListFile, subfieldListFile, descriptionFile, templateFile};

// The lines of a pick list, and the text of the box that comes up in its stead.
struct PickList {
    QStringList lines;
    QString complaint; // the whole text of the box; empty when the list can be shown
};

// The fields on offer. `folder` ends in a separator.
PickList readFieldList(const QString &folder);
// The subfields of the field `tag`.
PickList readSubfieldList(const QString &folder, const QString &tag);

// Fills fieldLabel and subfieldLabel of all rows but the leader's. The text of the box where the file is missing, else
// empty.
QString fillDescriptions(FieldRows &rows, const QString &folder);

// "配置文件【" + folder + file + ending
QString configurationComplaint(const QString &folder, QStringView file, QStringView ending);

} // namespace marc
