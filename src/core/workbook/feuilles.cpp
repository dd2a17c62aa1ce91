#include "feuilles.h"

#include "classeur.h"

namespace thermique {

void InstallerFeuilles(Classeur &classeur)
{
    // Sheets register here as they are built, one line each.
    (void)classeur;
}

} // namespace thermique
