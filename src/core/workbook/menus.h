#pragma once

#include <QString>
#include <QVector>

namespace thermique {

// The menu bar of the main window, in display order. A top-level menu has an empty parent;
// a separator has an empty name.
struct EntreeMenu
{
    const char *nom;
    const char *libelle;
    const char *parent;
    bool cochable = false;
};

const QVector<EntreeMenu> &TableMenus();

} // namespace thermique
