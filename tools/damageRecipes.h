// Recipes for files with the damage that exchanges, editors and broken transfers cause. Each makes its file from
// undamaged records.
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
