#pragma once

#include "workbook/grid.h"

// The calculations of the heat-loss sheet on its grid: one line, one room, the volume, the
// building total. They read the Coef-U and ventilation sheets and never talk to the user.
namespace thermique {

struct ContexteCalculPertes
{
    Grid &pertes;
    const Grid &parois; // the Coef-U sheet
    const Grid &ventilation; // the ventilation sheet (column 12)
    qint32 couleurVerrouillee = 0;
    // In the simplified mode θa and the air line keep what the user typed.
    bool simplifie = false;
};

// The inclination correction of the line's U from its wall on Coef-U (walls and floors
// A1 to A4, and windows A6, A7 with b at "1.00"); a missing key leaves the U as it is.
void CorrigerULigne(ContexteCalculPertes &ctx, int ligne);
// A commit on a calculation line: its U, then its whole room.
void CalculLignePertes(ContexteCalculPertes &ctx, int ligne);
// θa of the room whose head is `tete` (kept when the room has no area or volume).
void CalculTempératureAir(ContexteCalculPertes &ctx, int tete);
// Volume of a results row from its area and height.
void CalculVolume(ContexteCalculPertes &ctx, int resultats);
// θa, every line, the air line, the height supplement and the room total of the table
// holding `ligne`. Nothing for a row outside any table.
void CalculLocal(ContexteCalculPertes &ctx, int ligne);
// Sum of the room totals.
double CalculTotalPertes(const Grid &pertes);

// Evaluates again every operation of the sheet's input cells, with no message, and writes
// the value as a commit would.
void ReevaluerOperations(Grid &pertes);

} // namespace thermique
