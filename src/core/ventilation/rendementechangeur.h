#pragma once

#include <QString>

namespace thermique {

class Classeur;
class Grid;

// Efficiency of the heat exchanger of a double-flow system, kept on a row of the heat-loss
// sheet as "R(%) = " and the percentage in columns 14 and 15.

// The percentage offered by the form: the digits after "R(%) = " in `texte`, else "75".
QString RendementEchangeurInitial(const QString &texte);

// The form's closing on `ligne` of the heat-loss grid: a percentage from 0 to 100 is
// written as "R(%) = " and the value, anything else (nothing typed included) writes "  ".
// Returns true when a value was written.
bool AppliquerRendementEchangeur(Grid &pertes, int ligne, const QString &saisie);

// The same on the current row of the heat-loss sheet, marking the study changed.
bool AppliquerRendementEchangeur(Classeur &classeur, const QString &saisie);

} // namespace thermique
