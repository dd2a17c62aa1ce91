#include "formulairespertes.h"

#include "dialoguespertes.h"

namespace thermique::gui {

void InstallerFormulairesPertes(Formulaires &formulaires)
{
    formulaires[QStringLiteral("Frm_Calculb")] = [](Classeur &classeur, QWidget *parent) {
        DialogueCalculB d(classeur, parent);
        return d.exec() == QDialog::Accepted;
    };
    formulaires[QStringLiteral("Frm_RoseDesVents")] = [](Classeur &classeur, QWidget *parent) {
        DialogueRoseDesVents d(classeur, parent);
        return d.exec() == QDialog::Accepted;
    };
    formulaires[QStringLiteral("Frm_ChoixLigneCalorifuites")]
        = [](Classeur &classeur, QWidget *parent) {
              DialogueChoixLigne d(classeur, parent);
              return d.exec() == QDialog::Accepted;
          };
}

} // namespace thermique::gui
