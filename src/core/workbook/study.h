#pragma once

#include "grid.h"

#include <QString>
#include <QVector>

#include <array>

namespace thermique {

// What the night-setback schedule form keeps in a study.
struct EtatTemperatureNuit
{
    QVector<QString> text2 = QVector<QString>(36);
    QVector<int> check1Valeur = QVector<int>(144, 0);
    QVector<bool> check1Actif = QVector<bool>(144, true);
    QVector<QString> text5 = QVector<QString>(6);
    QVector<int> check4 = QVector<int>(24, 0);
    QVector<int> check5 = QVector<int>(24, 0);
    QVector<int> check6 = QVector<int>(24, 0);

    bool operator==(const EtatTemperatureNuit &) const = default;
};

// Main window place and size, in twips.
struct GeometrieFenetre
{
    float top = 0;
    float left = 0;
    float height = 0;
    float width = 0;

    bool operator==(const GeometrieFenetre &) const = default;
};

// A whole study: everything the project file holds. A plain value: copy it, compare it.
struct Study
{
    static constexpr int NombreFeuilles = 13;
    static constexpr int NombreFeuillesBesoins = 4;
    static constexpr int NombreFeuillesConsommations = 14;
    static constexpr int LignesRoseDesVents = 73;

    Study();

    // Sheets 0 to 5 of the workbook; 6 to 12 carry no sheet but are kept in the file.
    std::array<Grid, NombreFeuilles> flexGrid;
    // Sub-sheets of "Besoins thermiques".
    std::array<Grid, NombreFeuillesBesoins> flexGrid2;
    // Sub-sheets of "Consommations": 0 hot water, 1 to 12 the energies, 13 the summary.
    std::array<Grid, NombreFeuillesConsommations> flexGrid3;
    // 73 rows by 2 columns; column 1 of rows 1 to 72 is stored.
    Grid roseDesVents;
    EtatTemperatureNuit temperatureNuit;

    int compteurParois = 0;
    int temperatureBaseCorrigee = 0;
    // Kept as the text it was given.
    QString temperatureBaseEte;
    int centrageFeuilles = 0;
    GeometrieFenetre fenetre;

    // Resets the wind-rose table to its empty form: "0" in column 1 of rows 1 to 72.
    void initialiserRoseDesVents();
    // Resets the consumption grids to their fixed sizes: 60 rows, 10 columns for the
    // first and 3 for the others.
    void initialiserGrillesConsommations();

    bool operator==(const Study &) const = default;
};

} // namespace thermique
