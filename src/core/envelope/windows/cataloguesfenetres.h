#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

#include <array>
#include <optional>

// The five joinery catalogues beside the program, the joinery buffer between blocks, the
// last values of the dimensions form, and the window data written on a heat-loss line.
namespace thermique {

class Grid;
struct ContexteParois;

enum class GenreCatalogue { Vitrages, Menuiseries, WarmEdge, Volets, CoffreVolets };

struct CatalogueMenuiserie
{
    GenreCatalogue genre = GenreCatalogue::Vitrages;
    QVector<QStringList> lignes; // each row has colonnes(genre) cells
    bool operator==(const CatalogueMenuiserie &) const = default;
};

// File name, column headings (two rows) and number of columns of a catalogue.
QString FichierCatalogue(GenreCatalogue genre);
QStringList EntetesCatalogue(GenreCatalogue genre, int ligne);
int ColonnesCatalogue(GenreCatalogue genre);
// The catalogue a row label of a joinery block opens, if any.
std::optional<GenreCatalogue> CatalogueDuLibelle(const QString &libelle);

// Reads a catalogue up to the end of the file; a short or broken line keeps what it holds,
// with blanks for the missing cells. A missing file is an empty catalogue.
CatalogueMenuiserie LireCatalogue(const QString &chemin, GenreCatalogue genre);
// Rewrites the whole file. False when it could not be written.
bool EcrireCatalogue(const QString &chemin, const CatalogueMenuiserie &catalogue);

// A click in a catalogue row: column 9 of the block row takes the row's value
// ("#,##0.000"); a glazing also gives the head its solar factor ("#,##0.00") and the row its
// light transmission (column 13). Then the block is computed. False for a row with no value.
bool AppliquerChoixCatalogue(ContexteParois &ctx, int ligne, GenreCatalogue genre,
                             const QStringList &cellules);

// "TamponMenuiserie.txt": a joinery definition carried to another block.
struct TamponMenuiserie
{
    std::array<QString, 7> tete; // columns 3 to 9 of the head row
    QStringList enregistrements; // keyed records: "VitrageCoef=...", "TL=..."...
    bool operator==(const TamponMenuiserie &) const = default;
};
TamponMenuiserie TamponDepuisBloc(const Grid &g, int tete);
std::optional<TamponMenuiserie> LireTampon(const QString &chemin);
bool EcrireTampon(const QString &chemin, const TamponMenuiserie &tampon);
// Writes a buffer into the block whose head is `tete`; the code follows the building type.
void AppliquerTampon(ContexteParois &ctx, int tete, const TamponMenuiserie &tampon);

// "FenêtreSaisieValeurs.txt": eight texts, two check boxes and the colour index.
struct SaisieFenetre
{
    std::array<QString, 8> textes;
    bool avecSeuil = false;
    bool sansSeuil = false;
    int couleur = 0;
    bool operator==(const SaisieFenetre &) const = default;
};
std::optional<SaisieFenetre> LireSaisieFenetre(const QString &chemin);
bool EcrireSaisieFenetre(const QString &chemin, const SaisieFenetre &saisie);

// The data of Frm_FenêtresDonnées for one heat-loss window line.
struct DonneesFenetre
{
    QString typeMasque;
    QString nombre = QStringLiteral("1");
    QString largeur;
    QString hauteur;
    QString albedo = QStringLiteral("0.20");
    std::array<QString, 9> masque; // X1, Z1, X2, Z2, X3, Z3, X4, Z4, X5
    bool volets = false;
    QString surfaceOuvrant;
};
// The kinds of mask the form offers (the line keeps their first four characters).
const QStringList &TypesMasques();
// The albedo options of Frm_Albedo (their first four characters are the value).
const QStringList &OptionsAlbedo();
// The form's data from a heat-loss line (blank cells give the defaults).
DonneesFenetre DonneesDepuisLigne(const Grid &pertes, int ligne);
// "Valider": writes columns 19, 21 to 34 and 37, and rewrites the surface of column 15 as
// the first two figures of its operation and the number, joined by "*".
void EcrireDonneesFenetre(Grid &pertes, int ligne, const DonneesFenetre &d);

} // namespace thermique
