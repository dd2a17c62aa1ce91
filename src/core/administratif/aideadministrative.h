#pragma once

#include <QString>

namespace thermique {

class Grid;

// The help text of the administrative sheet for a pointer `y` twips below the top of the
// sheet (the rows scrolled out included), on the left or the right half of the sheet.
QString AideAdministrative(int y, bool droite);

// The y of the middle of a row, from the row heights of the sheet.
int MilieuLigne(const Grid &grille, int ligne);

} // namespace thermique
