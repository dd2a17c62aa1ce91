#include "envelope/formulairesenveloppe.h"

#include "envelope/coefu/feuillecoefu.h"
#include "envelope/formulairespontsfenetres.h"
#include "workbook/classeur.h"

namespace thermique::gui {

bool OuvrirBibliotheque(Classeur &classeur, QWidget *parent);

namespace {

// The sheet's block editor; a workbook without the Coef-U rules gets a plain context.
template<typename F> bool surFeuille(Classeur &classeur, F &&action)
{
    auto *coefU = dynamic_cast<FeuilleCoefU *>(&classeur.feuille(1));
    if (!coefU)
        return false;
    ContexteParois ctx = coefU->contexte(classeur);
    const bool change = action(ctx, classeur.etat().LigneCourante);
    if (change) {
        classeur.marquerModifiee();
        classeur.vue().grillesModifiees = true;
    }
    return change;
}

} // namespace

void InstallerFormulairesEnveloppe(Formulaires &formulaires)
{
    formulaires[QStringLiteral("frm_Composants")] = [](Classeur &classeur, QWidget *parent) {
        const QString dossier = classeur.dossier().fichier(QStringLiteral("Composants"));
        return surFeuille(classeur, [&](ContexteParois &ctx, int ligne) {
            return OuvrirComposants(ctx, ligne, dossier, parent);
        });
    };
    formulaires[QStringLiteral("Frm_LameAirRésistance")] = [](Classeur &classeur, QWidget *parent) {
        return surFeuille(classeur, [&](ContexteParois &ctx, int ligne) {
            return OuvrirLameAir(ctx, ligne, parent);
        });
    };
    formulaires[QStringLiteral("Frm_RésistanceSuperficielle")]
        = [](Classeur &classeur, QWidget *parent) {
              return surFeuille(classeur, [&](ContexteParois &ctx, int ligne) {
                  return OuvrirResistanceSuperficielle(ctx, ligne, parent);
              });
          };
    formulaires[QStringLiteral("Frm_EmissivitéCorpsGris")] = [](Classeur &, QWidget *parent) {
        OuvrirEmissivite(parent);
        return true;
    };
    formulaires[QStringLiteral("Frm_Coefficient_U_Calcul")]
        = [](Classeur &classeur, QWidget *parent) {
              return OuvrirBibliotheque(classeur, parent);
          };
    InstallerFormulairesPontsFenetres(formulaires);
}

} // namespace thermique::gui
