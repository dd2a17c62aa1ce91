#pragma once

#include "workbook/formulaires.h"

namespace thermique::gui {

// "frm_Météo", "Frm_DistanceMer" and "Frm_MétéoDonnées".
void InstallerFormulairesClimat(Formulaires &formulaires);

} // namespace thermique::gui
