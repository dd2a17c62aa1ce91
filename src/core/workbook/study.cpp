#include "study.h"

namespace thermique {

namespace {
// Initial sizes of the main grids before their sheets are built; the grids without a
// sheet keep a grid control's default of two columns and one fixed row and column.
struct TailleInitiale
{
    int rows, cols, fixedRows, fixedCols;
};
constexpr TailleInitiale taillesInitiales[Study::NombreFeuilles] = {
    {19, 23, 0, 0}, {40, 14, 3, 0}, {40, 14, 3, 0}, {26, 23, 0, 0}, {80, 38, 0, 0},
    {60, 30, 3, 0}, {60, 2, 1, 1},  {60, 2, 1, 1},  {60, 2, 1, 1},  {60, 2, 1, 1},
    {60, 2, 1, 1},  {60, 2, 1, 1},  {60, 2, 1, 1},
};
} // namespace

Study::Study()
{
    for (int i = 0; i < NombreFeuilles; ++i) {
        const TailleInitiale &t = taillesInitiales[i];
        flexGrid[i].resize(t.rows, t.cols);
        flexGrid[i].fixedRows = t.fixedRows;
        flexGrid[i].fixedCols = t.fixedCols;
        flexGrid[i].modeAffichage = 2;
    }
    initialiserRoseDesVents();
    initialiserGrillesConsommations();
}

void Study::initialiserRoseDesVents()
{
    roseDesVents = Grid(LignesRoseDesVents, 2);
    for (int r = 1; r < LignesRoseDesVents; ++r)
        roseDesVents.setText(r, 1, QStringLiteral("0"));
}

void Study::initialiserGrillesConsommations()
{
    for (int i = 0; i < NombreFeuillesConsommations; ++i) {
        Grid &g = flexGrid3[i];
        g.resize(60, i == 0 ? 10 : 3);
        g.modeAffichage = 2;
    }
}

} // namespace thermique
