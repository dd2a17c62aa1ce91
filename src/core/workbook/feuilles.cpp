#include "feuilles.h"

#include "administratif/feuilleadministrative.h"
#include "classeur.h"
#include "envelope/bridges/feuillepontsthermiques.h"
#include "envelope/coefu/feuillecoefu.h"
#include "envelope/windows/calculfenetre.h"
#include "heatloss/feuillepertes.h"
#include "heatloss/ubat.h"
#include "ventilation/feuilleventilation.h"

namespace thermique {

void InstallerFeuilles(Classeur &classeur)
{
    // Sheets register here as they are built, one line each.
    classeur.installerFeuille(0, std::make_unique<FeuilleAdministrative>());
    classeur.installerFeuille(1, std::make_unique<FeuilleCoefU>());
    dynamic_cast<FeuilleCoefU &>(classeur.feuille(1)).fenetres = ExtensionMenuiseries();
    classeur.installerFeuille(2, std::make_unique<FeuillePontsThermiques>());
    classeur.installerFeuille(3, std::make_unique<FeuilleVentilation>());
    classeur.installerFeuille(4, std::make_unique<FeuillePertes>());
    classeur.installerFeuille(5, std::make_unique<FeuilleCoefUbat>());
}

} // namespace thermique
