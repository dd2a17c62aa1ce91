#pragma once

#include <QString>
#include <QVector>

#include <optional>

// The thermal formulas of a wall block, on plain numbers: the grid code reads the cells,
// calls these, and writes the results back as text.
namespace thermique {

// π as the wall formulas take it, so that figures match the printed studies.
constexpr double PiParois = 3.1416;

// ---- Plain wall ----------------------------------------------------------------------------

// U of a wall from its total resistance (surface resistances included); nullopt when the
// total is 0, which leaves the result cells as they are.
std::optional<double> CoefficientU(double sommeR);

// Tint factor k of the solar factor: "Clair" 0.1, "Moyen" 0.5, "Sombre" 0.7, "Noir" 0.9;
// an absorption code typed as a number ("0.80") is its own factor. nullopt for no tint.
std::optional<double> FacteurTeinte(const QString &teinte);
// S = U·k/7.6923.
double FacteurSolaire(double u, double k);

// ---- Phase shift ---------------------------------------------------------------------------

// A layer as the phase shift reads it: the hidden component text "ρ£c£μ£", d and λ.
struct CoucheDephasage
{
    QString composant;
    double epaisseur = 0;
    double conductivite = 0;
};

// Density of a component text: "1200 à 1400" counts as 1300.
double MasseVolumiqueComposant(const QString &texte);
// Phase shift in minutes, nullopt when a layer has no usable component text.
std::optional<double> DephasageMinutes(const QVector<CoucheDephasage> &couches);
// "Déphasage thermique de la paroi : " then " j ", " h ", " mn" parts, or
// "Non déterminé.".
QString TexteDephasage(std::optional<double> minutes);

// ---- Walls and floors against the ground ---------------------------------------------------

// Wall against the ground: soil λ 2, z the mean depth, r the wall's total resistance.
// nullopt when z or r is not above 0.
std::optional<double> UParoiEnterree(double z, double resistanceTotale);

// Characteristic dimension B' = A/(P/2); nullopt when P is not above 0.
std::optional<double> DimensionCaracteristique(double aire, double perimetre);
// Equivalent thickness dt = w + λs·Rt.
double EpaisseurEquivalente(double epaisseurMur, double lambdaSol, double rTotale);
// U0 of the floor: the first formula when dt < B', the second otherwise. nullopt when the
// figures have no physical meaning (dt or B' not above 0).
std::optional<double> UPlancherBase(double bPrime, double dt, double lambdaSol);
// Linear coefficient of a horizontal (width D) or vertical (depth D) edge insulation of
// equivalent thickness d'. 0 when D is 0; nullopt when dt + d' is not above 0.
std::optional<double> PsiIsolationPeripherique(double lambdaSol, double dt, double dPrime, double d,
                                               bool verticale);

// ---- Surface resistance --------------------------------------------------------------------

// hr0 = 4·σ·(Tm + 273.15)³.
double CoefficientRayonnementNoir(double temperatureMoyenne);
// Exterior face: hc = 4 + 4·v.
double CoefficientConvectionExterieur(double vitesseVent);
// R = 1/(hc + hr); nullopt when hc + hr is not above 0.
std::optional<double> ResistanceSuperficielle(double hc, double hr);

// ---- Air layer -----------------------------------------------------------------------------

enum class VentilationLame { NonVentilee, FaiblementVentilee, FortementVentilee };
enum class FluxLame { Haut, Horizontal, Bas };

// Resistance of an air layer of thickness x (m). nullopt when x is out of (0, 0.301) or
// the layer is strongly ventilated (it then counts for nothing).
std::optional<double> ResistanceLameAir(double x, VentilationLame ventilation, FluxLame flux);

} // namespace thermique
