#pragma once

#include <QString>

#include <array>

// The surface-resistance and air-layer calculators: the state of their forms as text
// fields, the calculation that refreshes the fields, and "Valider" on a block row.
namespace thermique {

struct ContexteParois;

struct FormulaireResistanceSuperficielle
{
    // "Calcul d'une résistance superficielle de face intérieure :" or "... extérieure :".
    QString titre;
    bool exterieure = false;
    QString temperatureMoyenne; // Tm
    QString hr0;
    QString emissivite;
    QString hr;
    QString vitesseVent; // exterior face only
    QString hc;
    QString resistance;
};

// Start values by the label of the row (column 6).
FormulaireResistanceSuperficielle ValeursDepartResistance(const QString &libelle);
// Recomputes hr0, hr, (exterior) hc and R from the fields; an interior face keeps its hc.
void CalculerResistanceSuperficielle(FormulaireResistanceSuperficielle &f);
// Writes R in columns 9 and 10 of the row and recomputes the block.
void ValiderResistanceSuperficielle(ContexteParois &ctx, int ligne,
                                    const FormulaireResistanceSuperficielle &f);

struct FormulaireLameAir
{
    // 0 not ventilated, 1 weakly, 2 strongly.
    int option = 0;
    QString epaisseur;
    // Resistances for a heat flow up, horizontal and down.
    std::array<QString, 3> resistances;
};

// Recomputes the three resistances when the thickness is in (0, 0.301); out of range the
// fields keep their values; a strongly ventilated layer gives blanks.
void CalculerLameAir(FormulaireLameAir &f);
// Index in `resistances` used for the block's code (A1 horizontal, A4 down, A2/A3 up).
int FluxPourCode(const QString &code);
// The code of the block holding `ligne`: the closest row at or above with a code.
QString CodeBloc(const ContexteParois &ctx, int ligne);
// Writes the air layer on the row (label, d, R and for the first two options λ = d/R) and
// recomputes the block.
void ValiderLameAir(ContexteParois &ctx, int ligne, const FormulaireLameAir &f);

} // namespace thermique
