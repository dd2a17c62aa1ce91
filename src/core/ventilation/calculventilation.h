#pragma once

#include <QString>

namespace thermique {

class Classeur;
class Grid;

// Air renewal of the ventilated zone: the wind exposure of the building, the leakage of
// the envelope and the flows of the mechanical system.

// Exposure class of the building, 1 to 4 (Ex1 to Ex4), from the window height text, the
// region letter ("V" or "W"), the sheltered facades flag and the site letter (a to d).
// 0 when the table gives no class for that combination.
int ClasseExposition(const QString &hauteur, const QString &region, bool abrite, QChar site);

// Wind coefficients of the zone for a class (1 to 4) and the exposure of its facades, as
// the sheet shows them ("1.10", "1.15", "2"). Empty texts for an unknown class.
struct CoefficientsVent
{
    QString a;
    QString e;
    QString d;
};
CoefficientsVent CoefficientsExposition(int classe, bool uneSeuleFacade);

// Extra flow by leakage: P e / (1 + (d/e) (ecart/P)^2), where ecart is the mechanical
// flow less the extracted flow. 0 when P is not above 0 or e is 0.
double DebitSupplementaire(double e, double d, double ecart, double permeabilite);

// Leakage sums read from the heat-loss sheet: P before the floor term, the floor area and
// the extracted flows of the rooms.
struct PermeabiliteLocaux
{
    double permeabilite = 0;
    double surface = 0;
    double qi = 0;
};
PermeabiliteLocaux LirePermeabilite(const Grid &pertes);

// What the flow calculation needs from the sheet.
struct EntreesDebits
{
    bool logement = true;
    QString systeme; // row 2
    QString commande; // row 7
    double extraitMaxi = 0, extraitMini = 0; // rows 3, 4
    double soufleMaxi = 0, soufleMini = 0; // rows 5, 6
    double e = 0, d = 0;
    double permeabilite = 0; // P, the floor term included
    double qi = 0;
};

struct ResultatsDebits
{
    QString commande; // row 7 after the rule on equal flows
    double cd = 1;
    // For a dwelling the "maxi" fields hold QV, Qs and Q; the "mini" ones are unused.
    double qvMaxi = 0, qvMini = 0;
    double qsMaxi = 0, qsMini = 0;
    double a = 0, b = 0;
    double debitMaxi = 0, debitMini = 0;
};
ResultatsDebits CalculerDebits(const EntreesDebits &entrees);

// A and B by the first words of the system text; both 0 for an unknown system.
void CoefficientsMajorateurs(const QString &systeme, double &a, double &b);

// Recalculates the ventilation sheet from the administrative and heat-loss sheets. Resets
// the sheet when the exposure table has no class for the building.
void CalculVentilation(Classeur &classeur);

} // namespace thermique
