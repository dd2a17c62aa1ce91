#include "aideadministrative.h"

#include "workbook/grid.h"

#include <QStringList>

namespace thermique {

namespace {

QString lignes(std::initializer_list<const char *> texte)
{
    QStringList l;
    for (const char *t : texte)
        l << QString::fromUtf8(t);
    return l.join(QStringLiteral("\r\n"));
}

QString fenetreSaisie(const char *titre)
{
    return lignes({titre, "Clic dans la cellule pour saisir les coordonnées de l'affaire.",
                   "Double Clic pour modifier un texte existant.",
                   "Touches flèches de direction ou Ech pour valider le texte saisi.",
                   "Clic droit pour accéder la base de données afin de sauvegarder le texte saisi "
                   "ou pour charger un texte enregistré."});
}

const char *const coefficientsHauteur
    = "Coefficients à appliquer à la main selon la hauteur des locaux :\r\n"
      "  - de 5 à 10 m : émission par rayonnement, plancher 1, plafond 1.15 ; air pulsé à "
      "moyenne vitesse, jet latéral bas 1.3, jet plongeant haut 1.21, jet latéral à mi-hauteur "
      "1.15 ; air pulsé à grande vitesse, jet latéral bas 1 ;\r\n"
      "  - de 10 à 15 m : émission par rayonnement, plancher 1, plafond déconseillé ; air pulsé "
      "à moyenne vitesse 1.6, 1.45, 1.30 ; air pulsé à grande vitesse 1.";

// The lines of row 14 and row 16, by band.
struct Bande
{
    int debut, fin;
    const char *texte;
};

const Bande bandesResultats[] = {
    {8701, 8940,
     "Surface totale chauffée : somme des surfaces des locaux de la feuille des pertes de "
     "chaleur."},
    {8941, 9180,
     "Surface chauffée à plus de 12°C : somme des surfaces des locaux chauffés à plus de 12°C."},
    {9181, 9420,
     "Volume total chauffé : somme des volumes des locaux de la feuille des pertes de chaleur."},
    {9421, 9660,
     "Volume chauffé à plus de 12°C : somme des volumes des locaux chauffés à plus de 12°C."},
    {9661, 9910, nullptr},
    {9911, 10170, nullptr},
    {11055, 11325,
     "Besoins moyens totaux : besoins annuels de chauffage de tous les locaux, calculés dans la "
     "feuille des besoins thermiques."},
    {11326, 11595,
     "Besoins moyens des locaux chauffés à plus de 12°C, calculés dans la feuille des besoins "
     "thermiques."},
    {11596, 11865, "Besoins moyens totaux rapportés à la surface chauffée."},
    {11866, 12135, "Besoins moyens des locaux chauffés à plus de 12°C rapportés à leur surface."},
    {12136, 12270, "Température maximale atteinte dans les locaux pendant la période chaude."},
    {12271, 12405, "Nombre d'heures successives pendant lesquelles la température dépasse 26°C."},
};

} // namespace

QString AideAdministrative(int y, bool droite)
{
    if (y >= 330 && y <= 1755) {
        if (!droite)
            return lignes({"Fenêtre identité :",
                           "Le contenu de cette cellule est accessible par le menu Fichier puis "
                           "Identité pour saisir ou adapter les coordonnées de l'utilisateur."});
        return fenetreSaisie("Fenêtre Affaire :");
    }
    if (y >= 2130 && y <= 3540)
        return fenetreSaisie(droite ? "Fenêtre Maître d'Oeuvre :" : "Fenêtre Maître d'Ouvrage :");
    if (y >= 4335 && y <= 4550)
        return droite ? lignes({"Clic avec le bouton gauche pour entrer la date du jour, ou saisie "
                                "traditionnelle par le clavier."})
                      : lignes({"Saisie de la référence du dossier d'étude."});
    if (y >= 4890 && y <= 5130)
        return lignes({"Pour choisir la région et le département :", "  1 - Menu Météo ;",
                       "  2 - Clic sur la région puis sur le département choisi ;",
                       "  3 - Clic dans cette cellule pour choisir la localité dans la liste."});
    if (y >= 5200 && y <= 7800)
        return lignes(
            {"Caractréristiques de la localité :",
             "  1 - Choisissez la localité dans la liste de la ligne au-dessus ;",
             "  2 - Les données climatiques du département s'inscrivent dans cette cellule ;",
             "  3 - Près de la mer, la distance à la côte corrige la température de base ;",
             "  4 - La température corrigée tient compte de l'altitude."});
    if (y >= 8205 && y <= 8370)
        return lignes(
            {"Clic gauche dans la cellule pour sélectionner le type de construction.",
             "Le choix d'un bâtiment collectif change les codes A6 des menuiseries en A7."});
    if (y >= 8460 && y <= 8655)
        return lignes({"Clic gauche dans la cellule pour sélectionner le type de situation."});
    if (y >= 10171 && y <= 10410)
        return lignes({"Pour être correct et notamment pour que le batiment soit classé passif, le "
                       "coefficient de compacité doit être inférieur à 0.70."});
    for (const Bande &b : bandesResultats) {
        if (y < b.debut || y > b.fin)
            continue;
        if (b.texte)
            return QString::fromUtf8(b.texte);
        return lignes(
                   {b.debut < 9911
                        ? "Pertes de chaleur totales, base : somme des pertes de tous les locaux."
                        : "Pertes de chaleur des locaux chauffés à plus de 12°C."})
            + QStringLiteral("\r\n") + QString::fromUtf8(coefficientsHauteur);
    }
    if (y > 12950)
        return lignes({"Fenêtre Note :", "Clic dans la cellule pour saisir des notes sur l'étude.",
                       "Double Clic pour modifier un texte existant.",
                       "Touches flèches de direction ou Ech pour valider le texte saisi."});
    return lignes(
        {"Déplacer le pointeur de la souris sur les fenêtres pour avoir des précisions sur "
         "leur contenu.",
         "Maintenez la touche MAJ enfoncée pour garder ce texte et atteindre cette fenêtre.",
         "Le bouton Vidéo montre la saisie d'une étude."});
}

int MilieuLigne(const Grid &grille, int ligne)
{
    int y = 0;
    for (int r = 0; r < ligne && r < grille.rows(); ++r)
        y += grille.rowHeight(r);
    return y + grille.rowHeight(ligne) / 2;
}

} // namespace thermique
