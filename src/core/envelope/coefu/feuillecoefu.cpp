#include "envelope/coefu/feuillecoefu.h"

#include "envelope/windows/calculfenetre.h"

#include "workbook/calculatrice.h"
#include "workbook/classeur.h"
#include "workbook/nombres.h"
#include "workbook/userinterface.h"

namespace thermique {

namespace C = ColonneParoi;

namespace {

struct Entete
{
    const char *ligne1;
    const char *ligne2;
    int largeur;
};

// Headings of rows 1 and 2 and the column widths.
constexpr Entete entetes[C::Nombre] = {
    {"", "", 10},
    {"Paroi", "Paroi", 3200},
    {"Teint", "Teint", 600},
    {"Code", "Code", 590},
    {"m", "m", 450},
    {"S", "S", 450},
    {"Composant", "Composant", 6500},
    {"d", "(m)", 680},
    {"λ", "(W/m)", 620},
    {"Rsi et Rse", "(m².K)/W", 1000},
    {"R", "(m².K)/W", 900},
    {"U jour", "W/(m².K)", 900},
    {"U nuit", "W/(m².K)", 900},
    {"", "", 10},
};

// Ground-floor rows whose value is a dimension: shown grouped, three decimals.
const char *const libellesDimensions[] = {
    "Aire du plancher", "Périmètre du plancher",  "Epai. mur sup.",
    "Profondeur",       "Largeur de l'isolation", "Hauteur de l'isolation",
};

bool ligneVide(const Grid &g, int r)
{
    for (int c = 0; c < g.cols(); ++c)
        if (!g.text(r, c).trimmed().isEmpty())
            return false;
    return true;
}

} // namespace

void ConstruireGrilleParois(Grid &g)
{
    g = Grid(40, C::Nombre);
    g.fixedRows = 3;
    g.fixedCols = 0;
    g.modeAffichage = 2;
    g.modeFusion = 1;
    for (int c = 0; c < C::Nombre; ++c) {
        const Entete &e = entetes[c];
        g.setText(1, c, QString::fromUtf8(e.ligne1));
        g.setText(2, c, QString::fromUtf8(e.ligne2));
        g.setColWidth(c, e.largeur);
        for (int r = 0; r < 3; ++r) {
            Cell *p = g.cellPtr(r, c);
            p->attributs.alignement = AlignementCentreCentre;
            p->attributs.couleurFond = CouleurSystemeFaceBouton;
        }
        // A word standing in both heading rows shows once.
        g.setMergeCol(c, !g.text(1, c).isEmpty() && g.text(1, c) == g.text(2, c));
    }
    g.row = 3;
    g.col = 1;
}

QString AideParois(const Grid &g, int ligne, int colonne)
{
    // A window block has its own texts.
    if (const QString a = AideFenetre(g, ligne, colonne); !a.isEmpty())
        return a;
    const QString libelle = g.text(ligne, C::Libelle);
    switch (colonne) {
    case C::Nom:
        return QStringLiteral(
            "Colonne 1 : clic dans une ligne vide pour choisir le type de paroi dans la liste "
            "(la place nécessaire au bloc doit être libre). Sur la ligne d'en-tête, le type peut "
            "être complété par un nom libre.");
    case C::Teinte:
        return QStringLiteral(
            "Teinte extérieure de la paroi : clic droit pour choisir Clair, Moyen, Sombre ou "
            "Noir. Une valeur d'absorption (0.40, 0.60, 0.80 ou 1.00) donne la liste des "
            "couleurs. Le facteur solaire S en dépend.");
    case C::Code:
        return QStringLiteral("Code d'emplacement de la paroi : A1 murs, A2 plafonds sous comble "
                              "ou rampant, A3 plafonds sous terrasse, A4 planchers, A6 ou A7 "
                              "menuiseries.");
    case C::Permeabilite:
        return QStringLiteral("Perméabilité à l'air m des menuiseries.");
    case C::FacteurSolaire:
        return QStringLiteral("Facteur solaire S de la paroi, calculé d'après U et la teinte.");
    case C::Libelle:
    case C::Epaisseur:
    case C::Conductivite:
        if (libelle.startsWith(QStringLiteral("Conductivité thermique du sol")))
            return QStringLiteral("Conductivité thermique du sol non gelé en W/(m.K) : 2.0 pour "
                                  "l'argile ou le limon, 1.5 pour le sable ou le gravier, 3.5 "
                                  "pour la roche homogène.");
        if (libelle.startsWith(QStringLiteral("Aire")) || libelle.startsWith(QStringLiteral("Pér"))
            || libelle.startsWith(QStringLiteral("Epai."))
            || libelle.startsWith(QStringLiteral("Prof"))
            || libelle.startsWith(QStringLiteral("Largeur"))
            || libelle.startsWith(QStringLiteral("Hauteur")))
            return QStringLiteral("Dimension en m ou en m², saisie dans la colonne d ; une "
                                  "opération est acceptée (ex. : 12.5*8.2).");
        if (colonne == C::Libelle)
            return QStringLiteral("Composant de la couche, de l'extérieur vers l'intérieur : clic "
                                  "droit pour choisir dans la bibliothèque des matériaux.");
        if (colonne == C::Epaisseur)
            return QStringLiteral("Epaisseur de la couche en m.");
        return QStringLiteral("Conductivité thermique utile de la couche en W/(m.K). Laissée "
                              "vide, la résistance R saisie est conservée.");
    case C::ResistanceSuperficielle:
        return QStringLiteral("Résistance superficielle en (m².K)/W : clic droit sur une ligne "
                              "« Résistance d'entrée » ou « Résistance de sortie » pour la "
                              "calculer.");
    case C::Resistance:
        return QStringLiteral("Résistance thermique de la couche en (m².K)/W : d/λ, ou la "
                              "valeur saisie lorsque λ est vide.");
    case C::UJour:
    case C::UNuit:
        return QStringLiteral("Coefficient de transmission surfacique U en W/(m².K).");
    default:
        return {};
    }
}

OutilCellule OutilParois(const Grid &g, qint32 verrou, int ligne, int colonne)
{
    if (ligne < g.fixedRows || !g.contient(ligne, colonne))
        return {};
    const QString libelle = g.text(ligne, C::Libelle);
    if (colonne == C::Nom && ligneVide(g, ligne))
        return {OutilCellule::ListeTypes, {}};
    const auto tete = ChercherEntêteParoi(g, ligne);
    if (!tete)
        return {};
    if (const QString f = FormulaireFenetre(g, ligne, colonne); !f.isEmpty())
        return {OutilCellule::Formulaire, f};
    if (colonne == C::Teinte && ligne == *tete && !g.text(ligne, C::Teinte).trimmed().isEmpty())
        return {OutilCellule::ListeTeintes, {}};
    if (colonne == C::ResistanceSuperficielle
        && (EstLigneEntree(libelle) || EstLigneSortie(libelle)))
        return {OutilCellule::Formulaire, QStringLiteral("Frm_RésistanceSuperficielle")};
    if (colonne == C::Libelle && ligne != *tete && !g.estVerrouillee(ligne, colonne, verrou))
        return {OutilCellule::Formulaire, QStringLiteral("frm_Composants")};
    return {};
}

void ApresValidationParois(ContexteParois &ctx, int ligne, int colonne)
{
    Grid &g = ctx.grille;
    if (colonne == C::Teinte) {
        if (ChercherEntêteParoi(g, ligne) == ligne)
            CalculU(ctx, ligne);
        return;
    }
    if (colonne < C::Libelle || colonne > C::Resistance)
        return;
    if (colonne == C::Epaisseur) {
        const QString libelle = g.text(ligne, C::Libelle);
        for (const char *l : libellesDimensions) {
            if (!libelle.startsWith(QString::fromUtf8(l)))
                continue;
            QString operation = g.operation(ligne, colonne);
            if (operation.trimmed().isEmpty())
                break;
            const auto v = Calculatrice(operation, ctx.ui);
            g.setText(ligne, colonne, Format(v.value_or(0), QStringLiteral("#,##0.000")));
            break;
        }
    }
    CalculU(ctx, ligne);
}

ContexteParois FeuilleCoefU::contexte(Classeur &classeur)
{
    Study &e = classeur.etude();
    return ContexteParois {e.flexGrid[1],
                           classeur.ui(),
                           e.compteurParois,
                           classeur.etat().CouleurVerrouillee,
                           classeur.etat().CouleurSaisie,
                           e.flexGrid[0].text(12, 13),
                           &fenetres};
}

void FeuilleCoefU::construire(Classeur &classeur)
{
    ConstruireGrilleParois(classeur.etude().flexGrid[1]);
    // The toolbar's library button of this sheet.
    classeur.definirActionMenu(QStringLiteral("Bouton5-1"), [&classeur] {
        classeur.ui().ouvrirFormulaire(QStringLiteral("Frm_Coefficient_U_Calcul"));
        classeur.vue().grillesModifiees = true;
    });
}

bool FeuilleCoefU::ouvrirListe(Classeur &classeur, int ligne, int colonne)
{
    const Grid &g = classeur.etude().flexGrid[1];
    const OutilCellule outil = OutilParois(g, classeur.etat().CouleurVerrouillee, ligne, colonne);
    ListeDeroulante &l = classeur.vue().listes[1];
    if (outil.genre == OutilCellule::ListeTypes) {
        m_liste = Liste::Types;
        l.elements = TypesParois();
        l.largeur = 4200;
    } else if (outil.genre == OutilCellule::ListeTeintes) {
        m_liste = Liste::Teintes;
        l.elements = ListeTeintes(g.text(ligne, C::Teinte));
        l.largeur = 1500;
    } else {
        return false;
    }
    l.ligne = ligne;
    l.colonne = colonne;
    l.hauteur = int(l.elements.size()) * 210 + 190;
    l.visible = true;
    classeur.etat().LigneCourante = ligne;
    classeur.etat().ColonneCourante = colonne;
    classeur.vue().grillesModifiees = true;
    return true;
}

bool FeuilleCoefU::clic(Classeur &classeur, int ligne, int colonne)
{
    // Only the type list opens on a left click: a tint cell may be typed into.
    if (colonne != C::Nom)
        return false;
    return ouvrirListe(classeur, ligne, colonne);
}

bool FeuilleCoefU::clicDroit(Classeur &classeur, int ligne, int colonne)
{
    if (ouvrirListe(classeur, ligne, colonne))
        return true;
    const OutilCellule outil = OutilParois(classeur.etude().flexGrid[1],
                                           classeur.etat().CouleurVerrouillee, ligne, colonne);
    if (outil.genre != OutilCellule::Formulaire)
        return false;
    if (classeur.ui().ouvrirFormulaire(outil.formulaire))
        classeur.marquerModifiee();
    classeur.vue().grillesModifiees = true;
    return true;
}

void FeuilleCoefU::choixListe(Classeur &classeur, int liste, int index)
{
    const Liste genre = m_liste;
    m_liste = Liste::Aucune;
    if (liste != 1)
        return;
    EtatSession &etat = classeur.etat();
    const int ligne = etat.LigneCourante;
    ContexteParois ctx = contexte(classeur);
    if (genre == Liste::Types) {
        if (index < 0 || index >= TypesParois().size())
            return;
        const QString type = TypesParois().at(index);
        const int fin = ligne + NombreLignesBloc(type, &fenetres) - 1;
        if (!classeur.VerifierPlace(ligne, fin))
            return;
        etat.LigneDebutBloc = ligne;
        etat.LigneFinBloc = fin;
        if (EcrireBloc(ctx, ligne, type)) {
            Grid &g = ctx.grille;
            g.row = ligne;
            g.col = C::Nom;
        }
    } else if (genre == Liste::Teintes) {
        Grid &g = ctx.grille;
        g.setText(ligne, C::Teinte, ChoixTeinte(g.text(ligne, C::Teinte), index));
        g.setOperation(ligne, C::Teinte, QString());
        CalculU(ctx, ligne);
    }
}

QString FeuilleCoefU::aide(const Classeur &classeur, int ligne, int colonne) const
{
    return AideParois(classeur.etude().flexGrid[1], ligne, colonne);
}

void FeuilleCoefU::apresValidation(Classeur &classeur, int ligne, int colonne)
{
    ContexteParois ctx = contexte(classeur);
    ApresValidationParois(ctx, ligne, colonne);
}

void FeuilleCoefU::recalculerFeuille(Classeur &classeur)
{
    ContexteParois ctx = contexte(classeur);
    CalculFeuilleU(ctx);
}

void FeuilleCoefU::recalculerLigne(Classeur &classeur, int ligne)
{
    ContexteParois ctx = contexte(classeur);
    CalculU(ctx, ligne, false);
}

} // namespace thermique
