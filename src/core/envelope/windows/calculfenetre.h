#pragma once

#include <QString>
#include <QStringList>

#include <optional>

// Joinery blocks ("Fen. Porte et Porte-fen.") of the Coef-U sheet and of the wall library:
// the 18 rows of a block, its surfaces from overall dimensions, and Uw, Uwf, Ujn, Sw1.
namespace thermique {

class Grid;
struct ContexteParois;
struct ExtensionFenetres;

// Rows of a block, from its head.
namespace LigneFenetre {
constexpr int Profils = 0;
constexpr int SurfaceMenuiserie = 1;
constexpr int Vitrage = 2;
constexpr int SurfaceVitrage = 3;
constexpr int PsiVitrage = 4;
constexpr int LongueurVitrage = 5;
constexpr int UImposte = 6;
constexpr int SurfaceImposte = 7;
constexpr int PsiImposte = 8;
constexpr int LongueurImposte = 9;
constexpr int UAllege = 10;
constexpr int SurfaceAllege = 11;
constexpr int PsiAllege = 12;
constexpr int LongueurAllege = 13;
constexpr int Volets = 14;
constexpr int Coffre = 15;
constexpr int SurfaceCoffre = 16;
constexpr int Resultat = 17;
constexpr int Nombre = 18;
} // namespace LigneFenetre

// The labels of column 6 of a new block, in row order.
const QStringList &LibellesFenetre();

// The figures of a block as CalculFenêtre reads them.
struct ValeursFenetre
{
    double uf = 0, af = 0; // frame
    double ug = 0, sv = 0; // glazing of the leaves
    double psiG = 0, lg = 0; // glazing edge
    double upImposte = 0, si = 0; // transom panel
    double psiImposte = 0, li = 0;
    bool imposteVitree = true;
    double upAllege = 0, sa = 0; // lower panel
    double psiAllege = 0, la = 0;
    bool allegeVitree = true;
    double r = 0; // added resistance of the shutter
    double uc = 0, ac = 0; // roller box
    double facteurSolaire = 0; // S of the head
    double alpha = 0; // absorption of the frame
    double tl = 0; // light transmission of the glass
};

struct ResultatFenetre
{
    bool faux = false; // a surface with a zero coefficient
    bool vide = false; // no surface at all: nothing to show
    double ag = 0; // glazed surface, glazed panels included
    double sigma = 0;
    double uw = 0; // column 11, the roller box included
    double uwf = 0; // column 12
    double ujn = 0;
    double sw1 = 0;
    std::optional<double> tl;
};

ResultatFenetre CalculerFenetre(const ValeursFenetre &v);

// Overall dimensions typed in Frm_FenêtresSaisies.
struct DimensionsFenetre
{
    double vantaux = 1; // N
    double largeur = 0; // L
    double hauteur = 0; // H
    double coffre = 0; // hc
    double allege = 0; // ha
    double imposte = 0; // hi
    double profil = 0; // w
    double seuil = 0; // ap
    bool allegeDivisee = false; // one panel per leaf
    bool imposteOuvrante = false;
    bool allegeOuvrante = false;
};

struct SurfacesFenetre
{
    double hv = 0, lv = 0, lc = 0, la = 0;
    double si = 0, sv = 0, sa = 0, sc = 0, sf = 0;
    double longueurVitrage = 0, longueurImposte = 0, longueurAllege = 0;
    double surfaceOuvrant = 0;
};

SurfacesFenetre SurfacesDepuisDimensions(const DimensionsFenetre &d);

// The frame colours of the form, in list order, and the absorption α of each.
const QStringList &CouleursMenuiserie();
QString AbsorptionCouleur(int index);

// Writes the figures of the form in the block whose head is `tete`: surfaces and lengths,
// the name "FE. "/"PF. ", α of the colour (index -1 keeps it), then computes the block.
void AppliquerDimensions(ContexteParois &ctx, int tete, const DimensionsFenetre &d, bool avecSeuil,
                         int couleur);
// The block's name from the form.
QString NomFenetre(const DimensionsFenetre &d, bool avecSeuil);

// Writes a new block at `ligne`: the head values, the 18 labels, the key.
void EcrireBlocFenetre(ContexteParois &ctx, int ligne);
// CalculFenêtre: reads the block by its labels and writes σ, Uw, Uwf, Ujn, Sw1 and TL.
void CalculFenêtre(ContexteParois &ctx, int tete);
// The hook that the Coef-U sheet and the wall library call for joinery blocks.
ExtensionFenetres ExtensionMenuiseries();

// The form a right click opens on a row of a joinery block: "Frm_UVitrages" in column 9 of
// a row that takes a catalogue value, "Frm_FenêtresSaisies" in column 6 of a surface row,
// "Frm_UVitrages_1" in column 6 of the head; empty elsewhere or outside a joinery block.
QString FormulaireFenetre(const Grid &g, int ligne, int colonne);
// Help of the head's columns 4 and 5 of a joinery block; empty elsewhere.
QString AideFenetre(const Grid &g, int ligne, int colonne);

// The last row of the block whose head is `tete` (the "Coefficients de la fenêtre" row).
std::optional<int> FinFenetre(const Grid &g, int tete);
// The row of the block whose label starts with `prefixe`.
std::optional<int> LigneFenetreLibelle(const Grid &g, int tete, const QString &prefixe);

} // namespace thermique
