#pragma once

#include <QString>

// The winter base temperature of a site: the department's sea-level value, its coastal
// corrections, the altitude table, and the thermal reference letter of the town.
namespace thermique {

// The departments on the sea: the distance to the coast is asked there, and only there
// can a building stand "en bord de mer".
bool EstDepartementCotier(int departement);

// The base temperature T0 after the coastal rules, for a site `distanceKm` from the sea.
// Below 25 km a first set of departments is corrected, below 3 km a second one; the
// second rule wins where both apply. Other departments keep T0.
double TemperatureBaseDistanceMer(int departement, double distanceKm, double t0);

// The site's base temperature from the sea-level one, T0, and the altitude in metres.
// T0 = -2 follows its own steps, T0 = 0 stays 0, T0 from -4 to -15 is read from the
// altitude table (by hundreds of metres, from 200 m to 3100 m); any other T0 is kept.
double TempératureBaseAltitude(double altitude, double t0);

// "W" or "V", the thermal reference letter of a town of department `departement`.
QString LettreReferenceThermique(int departement, double altitude, const QString &ville);

} // namespace thermique
