#pragma once

#include "workbook/formulaires.h"

namespace thermique::gui {

// "Frm_Identité" and "Frm_ListePièces".
void InstallerFormulairesAdministratif(Formulaires &formulaires);

} // namespace thermique::gui
