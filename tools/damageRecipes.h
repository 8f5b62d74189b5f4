// Files that are not as they should be, each made from whole records by one recipe: what real files from exchanges,
// editors and broken transfers look like.
#pragma once

#include <QByteArray>
#include <QList>
#include <QStringView>
#include <span>

namespace tools {

struct DamageRecipe {
    QStringView fileName;
    QByteArray (*make)(const QList<QByteArray> &records); // whole records, five at least
    QStringView what;
};

std::span<const DamageRecipe> damageRecipes();

} // namespace tools
