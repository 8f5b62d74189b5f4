// Recipes for damaged files, each made from undamaged records: what files from exchanges, editors and broken transfers
// look like.
#pragma once

#include <QByteArray>
#include <QList>
#include <QStringView>
#include <span>

namespace tools {

struct DamageRecipe {
    QStringView fileName;                                 // in the folder of the samples
    QByteArray (*make)(const QList<QByteArray> &records); // undamaged records, at least five
    QStringView what;
};

std::span<const DamageRecipe> damageRecipes();

} // namespace tools
