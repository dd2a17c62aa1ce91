#pragma once

namespace thermique {

class Classeur;

// Installs the rules of every sheet built so far in a controller: the application, the
// batch tool and the tests use the same workbook.
void InstallerFeuilles(Classeur &classeur);

} // namespace thermique
