#pragma once

#include "formulaires.h"

namespace thermique::gui {

// Registers every dialog of the application under its form name.
void InstallerFormulaires(Formulaires &formulaires);

} // namespace thermique::gui
