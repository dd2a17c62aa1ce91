#pragma once

#include "fichiersclimat.h"

#include <QString>
#include <QVector>

#include <optional>

// The choice of the site on the administrative sheet: region and department (the weather
// folder), then the town, which fills the climate cells.
namespace thermique {

class Classeur;

// The notice that stands in the last climate line until the needs are computed.
QString NoticeDJU();

// The regions and departments offered by the weather-folder form.
QVector<RegionGeographique> RegionsMeteo(const Classeur &classeur);
// A department chosen in that form: the choice file is written. False when it cannot be.
bool ChoisirDepartementMeteo(Classeur &classeur, const QString &region, const QString &departement);
// After the form: the town list is read again from the chosen folder and the site's cells
// are blanked (rows 9 and 10 from column 10, rows 13, 14 and 16 from column 13).
void ApresChoixRegion(Classeur &classeur);

// The town `ville` of the weather folder in use fills the climate cells of sheet 0 and
// the study's base temperatures. Asks the distance to the sea in a coastal department.
void ChoixVille(Classeur &classeur, const QString &ville);

// The distance-to-the-sea form: the message for a refused entry, nothing when it is taken.
std::optional<QString> RefusDistanceMer(const QString &saisie);
// The distance taken: stored in row 9, column 0 of sheet 0.
void DefinirDistanceMer(Classeur &classeur, const QString &saisie);

} // namespace thermique
