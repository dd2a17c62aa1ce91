#pragma once

#include "workbook/feuille.h"

#include <QString>

namespace thermique {

class Grid;

// The sums that the Coef-Ubat pass gives to the rest of the workbook.
struct BilanUbat
{
    double sommeJour = 0; // Σ day conductances (W/K)
    double sommeNuit = 0; // Σ night conductances (W/K)
    double surfaceParois = 0; // Σ net surfaces (m²)
    double longueurPonts = 0; // Σ bridge lengths (m)
    double sommePonts = 0; // Σ bridge conductances (W/K)
    double ubat = 0; // W/(m².K); 0 when there is no surface
    double surfaceTotale = 0; // floor area of every room
    double volumeTotal = 0;
    double surfaceChauffee = 0; // rooms whose air temperature is above 12 °C
    double volumeChauffe = 0;
    double pertesTotales = 0; // W, the rooms' results
    double pertesChauffees = 0;
    double surfaceA1 = 0;
    double g = 0; // W/(m³.K), normal ventilation by day
    int lignes = 0; // distinct envelope lines
};

// The recovery-weighted factor of the extract flows: Σ(Qi·(100 − rec)/100) / ΣQi, 1 with no
// flow.
double FacteurRecuperation(const Grid &pertes);

// The two figures of a ventilation flow cell: the one after "Maxi : " (else the cell's
// number) and the one after "Mini : " (else the same).
struct DebitsVentilation
{
    double maxi = 0;
    double mini = 0;
};
DebitsVentilation LireDebits(const QString &cellule);

// Rebuilds the Coef-Ubat sheet from the heat-loss sheet and writes the summary of the
// administrative sheet.
BilanUbat FeuilleCalculUbat(Classeur &classeur);

class FeuilleCoefUbat : public Feuille
{
public:
    void construire(Classeur &classeur) override;
    void entrer(Classeur &classeur) override;
    void recalculerFeuille(Classeur &classeur) override;
};

} // namespace thermique
