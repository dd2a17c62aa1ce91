#pragma once

#include <QString>
#include <QVector>

#include <optional>

// The formulas of the heat-loss sheet on plain numbers: the sheet reads its cells, calls
// these and writes the results back as text.
namespace thermique {

// ---- Inclination correction of a wall's inner surface resistance ----------------------------

// Rα = 0.17 − 0.0005·α + 6.17284e-07·α²; an inclination of 0 counts as 1°.
double CorrectionInclinaison(double inclinaison);
// U with its inner resistance r2 replaced by Rα: 1/((1/u − r2) + Rα). nullopt when u is not
// above 0 or the result is not a positive number (a window that cannot exist).
std::optional<double> UCorrige(double u, double r2, double rAlpha);

// ---- Air temperature from the resultant temperature -----------------------------------------

// One wall, floor, ceiling or window line of a room, as the air temperature sees it.
struct SurfaceLocal
{
    QString code; // A1 .. A7; other lines are skipped
    double surface = 0;
    double b = 1;
    double u = 0;
};

// Inner surface resistance of a line code, nullopt for a code that is not A1 .. A7.
std::optional<double> ResistanceInterieure(const QString &code);
// Emitter constant c of θa = 2·θrs − θm + c − k; nullopt for an unknown emitter.
std::optional<double> ConstanteEmetteur(const QString &emetteur);

// θa of a room, bounded to [θrs, 1.25·θrs]. nullopt when the room keeps its θa (no floor area
// or volume, or a volume not above the area).
std::optional<double> CalculTempératureAir(double trs, double te, double aire, double volume,
                                           const QString &emetteur,
                                           const QVector<SurfaceLocal> &surfaces);

// ---- Losses ---------------------------------------------------------------------------------

// A line's loss: surface (or length) · U · ΔT · b.
inline double PerteLigne(double quantite, double u, double deltaT, double b)
{
    return quantite * u * deltaT * b;
}

// What the air-renewal line reads from the ventilation sheet.
struct DonneesVentilation
{
    double debitZone = 0; // row 25 (maximum)
    double permeabilite = 0; // row 21, P of the building
    double permeabiliteM2 = 0; // row 19, Po per m² of floor
    double debitBase = 0; // row 5
};

// A ventilation cell of one value or of the "Maxi : a ; Mini : b" form.
struct ValeursVentilation
{
    double maxi = 0;
    double mini = 0;
};
ValeursVentilation LireValeursVentilation(const QString &cellule);

// Room flow Qv from the leakage sum L of the room and its own extraction Qi.
double DebitLocal(const DonneesVentilation &v, double fuites, double qi);
// Loss of the air-renewal line: the flow above Qi at full ΔT, Qi less its recovery.
double PerteRenouvellementAir(double qv, double qi, double chaleurVolumique, double b,
                              double deltaT, double recuperation);

// ---- Volume and height supplement -----------------------------------------------------------

// The volume as the results row shows it: "### ##0.00" below 1000, else "### ### ##0".
QString TexteVolume(double volume);

// Factor of the height supplement for an emitter, nullopt when the height is not above 5 m.
// An unknown emitter gets no supplement (0).
std::optional<double> FacteurSupplement(const QString &emetteur, double hauteur);

} // namespace thermique
