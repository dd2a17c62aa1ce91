#include "formulairesclimat.h"

#include "dialoguedistancemer.h"
#include "dialoguemeteo.h"
#include "dialoguemeteodonnees.h"

namespace thermique::gui {

void InstallerFormulairesClimat(Formulaires &formulaires)
{
    formulaires[QStringLiteral("frm_Météo")] = [](Classeur &classeur, QWidget *parent) {
        DialogueMeteo d(classeur, parent);
        return d.exec() == QDialog::Accepted;
    };
    formulaires[QStringLiteral("Frm_DistanceMer")] = [](Classeur &classeur, QWidget *parent) {
        DialogueDistanceMer d(classeur, parent);
        return d.exec() == QDialog::Accepted;
    };
    formulaires[QStringLiteral("Frm_MétéoDonnées")] = [](Classeur &classeur, QWidget *parent) {
        auto donnees = MeteoDonnees::Ouvrir(classeur);
        // No site: nothing to show.
        if (!donnees)
            return false;
        DialogueMeteoDonnees d(std::move(*donnees), parent);
        d.exec();
        return true;
    };
}

} // namespace thermique::gui
