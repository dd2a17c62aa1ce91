#include "formulairesventilation.h"

#include "dialoguerendementechangeur.h"
#include "dialogueventilation.h"

#include "workbook/classeur.h"

namespace thermique::gui {

void InstallerFormulairesVentilation(Formulaires &formulaires)
{
    formulaires[QStringLiteral("Frm_Ventilation")] = [](Classeur &classeur, QWidget *parent) {
        DialogueVentilation d(classeur.dossier(), parent);
        d.exec();
        return true;
    };
    formulaires[QStringLiteral("Frm_RendementEchangeurDoubleFlux")]
        = [](Classeur &classeur, QWidget *parent) {
              DialogueRendementEchangeur d(classeur, parent);
              d.exec();
              return true;
          };
}

} // namespace thermique::gui
