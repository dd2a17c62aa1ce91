#include "feuilleadministrative.h"

#include "aideadministrative.h"
#include "identite.h"

#include "climate/basehiver.h"
#include "climate/choixsite.h"
#include "climate/stations.h"

#include "workbook/classeur.h"
#include "workbook/nombres.h"
#include "workbook/userinterface.h"

#include <QDate>

namespace thermique {

namespace {

constexpr int lignes = 19;
constexpr int colonnes = 23;
// Rows 2 and 4 hold seven lines of the grid's font.
constexpr int hauteurSeptLignes = 7 * 210;

enum Style : int {
    Verrou = 1,
    Gras = 2,
};

// One range of a row: text, locked or input, bold, alignment and font size.
struct Plage
{
    int ligne, debut, fin;
    const char *texte;
    int style;
    int alignement;
    float taille;
};

constexpr float normal = 8.25f;

// The fixed texts of the sheet. Empty texts are filled at build (identity, labels) or left
// to the user.
constexpr Plage plages[] = {
    {1, 1, 11, "Etude Thermique :", Verrou | Gras, AlignementGaucheCentre, normal},
    {1, 12, 22, "Affaire :", Verrou | Gras, AlignementGaucheCentre, normal},
    {2, 1, 11, "", Verrou, AlignementGaucheHaut, normal},
    {2, 12, 22, "", 0, AlignementGaucheHaut, normal},
    {3, 1, 11, "Maître d'Ouvrage :", Verrou | Gras, AlignementGaucheCentre, normal},
    {3, 12, 22, "Maître d'Oeuvre :", Verrou | Gras, AlignementGaucheCentre, normal},
    {4, 1, 10, "", 0, AlignementGaucheHaut, normal},
    {4, 11, 11, "", Verrou, AlignementGaucheHaut, normal},
    {4, 12, 22, "", 0, AlignementGaucheHaut, normal},
    {5, 1, 22, "ETUDE THERMIQUE.", Verrou | Gras, AlignementCentreCentre, 18},
    {6, 1, 22, "Méthode simplifiée.", Verrou, AlignementGaucheCentre, 6},
    {7, 1, 3, "Dossier n° : ", Verrou | Gras, AlignementDroiteHaut, normal},
    {7, 4, 6, "", 0, AlignementGaucheCentre, normal},
    {7, 7, 10, "Date : ", Verrou | Gras, AlignementDroiteHaut, normal},
    {7, 11, 16, "", 0, AlignementGaucheCentre, normal},
    {7, 17, 22, "  ", Verrou | Gras, AlignementGaucheCentre, normal},
    {8, 1, 22, "Caractéristiques du site :", Verrou | Gras, AlignementGaucheCentre, normal},
    {9, 1, 9, "Ville - Code postal - Département : \r\n", Verrou, AlignementDroiteHaut, normal},
    {9, 10, 22, " ", 0, AlignementGaucheHaut, normal},
    {10, 1, 9, "", Verrou, AlignementDroiteHaut, normal},
    {10, 10, 22, " ", 0, AlignementGaucheHaut, normal},
    {11, 1, 22, "Caractéristiques de la construction :", Verrou | Gras, AlignementGaucheCentre,
     normal},
    {12, 1, 12, "Type de construction : ", Verrou, AlignementDroiteHaut, normal},
    {12, 13, 22, " ", 0, AlignementGaucheHaut, normal},
    {13, 1, 12, "Situation : ", Verrou, AlignementDroiteHaut, normal},
    {13, 13, 22, " ", 0, AlignementGaucheHaut, normal},
    {14, 1, 12, "", Verrou, AlignementDroiteHaut, normal},
    {14, 13, 22, " ", Verrou, AlignementGaucheCentre, normal},
    {15, 1, 22, "Besoins de chaleur pour le chauffage des locaux :", Verrou | Gras,
     AlignementGaucheCentre, normal},
    {16, 1, 12, "", Verrou, AlignementDroiteHaut, normal},
    {16, 13, 22, " ", Verrou, AlignementGaucheCentre, normal},
    {17, 1, 22, "Notes :", Verrou | Gras, AlignementGaucheCentre, normal},
    {18, 1, 22, "", 0, AlignementGaucheHaut, normal},
};

struct Hauteur
{
    int ligne, twips;
};
constexpr Hauteur hauteurs[] = {{0, 10},
                                {5, 500},
                                {6, 220},
                                {10, 2700},
                                {14, 2000},
                                {16, 1750},
                                {18, 2500},
                                {2, hauteurSeptLignes},
                                {4, hauteurSeptLignes}};

QStringList depuis(std::initializer_list<const char *> textes)
{
    QStringList l;
    for (const char *t : textes)
        l << QString::fromUtf8(t);
    return l;
}

void remplir(Grid &g, int ligne, int debut, int fin, const QString &texte)
{
    for (int c = debut; c <= fin; ++c)
        g.setText(ligne, c, texte);
}

const QString notice
    = QStringLiteral("les DJU seront déterminés lors du calcul des besoins d'énergie");

// Rows 14 and 16 are results: no stale figure stays on the cover.
void effacerResultats(Grid &g)
{
    for (int ligne : {14, 16})
        remplir(g, ligne, 13, 22, QStringLiteral(" "));
}

// Joinery codes follow the building: "A7" in a collective building, "A6" elsewhere.
void recoderMenuiseries(Study &etude, const QString &code)
{
    auto recoder = [&](Grid &g, int colonne) {
        for (int r = 0; r < g.rows(); ++r) {
            const QString t = g.text(r, colonne).trimmed();
            if (t == QLatin1String("A6") || t == QLatin1String("A7"))
                g.setText(r, colonne, code);
        }
    };
    recoder(etude.flexGrid[1], 3);
    recoder(etude.flexGrid[4], 9);
}

} // namespace

QStringList TypesConstruction()
{
    return depuis({"Maison individuelle.", "Bâtiment collectif.", "Bureaux.", "Hôtel.",
                   "Restaurant.", "Enseignement.", "Petit commerce.", "Etablissement sanitaire.",
                   "Autre usage."});
}

QStringList Situations()
{
    return depuis({"(a) A l'intérieur d'un grand centre urbain.",
                   "(b) Dans une ville de moyenne importance.",
                   "(c) A la périphérie d'un grand centre urbain.", "(d) Isolée, en bord de mer.",
                   "(e) Isolée, en rase campagne."});
}

QStringList LibellesClimat()
{
    return depuis({"Latitude (°) : ", "Longitude (°) : ", "Altitude (m) : ",
                   "Zone climatique Hiver - Eté : ", "Région - référence thermique : ",
                   "Température de base hiver (°C) : ", "Température corrigée hiver (°C) : ",
                   "Température de base été (°C) : ", "Hygrométrie moyenne d'été (%) : ",
                   "Durée moyenne de chauffage (heures/an) : ", "Degrés jour base 18°C : "});
}

void ConstruireGrilleAdministrative(Grid &g, qint32 couleurVerrouillee, qint32 couleurSaisie,
                                    const QString &identite, const QString &uniteSurface,
                                    const QString &uniteVolume)
{
    const int modeAffichage = g.modeAffichage;
    g = Grid(lignes, colonnes);
    g.modeAffichage = modeAffichage;
    g.modeFusion = 2;
    g.row = 1;
    g.col = 1;
    g.setColWidth(0, 10);
    for (int c = 1; c < colonnes; ++c)
        g.setColWidth(c, c == 11 ? 999 : 500);
    for (int r = 0; r < lignes; ++r) {
        g.setRowHeight(r, 280);
        g.setMergeRow(r, true);
    }
    for (const Hauteur &h : hauteurs)
        g.setRowHeight(h.ligne, h.twips);

    // Row 0 and column 0 are hidden: locked, so that no movement stops there.
    for (int r = 0; r < lignes; ++r)
        for (int c = 0; c < colonnes; ++c)
            if (r == 0 || c == 0)
                g.cellPtr(r, c)->attributs.couleurFond = couleurVerrouillee;

    for (const Plage &p : plages) {
        for (int c = p.debut; c <= p.fin; ++c) {
            Cell *cell = g.cellPtr(p.ligne, c);
            cell->texte = QString::fromUtf8(p.texte);
            cell->attributs.couleurFond = (p.style & Verrou) ? couleurVerrouillee : couleurSaisie;
            cell->attributs.gras = p.style & Gras;
            cell->attributs.alignement = p.alignement;
            cell->attributs.taillePolice = p.taille;
        }
    }
    remplir(g, 2, 1, 11, identite);
    remplir(g, 10, 1, 9, LibellesClimat().join(QStringLiteral("\r\n")));
    const QStringList resultats = {
        QStringLiteral(" "),
        QStringLiteral("Surface totale chauffée (") + uniteSurface + QStringLiteral(") : "),
        QStringLiteral("Surface chauffée à plus de 12°C (") + uniteSurface + QStringLiteral(") : "),
        QStringLiteral("Volume total chauffé (") + uniteVolume + QStringLiteral(") : "),
        QStringLiteral("Volume chauffé à plus de 12°C (") + uniteVolume + QStringLiteral(") : "),
        QStringLiteral("Pertes de chaleur totales, base (W) : "),
        QStringLiteral("Pertes de chaleur des locaux chauffés à plus de 12°C (W) : "),
        QStringLiteral("Coefficient de compacité (Surface totale/Volume total) : "),
    };
    remplir(g, 14, 1, 12, resultats.join(QStringLiteral("\r\n")));
    const QStringList besoins = {
        QStringLiteral("Besoins moyens totaux (kWh/an) : "),
        QStringLiteral("Besoins moyens des locaux chauffés à plus de 12°C (kWh/an) : "),
        QStringLiteral("Besoins moyens totaux (kWh/an.") + uniteSurface + QStringLiteral(") : "),
        QStringLiteral("Besoins moyens locaux chauffés à plus de 12°C (kWh/an.") + uniteSurface
            + QStringLiteral(") : "),
        QStringLiteral("Température maximale moyenne atteinte (°C) : "),
        QStringLiteral("Nb heures successives, température moyenne sup. à 26°C : "),
    };
    remplir(g, 16, 1, 12, besoins.join(QStringLiteral("\r\n")));
}

int DepartementLocalite(const Grid &g)
{
    const QString t = g.text(9, 13);
    const qsizetype i = t.indexOf(QStringLiteral(" - "));
    return i < 0 ? 0 : int(Val(t.mid(i + 3, 2)));
}

void ChoisirDansListeAdministrative(Classeur &classeur, int ligne, const QString &texte)
{
    Study &etude = classeur.etude();
    EtatSession &etat = classeur.etat();
    Grid &g = etude.flexGrid[0];
    QString choix = texte;
    // No building stands by the sea in an inland department.
    if (ligne == 13 && choix == Situations().at(3) && !EstDepartementCotier(DepartementLocalite(g)))
        choix = Situations().at(4);
    remplir(g, ligne, 13, 22, choix);

    if (ligne == 13) {
        const QString climat = g.text(10, 10);
        const qsizetype i = climat.indexOf(notice);
        if (i >= 0)
            remplir(g, 10, 10, 22, climat.left(i + notice.size()));
    }
    effacerResultats(g);
    if (ligne == 12) {
        const QString type = choix.left(8);
        if (type != etat.TypeConstructionMemoire
            && !etat.TypeConstructionMemoire.trimmed().isEmpty())
            recoderMenuiseries(etude,
                               choix == TypesConstruction().at(1) ? QStringLiteral("A7")
                                                                  : QStringLiteral("A6"));
        etat.TypeConstructionMemoire = type;
    }
    classeur.marquerModifiee();
    classeur.vue().grillesModifiees = true;
}

void MenuIdentite(Classeur &classeur)
{
    if (classeur.etat().FeuilleActive != 0) {
        classeur.ui().message(
            QStringLiteral("Vous devez être sur la feuille administrative pour exécuter "
                           "cette commande"),
            MessageArret, QStringLiteral("Thermique"));
        return;
    }
    classeur.ui().ouvrirFormulaire(QStringLiteral("Frm_Identité"));
}

void MenuMeteo(Classeur &classeur)
{
    // Cancelling the form keeps the site as it is.
    if (classeur.ui().ouvrirFormulaire(QStringLiteral("frm_Météo")))
        ApresChoixRegion(classeur);
}

void MenuDonneesMeteo(Classeur &classeur)
{
    // Without a site there is nothing to show.
    if (PositionDuSite(classeur.etude().flexGrid[0]))
        classeur.ui().ouvrirFormulaire(QStringLiteral("Frm_MétéoDonnées"));
}

void FeuilleAdministrative::construire(Classeur &classeur)
{
    // The study cannot start without an identity; a batch run has no form and goes on.
    Identite identite = LireIdentite(classeur.dossier());
    while (identite.vide() && classeur.ui().ouvrirFormulaire(QStringLiteral("Frm_Identité")))
        identite = LireIdentite(classeur.dossier());

    const EtatSession &etat = classeur.etat();
    ConstruireGrilleAdministrative(classeur.etude().flexGrid[0], etat.CouleurVerrouillee,
                                   etat.CouleurSaisie, identite.texte(), etat.UniteSurface,
                                   etat.UniteVolume);
    classeur.etat().LogoIdentite = false;
    m_ligneListe = -1;

    Classeur *c = &classeur;
    classeur.definirActionMenu(QStringLiteral("MnuIdentité"), [c] { MenuIdentite(*c); });
    classeur.definirActionMenu(QStringLiteral("Mnu_Météo"), [c] { MenuMeteo(*c); });
    classeur.definirActionMenu(QStringLiteral("Mnu_DonnéesMétéo"), [c] { MenuDonneesMeteo(*c); });
}

void FeuilleAdministrative::entrer(Classeur &)
{
    m_ligneListe = -1;
}

bool FeuilleAdministrative::clic(Classeur &classeur, int ligne, int colonne)
{
    const bool memeListe = m_ligneListe == ligne;
    m_ligneListe = -1;
    if (colonne <= 9 || (ligne != 9 && ligne != 12 && ligne != 13))
        return false;
    // A second click on the cell closes its list.
    if (memeListe)
        return false;
    const Grid &g = classeur.etude().flexGrid[0];
    const int debut = ligne == 9 ? 10 : 13;
    int largeur = 0;
    for (int c = debut; c <= 22; ++c)
        largeur += g.colWidth(c);
    ListeDeroulante &liste = classeur.vue().listes[ligne == 9 ? 0 : 1];
    liste.visible = true;
    liste.ligne = ligne;
    liste.colonne = debut;
    liste.largeur = largeur;
    liste.infobulle.clear();
    if (ligne == 9) {
        liste.elements = classeur.etat().FichiersMeteo;
        liste.hauteur = 3100;
    } else {
        liste.elements = ligne == 12 ? TypesConstruction() : Situations();
        liste.hauteur = int(liste.elements.size()) * 210 + 190;
    }
    m_ligneListe = ligne;
    classeur.vue().grillesModifiees = true;
    return true;
}

bool FeuilleAdministrative::clicDroit(Classeur &classeur, int ligne, int colonne)
{
    Grid &g = classeur.etude().flexGrid[0];
    if (ligne == 7 && colonne >= 11 && colonne <= 16) {
        remplir(g, 7, 11, 16, FormatDate(QDate::currentDate(), QStringLiteral("dd/mm/yyyy")));
        classeur.marquerModifiee();
        classeur.vue().grillesModifiees = true;
        return true;
    }
    if (ligne == 12 && colonne >= 11 && colonne <= 16) {
        classeur.ui().ouvrirDocument(classeur.dossier().fichier(
            QStringLiteral("FA Batiment-habitation - Individuel ou collectif.pdf")));
        return true;
    }
    if (ligne == 2 || ligne == 4)
        return classeur.ui().ouvrirFormulaire(QStringLiteral("Frm_BasesDonnées"));
    return false;
}

void FeuilleAdministrative::choixListe(Classeur &classeur, int liste, int index)
{
    const int ligne = m_ligneListe;
    m_ligneListe = -1;
    EtatSession &etat = classeur.etat();
    if (liste == 0) {
        // Swallowed once after a load, as the list may fire on its own then.
        if (etat.IgnorerCombo == 1) {
            etat.IgnorerCombo = 0;
            return;
        }
        if (ligne == 9 && index >= 0 && index < etat.FichiersMeteo.size())
            ChoixVille(classeur, etat.FichiersMeteo.at(index));
        return;
    }
    const QStringList elements = ligne == 12 ? TypesConstruction()
        : ligne == 13                        ? Situations()
                                             : QStringList();
    if (index >= 0 && index < elements.size())
        ChoisirDansListeAdministrative(classeur, ligne, elements.at(index));
}

QString FeuilleAdministrative::aide(const Classeur &classeur, int ligne, int colonne) const
{
    const Grid &g = classeur.etude().flexGrid[0];
    const int y = classeur.pointeurY();
    return AideAdministrative(y >= 0 ? y : MilieuLigne(g, ligne), colonne >= 12);
}

} // namespace thermique
