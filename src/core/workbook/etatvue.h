#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

#include <array>

namespace thermique {

// Key codes and shift masks of the controller's key handlers (the codes of the classic
// desktop toolkits: letters are their capital's code, F2 is 113...).
namespace Touche {
constexpr int Retour = 8;
constexpr int Tabulation = 9;
constexpr int Entree = 13;
constexpr int Echap = 27;
constexpr int Espace = 32;
constexpr int Gauche = 37;
constexpr int Haut = 38;
constexpr int Droite = 39;
constexpr int Bas = 40;
constexpr int Suppr = 46;
constexpr int C = 67;
constexpr int I = 73;
constexpr int S = 83;
constexpr int T = 84;
constexpr int V = 86;
constexpr int F2 = 113;
constexpr int F3 = 114;
constexpr int F4 = 115;
constexpr int F5 = 116;
constexpr int F6 = 117;
constexpr int MasqueMaj = 1;
constexpr int MasqueCtrl = 2;
constexpr int MasqueAlt = 4;
} // namespace Touche

// One entry of the menu bar as the window shows it.
struct EtatMenu
{
    QString libelle;
    bool actif = true;
    bool visible = true;
    bool coche = false;
};

// The input box laid over a cell.
struct BoiteSaisie
{
    bool visible = false;
    int ligne = 0;
    int colonne = 0;
    QString texte;
    qint32 couleurFond = 16777215;
    // Where the caret starts, in characters (the end when beyond).
    int debutSelection = 1000;
    // The box grows with the text on the sheets that take operations; the gui measures.
    bool extensible = false;
    // Text added to the measured text to leave room while typing.
    QString marge = QStringLiteral("AAA");
};

// A drop-down list open under a cell.
struct ListeDeroulante
{
    bool visible = false;
    int ligne = 0;
    int colonne = 0;
    QStringList elements;
    int largeur = 0; // twips; 0 means the cell's width
    int hauteur = 0; // twips
    QString infobulle;
};

// A toolbar button.
struct BoutonOutil
{
    QString libelle;
    QString infobulle;
    bool visible = false;
    bool actif = true;
};

// Everything the main window shows besides the grids' cells. The controller writes it; the
// window reads it after each call and redraws.
struct EtatVue
{
    QString titre;
    // Grid shown: the sheet's index of the main grids; the sub-sheets by their own index.
    int grilleVisible = 0;
    bool ongletsBesoinsVisibles = false;
    bool ongletsConsommationsVisibles = false;

    BoiteSaisie saisie;
    // Text2, the help panel under the sheets.
    QString aide;
    bool aideVisible = true;
    // Frm_ImageAffiche: the drawing of the pointed row (a thermal bridge), or nothing.
    QString image;
    qint32 couleurAide = 0;
    QString etiquetteVersion;
    // Combo1 (walls, bridges, texts) and Combo3 (other lists).
    std::array<ListeDeroulante, 2> listes;
    std::array<BoutonOutil, 10> boutons;
    // Command2 on the Coef-U sheet.
    bool boutonInformations = false;
    bool boutonExcel = false;

    // Window size and grid width in twips, from AjusterFenetre.
    int largeurFenetre = 0;
    int hauteurFenetre = 0;
    int largeurGrille = 0;
    bool centrerFenetre = false;

    QMap<QString, EtatMenu> menus;
    // "Quitter" was chosen: the window closes (and runs Fermeture).
    bool fermetureDemandee = false;

    // A change of the study that the window must redraw (set by every handler that
    // writes cells; the window clears it).
    bool grillesModifiees = true;
};

} // namespace thermique
