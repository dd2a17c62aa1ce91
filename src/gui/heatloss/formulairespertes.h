#pragma once

#include "workbook/formulaires.h"

namespace thermique::gui {

// "Frm_Calculb", "Frm_RoseDesVents" and "Frm_ChoixLigneCalorifuites".
void InstallerFormulairesPertes(Formulaires &formulaires);

} // namespace thermique::gui
