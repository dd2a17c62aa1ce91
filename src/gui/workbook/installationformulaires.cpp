#include "installationformulaires.h"

#include "administratif/formulairesadministratif.h"
#include "climate/formulairesclimat.h"
#include "dialoguerecuperation.h"
#include "envelope/formulairesenveloppe.h"
#include "heatloss/formulairespertes.h"
#include "ventilation/formulairesventilation.h"

namespace thermique::gui {

void InstallerFormulaires(Formulaires &formulaires)
{
    formulaires[QStringLiteral("Frm_Récupération")] = [](Classeur &classeur, QWidget *parent) {
        DialogueRecuperation dialogue(classeur, parent);
        return dialogue.exec() == QDialog::Accepted;
    };
    InstallerFormulairesAdministratif(formulaires);
    InstallerFormulairesClimat(formulaires);
    InstallerFormulairesEnveloppe(formulaires);
    InstallerFormulairesPertes(formulaires);
    InstallerFormulairesVentilation(formulaires);
}

} // namespace thermique::gui
