#include "formulairesadministratif.h"

#include "dialogueidentite.h"
#include "dialoguelistepieces.h"

namespace thermique::gui {

void InstallerFormulairesAdministratif(Formulaires &formulaires)
{
    formulaires[QStringLiteral("Frm_Identité")] = [](Classeur &classeur, QWidget *parent) {
        DialogueIdentite d(classeur, parent);
        return d.exec() == QDialog::Accepted;
    };
    formulaires[QStringLiteral("Frm_ListePièces")] = [](Classeur &classeur, QWidget *parent) {
        DialogueListePieces d(classeur, parent);
        d.exec();
        return true;
    };
}

} // namespace thermique::gui
