#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

#include <array>
#include <optional>

// The thermal-bridge catalogue: "\Ponts Thermiques\<level 1>\...\<name>.txt" under the
// application folder, one file per detail, with its ψ table and the name of its drawing
// in "\Dessins Ponts Thermiques\".
namespace thermique {

// A small table of text cells, as the detail form shows it.
struct TablePont
{
    int lignes = 0;
    int colonnes = 0;
    QStringList cellules; // row by row

    QString cellule(int r, int c) const;
    void redimensionner(int lignesNouvelles, int colonnesNouvelles);
    // The last cell, when filled, is the table's label.
    QString libelle() const;
    bool operator==(const TablePont &) const = default;
};

// One catalogue file. The four tables share the shape given by texte4 (1) columns and
// (2) rows:
//  table 0  first axis: its last cell is the axis label (a blank one hides the axis);
//  table 1  bands of the first axis: row 0 heading, then bounds a in column 0, b in 2;
//  table 2  second axis: its values in row 0, its label in the last cell;
//  table 3  ψ: row i holds the band of row i + 1 of table 1, one column per value.
// A 1 x 1 table 3 is a fixed value with no input.
struct FichierPont
{
    // The four level labels of the name.
    std::array<QString, 4> texte1;
    // (0) name, (1) RT 2005 code, (2) insulation, (3) comment, (4) reference, (5) and (6)
    // the input labels, (7) and (8) the axis labels, (9) the third input, (10) the unit,
    // (12) the caption of the result.
    std::array<QString, 13> texte3;
    // (0) number of axes, (1) columns, (2) rows.
    std::array<QString, 3> texte4;
    std::array<TablePont, 4> tables;
    // File name of the drawing, with ".bmp".
    QString image;

    int colonnes() const;
    int lignes() const;
    // Resizes the four tables to texte4's shape.
    void appliquerForme();
    bool operator==(const FichierPont &) const = default;
};

// Reads a detail; nullopt when the file cannot be opened. A truncated file keeps what it
// holds; a shape out of reason (over 50 x 50) is refused.
std::optional<FichierPont> LireFichierPont(const QString &chemin);
// Writes a detail, making its folders. False when it could not be written.
bool EcrireFichierPont(const QString &chemin, const FichierPont &fichier);

// The ψ of a detail for the typed inputs, as the result box shows it: "#0.00", "Faux"
// when the band or the abscissa has a zero bound, empty when nothing can be read.
// x3 is shown but takes no part.
QString ChoisirValeur(const FichierPont &fichier, const QString &x1, const QString &x2,
                      const QString &x3 = {});
// True when the detail is a single value that needs no input.
bool ValeurUnique(const FichierPont &fichier);

// A folder of the tree: its sub-folders and its details (names without ".txt").
struct DossierPonts
{
    QString nom;
    QVector<DossierPonts> dossiers;
    QStringList fichiers;
};
// The tree under the catalogue folder, sorted by name; names starting with "." are
// skipped, anything not ending ".txt" is taken as a folder. Depth is bounded.
DossierPonts ScannerPonts(const QString &dossierPonts);

// The sheet's name of a bridge: the drawing's name (without ".bmp"), " : ", the detail.
QString NomPont(const FichierPont &fichier, const QString &nomFichier);
// The drawing of a sheet row's name: the text before " :" with ".bmp" added; empty when
// the name has no " :".
QString ImageDuNom(const QString &nom);

} // namespace thermique
