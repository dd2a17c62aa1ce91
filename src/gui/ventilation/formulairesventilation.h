#pragma once

#include "workbook/formulaires.h"

namespace thermique::gui {

// "Frm_Ventilation" and "Frm_RendementEchangeurDoubleFlux".
void InstallerFormulairesVentilation(Formulaires &formulaires);

} // namespace thermique::gui
