#include "feuilleventilation.h"

#include "calculventilation.h"

#include "workbook/classeur.h"
#include "workbook/userinterface.h"

namespace thermique {

namespace {

constexpr int lignes = 26;
constexpr int colonnes = 23;

enum Genre { Titre, Liste, Operation, Calcul };

struct LigneFeuille
{
    int ligne;
    const char *libelle;
    const char *initiale;
    Genre genre;
};

const LigneFeuille lignesFeuille[] = {
    {1, "Caractéristiques du dispositif de renouvellement d'air de la zone :", "", Titre},
    {2, "Dispositif de renouvellement d'air : ", "Simple flux autoréglable.", Liste},
    {3, "Débit d'air renouvelé extrait - Maxi (m³/h) : ", " ", Operation},
    {4, "Débit d'air renouvelé extrait - Mini (m³/h) : ", " ", Operation},
    {5, "Débit d'air renouvelé soufflé - Maxi (m³/h) : ", " ", Operation},
    {6, "Débit d'air renouvelé soufflé - Mini (m³/h) : ", " ", Operation},
    {7, "Commande de variation du dispositif d'extraction : ", "Néant.", Liste},
    {8, "Commande de variation du dispositif de soufflage : ", "Automatique.", Liste},
    {9, "Caractéristiques de la construction, en rapport avec le renouvellement d'air :", "",
     Titre},
    {10, "Région : ", " ", Calcul},
    {11, "Situation : ", " ", Calcul},
    {12, "Hauteur des fenêtres au-dessus du sol (m) : ", "< 6 m", Liste},
    {13, "Façades abritées : ", "Non", Liste},
    {14, "Classe d'exposition au vent du bâtiment : ", " ", Calcul},
    {15, "Classe d'exposition au vent de la zone : ", "Plusieurs façades exposées.", Liste},
    {16, "Coefficient (a) d'exposition au vent de la zone : ", "Calcul automatique.", Calcul},
    {17, "Coefficient (e) d'exposition au vent de la zone : ", "Calcul automatique.", Calcul},
    {18, "Coefficient (d) d'exposition au vent de la zone : ", "Calcul automatique.", Calcul},
    {19, "Perméabilité (Po) des parois opaques de la zone : ", "Bâtiment individuel : 0.50", Liste},
    {20, "Débit spécifique d'extraction d'air de la zone (QV) : ", "Calcul automatique.", Calcul},
    {21, "Perméabilité de la zone (P) : ", "Calcul automatique avec les pertes de chaleur.",
     Calcul},
    {22, "Débit supplémentaire de ventilation (Qs) : ",
     "Calcul automatique avec les pertes de chaleur.", Calcul},
    {23, "Coefficient (A) majorateur selon le type de ventilation : ",
     "Calcul automatique selon le dispositif de ventilation.", Calcul},
    {24, "Coefficient (B) majorateur selon le type de ventilation : ",
     "Calcul automatique selon le dispositif de ventilation.", Calcul},
    {25, "Débit de renouvellement d'air de la zone (m³/h) : ",
     "Calcul automatique selon les paramètres précédents.", Calcul},
};

QStringList depuis(std::initializer_list<const char *> textes)
{
    QStringList l;
    for (const char *t : textes)
        l << QString::fromUtf8(t);
    return l;
}

void colorer(Grid &g, int ligne, qint32 couleur)
{
    for (int c = 12; c < colonnes; ++c)
        g.cellPtr(ligne, c)->attributs.couleurFond = couleur;
}

} // namespace

QStringList ChoixVentilation(int ligne)
{
    switch (ligne) {
    case 2:
        return depuis({"Simple flux autoréglable.", "Simple flux hygroréglable A.",
                       "Simple flux hygroréglable B.",
                       "Double flux, régulation automatique du taux de transfert.",
                       "Double flux, sans régulation du taux de transfert.", "Naturel."});
    case 7:
    case 8:
        return depuis({"Automatique.", "Manuelle."});
    case 12:
        return depuis({"< 6 m", "6 à 18 m", "18 à 28 m", "28 à 50 m", "50 à 100 m"});
    case 13:
        return depuis({"Non.", "Oui."});
    case 15:
        return depuis({"Une seule façade exposée.", "Plusieurs façades exposées."});
    case 19:
        return depuis({"Bâtiment individuel : 0.50", "Bâtiment collectif : 0.25",
                       "Bâtiment à étanchéité soignée : 0.10"});
    default:
        return {};
    }
}

void EcrireValeurVentilation(Grid &g, int ligne, const QString &texte)
{
    for (int c = 12; c < colonnes; ++c)
        g.setText(ligne, c, texte);
}

void ConstruireGrilleVentilation(Grid &g, qint32 couleurVerrouillee, qint32 couleurSaisie)
{
    const int modeAffichage = g.modeAffichage;
    g = Grid(lignes, colonnes);
    g.modeAffichage = modeAffichage;
    g.modeFusion = 2;
    g.row = 2;
    g.col = 12;
    g.setColWidth(0, 10);
    for (int c = 1; c < colonnes; ++c)
        g.setColWidth(c, 500);
    for (int r = 0; r < lignes; ++r) {
        g.setRowHeight(r, 280);
        g.setMergeRow(r, true);
        // Row 0 and the hidden column 0 are locked, so that no movement stops there.
        for (int c = 0; c < colonnes; ++c)
            g.cellPtr(r, c)->attributs.couleurFond = couleurVerrouillee;
    }
    for (const LigneFeuille &l : lignesFeuille) {
        const QString libelle = QString::fromUtf8(l.libelle);
        const int finLibelle = l.genre == Titre ? colonnes - 1 : 11;
        for (int c = 1; c < colonnes; ++c) {
            Cell *cell = g.cellPtr(l.ligne, c);
            cell->attributs.alignement = AlignementGaucheCentre;
            cell->attributs.gras = l.genre == Titre;
            if (c <= finLibelle) {
                cell->texte = libelle;
            } else {
                cell->texte = QString::fromUtf8(l.initiale);
                if (l.genre == Liste || l.genre == Operation)
                    cell->attributs.couleurFond = couleurSaisie;
            }
        }
    }
    AppliquerSysteme(g, IndexSysteme(g), couleurVerrouillee, couleurSaisie);
}

int IndexSysteme(const Grid &g)
{
    return int(ChoixVentilation(2).indexOf(ValeurVentilation(g, 2)));
}

void AppliquerSysteme(Grid &g, int systeme, qint32 couleurVerrouillee, qint32 couleurSaisie)
{
    if (systeme < 0) {
        EcrireValeurVentilation(g, 2, QStringLiteral("Sélection du système de ventilation."));
        for (int r = 3; r <= 6; ++r)
            colorer(g, r, couleurVerrouillee);
        return;
    }
    const bool simpleFlux = systeme < 3;
    for (int r = 3; r <= 6; ++r) {
        if (!simpleFlux || r < 5) {
            colorer(g, r, couleurSaisie);
            continue;
        }
        // A simple flux has no supply: its rows hold nothing.
        colorer(g, r, couleurVerrouillee);
        for (int c = 12; c < colonnes; ++c) {
            g.setText(r, c, QStringLiteral(" "));
            g.setOperation(r, c, QString());
        }
    }
    colorer(g, 8, simpleFlux ? couleurVerrouillee : couleurSaisie);
}

void ChoisirSysteme(Classeur &classeur, int index)
{
    const QStringList systemes = ChoixVentilation(2);
    if (index < 0 || index >= systemes.size())
        return;
    Grid &g = classeur.etude().flexGrid[3];
    EcrireValeurVentilation(g, 2, systemes.at(index));
    // The air lines of the heat-loss sheet follow the system when that sheet is entered.
    classeur.etat().ChangementVentilation = QStringLiteral("Oui");
    // The supply rows are settled before the flows, so that a simple flux never counts a
    // supply left from a double flux.
    AppliquerSysteme(g, index, classeur.etat().CouleurVerrouillee, classeur.etat().CouleurSaisie);
    CalculVentilation(classeur);
}

void FeuilleVentilation::construire(Classeur &classeur)
{
    ConstruireGrilleVentilation(classeur.etude().flexGrid[3], classeur.etat().CouleurVerrouillee,
                                classeur.etat().CouleurSaisie);
}

void FeuilleVentilation::entrer(Classeur &classeur)
{
    m_ligneListe = -1;
    CalculVentilation(classeur);
    Grid &g = classeur.etude().flexGrid[3];
    AppliquerSysteme(g, IndexSysteme(g), classeur.etat().CouleurVerrouillee,
                     classeur.etat().CouleurSaisie);
    classeur.vue().grillesModifiees = true;
}

void FeuilleVentilation::apresValidation(Classeur &classeur, int ligne, int colonne)
{
    if (colonne < 12 || colonne >= colonnes || ligne < 1 || ligne >= lignes)
        return;
    Grid &g = classeur.etude().flexGrid[3];
    // The value cells of a row are one merged cell: the typed text and its operation go to
    // all of them, so that any of them reads the same.
    const Cell source = g.cell(ligne, colonne);
    for (int c = 12; c < colonnes; ++c) {
        g.setText(ligne, c, source.texte);
        g.setOperation(ligne, c, source.operation);
    }
    CalculVentilation(classeur);
}

bool FeuilleVentilation::ouvrirListe(Classeur &classeur, int ligne, int colonne)
{
    const Grid &g = classeur.etude().flexGrid[3];
    const QStringList choix = ChoixVentilation(ligne);
    if (choix.isEmpty() || colonne < 12 || colonne >= colonnes
        || g.estVerrouillee(ligne, colonne, classeur.etat().CouleurVerrouillee))
        return false;
    ListeDeroulante &liste = classeur.vue().listes[1];
    liste.elements = choix;
    liste.ligne = ligne;
    liste.colonne = 12;
    liste.largeur = 0;
    for (int c = 12; c < colonnes; ++c)
        liste.largeur += g.colWidth(c);
    liste.hauteur = int(choix.size()) * 210 + 190;
    liste.infobulle.clear();
    liste.visible = true;
    classeur.etat().LigneCourante = ligne;
    classeur.etat().ColonneCourante = colonne;
    m_ligneListe = ligne;
    classeur.vue().grillesModifiees = true;
    return true;
}

bool FeuilleVentilation::clic(Classeur &classeur, int ligne, int colonne)
{
    const bool memeListe = m_ligneListe == ligne;
    m_ligneListe = -1;
    // A second click on the cell closes its list.
    if (memeListe)
        return false;
    return ouvrirListe(classeur, ligne, colonne);
}

bool FeuilleVentilation::clicDroit(Classeur &classeur, int ligne, int colonne)
{
    m_ligneListe = -1;
    // The flow rows lead to the regulated flow tables the user copies from.
    if (ligne >= 3 && ligne <= 6 && colonne >= 12 && colonne < colonnes) {
        classeur.ui().ouvrirFormulaire(QStringLiteral("Frm_Ventilation"));
        classeur.vue().grillesModifiees = true;
        return true;
    }
    return ouvrirListe(classeur, ligne, colonne);
}

void FeuilleVentilation::choixListe(Classeur &classeur, int liste, int index)
{
    m_ligneListe = -1;
    if (liste != 1)
        return;
    const int ligne = classeur.vue().listes[1].ligne;
    const QStringList choix = ChoixVentilation(ligne);
    if (index < 0 || index >= choix.size())
        return;
    if (ligne == 2) {
        ChoisirSysteme(classeur, index);
        return;
    }
    EcrireValeurVentilation(classeur.etude().flexGrid[3], ligne, choix.at(index));
    CalculVentilation(classeur);
}

void FeuilleVentilation::recalculerFeuille(Classeur &classeur)
{
    CalculVentilation(classeur);
}

} // namespace thermique
