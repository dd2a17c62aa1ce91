#include "feuillepertes.h"

#include "tableaupertes.h"

#include "administratif/identite.h"
#include "workbook/classeur.h"
#include "workbook/nombres.h"
#include "workbook/userinterface.h"

namespace thermique {

namespace C = ColonnePertes;

namespace {

const QString infobulleParois = QStringLiteral(
    "Lecture du code dans la fenêtre d'aide en bas de page. Clique pour sélectionner une paroi.");

CouleursPertes couleurs(const Classeur &c)
{
    CouleursPertes k;
    k.verrouillee = c.etat().CouleurVerrouillee;
    k.saisie = c.etat().CouleurSaisie;
    k.simplifie = c.etat().ModeTransfert;
    return k;
}

Grid &grille(Classeur &c)
{
    return c.etude().flexGrid[4];
}

QStringList noms(const QStringList &entrees)
{
    QStringList n;
    for (const QString &e : entrees)
        n << e.section(QLatin1Char('@'), 0, 0);
    return n;
}

void ouvrirListe(Classeur &c, int indice, int ligne, int colonne, const QStringList &elements,
                 int hauteur, const QString &infobulle = {})
{
    ListeDeroulante &l = c.vue().listes[indice];
    l.visible = true;
    l.ligne = ligne;
    l.colonne = colonne;
    l.elements = elements;
    l.largeur = 0;
    l.hauteur = hauteur;
    l.infobulle = infobulle;
    c.etat().ListesOuvertes[indice] = QStringLiteral("Oui");
}

// Runs a calculation and then refreshes the building total.
template<typename F> void avecTotal(Classeur &c, F calcul)
{
    const double avant = CalculTotalPertes(grille(c));
    calcul();
    MettreAJourTotal(c, avant);
    c.vue().grillesModifiees = true;
}

// Rewrites a line for another wall or bridge; the quantity and b typed stay.
void remplacerLigne(Classeur &c, int ligne, const QString &entree, bool pont)
{
    Grid &g = grille(c);
    const Cell quantite = g.cell(ligne, C::Quantite);
    const Cell b = g.cell(ligne, C::B);
    if (pont)
        EcrireLignePont(g, ligne, couleurs(c), entree);
    else
        EcrireLigneParoi(g, ligne, couleurs(c), entree);
    g.setText(ligne, C::Quantite, quantite.texte);
    g.setOperation(ligne, C::Quantite, quantite.operation);
    g.setText(ligne, C::B, b.texte);
    g.setOperation(ligne, C::B, b.operation);
}

} // namespace

ContexteCalculPertes ContextePertes(Classeur &c)
{
    return {c.etude().flexGrid[4], c.etude().flexGrid[1], c.etude().flexGrid[3],
            c.etat().CouleurVerrouillee, c.etat().ModeTransfert};
}

void MettreAJourTotal(Classeur &c, double totalAvant)
{
    const double total = CalculTotalPertes(grille(c));
    c.vue().aide = QStringLiteral("Total calorifuites : ")
        + Format(total, QStringLiteral("###,###,##0")) + QStringLiteral(" W ");
    if (total == totalAvant)
        return;
    // The needs written on the cover were derived from the old total.
    Grid &admin = c.etude().flexGrid[0];
    for (int r : {14, 16})
        for (int col = 13; col < admin.cols(); ++col)
            admin.setText(r, col, QStringLiteral(" "));
}

void FeuillePertes::construire(Classeur &c)
{
    Grid &g = grille(c);
    g.resize(LignesPertes, ColonnesPertes);
    FormerGrillePertes(g);
    for (int r = 0; r < g.rows(); ++r)
        ViderLigne(g, r);
}

void FeuillePertes::apresValidation(Classeur &c, int ligne, int colonne)
{
    Grid &g = grille(c);
    const QString code = g.text(ligne, C::Code);
    ContexteCalculPertes ctx = ContextePertes(c);
    avecTotal(c, [&] {
        if (EstLigneCalcul(code)) {
            CalculLignePertes(ctx, ligne);
        } else if (code == CodePertes::Tete) {
            if (colonne >= C::NomLocal && colonne <= 6) {
                for (int col = C::NomLocal; col <= 6; ++col)
                    g.setText(ligne, col, g.text(ligne, colonne));
                return;
            }
            CalculLocal(ctx, ligne);
        } else if (code == CodePertes::Air) {
            CalculLocal(ctx, ligne);
        } else if (code == CodePertes::Resultats) {
            // The area is one merged cell over columns 2 and 3.
            if (colonne == C::Aire || colonne == 3)
                g.setText(ligne, 3, g.text(ligne, C::Aire));
            CalculVolume(ctx, ligne);
            CalculLocal(ctx, ligne);
        }
    });
}

bool FeuillePertes::clic(Classeur &c, int ligne, int colonne)
{
    Grid &g = grille(c);
    if (g.text(ligne, C::Code) == CodePertes::Tete && colonne == C::Emetteur) {
        m_liste = Liste::Emetteurs;
        m_ligneListe = ligne;
        ouvrirListe(c, 1, ligne, colonne, Emetteurs(), 7 * 210 + 190);
        return true;
    }
    // The surface of a window comes from its dimensions and number, with the data of the
    // solar calculation.
    const QString codeParoi = g.text(ligne, C::CodeParoi).trimmed();
    if (g.text(ligne, C::Code) == CodePertes::Paroi && colonne == C::Quantite
        && (codeParoi == QLatin1String("A6") || codeParoi == QLatin1String("A7"))) {
        if (!c.ui().ouvrirFormulaire(QStringLiteral("Frm_FenêtresDonnées")))
            return false;
        ContexteCalculPertes ctx = ContextePertes(c);
        avecTotal(c, [&] { CalculLignePertes(ctx, ligne); });
        return true;
    }
    return false;
}

bool FeuillePertes::clicDroit(Classeur &c, int ligne, int colonne)
{
    Grid &g = grille(c);
    EtatSession &s = c.etat();
    const QString code = g.text(ligne, C::Code);
    m_ligneListe = ligne;
    if (code == CodePertes::Tete && colonne >= C::NomLocal && colonne <= 6) {
        QStringList pieces = LireListePieces(c.dossier()).split(QStringLiteral("\r\n"));
        pieces.removeAll(QString());
        if (pieces.isEmpty())
            return false;
        m_liste = Liste::Pieces;
        ouvrirListe(c, 1, ligne, C::NomLocal, pieces, int(pieces.size()) * 210 + 190);
        return true;
    }
    if (code == CodePertes::Resultats && colonne == C::Recuperation) {
        // The exchanger form writes the recovery of the room; its air line follows.
        if (!c.ui().ouvrirFormulaire(QStringLiteral("Frm_RendementEchangeurDoubleFlux")))
            return false;
        ContexteCalculPertes ctx = ContextePertes(c);
        avecTotal(c, [&] { CalculLocal(ctx, ligne); });
        return true;
    }
    if (!EstLigneCalcul(code))
        return false;
    if (colonne >= C::Nom && colonne <= 6) {
        const bool pont = code == CodePertes::Pont;
        m_liste = pont ? Liste::Ponts : Liste::Parois;
        const QStringList elements = noms(pont ? s.ListePonts : s.ListeParois);
        ouvrirListe(c, 0, ligne, C::Nom, elements,
                    (pont ? s.NombrePonts : s.NombreParois) * 210 + 190, infobulleParois);
        return true;
    }
    if (colonne == C::Azimut && code == CodePertes::Paroi
        && !g.estVerrouillee(ligne, colonne, s.CouleurVerrouillee))
        return c.ui().ouvrirFormulaire(QStringLiteral("Frm_RoseDesVents"));
    if (colonne == C::B)
        return c.ui().ouvrirFormulaire(QStringLiteral("Frm_Calculb"));
    return false;
}

void FeuillePertes::choixListe(Classeur &c, int liste, int index)
{
    Q_UNUSED(liste);
    Grid &g = grille(c);
    const int ligne = m_ligneListe;
    const Liste choix = m_liste;
    m_liste = Liste::Aucune;
    ContexteCalculPertes ctx = ContextePertes(c);
    switch (choix) {
    case Liste::Parois:
    case Liste::Ponts: {
        const bool pont = choix == Liste::Ponts;
        const QStringList &entrees = pont ? c.etat().ListePonts : c.etat().ListeParois;
        if (index >= entrees.size())
            return;
        remplacerLigne(c, ligne, entrees[index], pont);
        avecTotal(c, [&] { CalculLignePertes(ctx, ligne); });
        break;
    }
    case Liste::Emetteurs:
        g.setText(ligne, C::Emetteur, Emetteurs().value(index));
        avecTotal(c, [&] { CalculLocal(ctx, ligne); });
        break;
    case Liste::Pieces: {
        const QString nom = c.vue().listes[1].elements.value(index);
        for (int col = C::NomLocal; col <= 6; ++col)
            g.setText(ligne, col, nom);
        break;
    }
    case Liste::Aucune:
        break;
    }
}

namespace {

// What the user can type or do in each column of a wall or bridge line.
struct AideColonne
{
    int colonne;
    const char *texte;
};
constexpr AideColonne aidesLigne[] = {
    {C::Inclinaison,
     "Inclinaison de la paroi en degrés : 0 plancher, 90 mur vertical, 180 "
     "plafond. Une opération est acceptée (ex. 90-30)."},
    {C::Azimut, "Orientation de la paroi : clic droit pour la rose des vents."},
    {C::UJour,
     "Coefficient U de jour, recopié de la feuille Coef - U et corrigé selon "
     "l'inclinaison."},
    {C::UNuit, "Coefficient U de nuit (volets fermés pour les menuiseries)."},
    {C::Quantite,
     "Surface (m²) d'une paroi ou longueur (m) d'un pont thermique ; une opération "
     "est acceptée, ex. 5.20*2.50-1.20*1.35. Pour une menuiserie, clic pour ses "
     "données complémentaires."},
    {C::B,
     "Coefficient de réduction de température b : 1.00 sur l'extérieur ; clic droit pour "
     "le choisir selon le local non chauffé."},
    {C::Pertes, "Pertes de la ligne (W) = quantité x U x ΔT x b."},
};

} // namespace

QString FeuillePertes::aide(const Classeur &c, int ligne, int colonne) const
{
    const Grid &g = c.etude().flexGrid[4];
    const QString code = g.text(ligne, C::Code);
    if (EstLigneCalcul(code)) {
        if (colonne >= C::Nom && colonne <= 6)
            return QStringLiteral("Code de la ligne : ") + g.text(ligne, C::CodeParoi).trimmed()
                + QStringLiteral(".\r\nClic droit pour changer de paroi.");
        for (const AideColonne &a : aidesLigne)
            if (a.colonne == colonne)
                return QString::fromUtf8(a.texte);
        return {};
    }
    if (code == CodePertes::Tete) {
        if (colonne >= C::NomLocal && colonne <= 6)
            return QStringLiteral("Nom du local : saisie au clavier, ou clic droit pour la liste "
                                  "des pièces.");
        if (colonne == C::TemperatureResultante)
            return QStringLiteral("Température résultante de consigne θrs du local (°C).");
        if (colonne == C::Emetteur)
            return QStringLiteral("Type d'émetteur : clic pour la liste ; il règle l'écart entre "
                                  "température d'air et température résultante.");
        return {};
    }
    if (code == CodePertes::Resultats) {
        if (colonne == C::Aire || colonne == C::Aire + 1)
            return QStringLiteral("Surface au sol du local (m²) ; une opération est acceptée.");
        if (colonne == C::Hauteur)
            return QStringLiteral("Hauteur sous plafond (m) ; au-dessus de 5 m un supplément "
                                  "pour grande hauteur est ajouté.");
        if (colonne == C::Pe)
            return QStringLiteral("Pe : terme de perméabilité complémentaire du local.");
        if (colonne == C::Qi)
            return QStringLiteral("Qi : débit d'extraction du local (m³/h).");
        if (colonne == C::Recuperation)
            return QStringLiteral("Rendement de l'échangeur double flux : clic droit pour le "
                                  "saisir.");
    }
    return {};
}

void FeuillePertes::recalculerResultats(Classeur &c)
{
    ContexteCalculPertes ctx = ContextePertes(c);
    avecTotal(c, [&] {
        Grid &g = grille(c);
        for (int r = 0; r < g.rows(); ++r)
            if (g.text(r, C::Code) == CodePertes::Resultats)
                CalculVolume(ctx, r);
        for (int tete : TetesTableaux(g))
            CalculLocal(ctx, tete);
    });
}

void FeuillePertes::miseEnForme(Classeur &c)
{
    RestaurerFormatPertes(grille(c), couleurs(c));
}

void FeuillePertes::recalculerFeuille(Classeur &c)
{
    Grid &g = grille(c);
    ContexteCalculPertes ctx = ContextePertes(c);
    avecTotal(c, [&] {
        ReevaluerOperations(g);
        for (int r = 0; r < g.rows(); ++r) {
            const QString code = g.text(r, C::Code);
            if (code == CodePertes::Paroi)
                CorrigerULigne(ctx, r);
            else if (code == CodePertes::Resultats)
                CalculVolume(ctx, r);
        }
        for (int tete : TetesTableaux(g))
            CalculLocal(ctx, tete);
    });
}

void FeuillePertes::remplirLigneInseree(Classeur &c, int ligne)
{
    // The choice form sets the kind of line; without it a wall line is added.
    if (!c.ui().ouvrirFormulaire(QStringLiteral("Frm_ChoixLigneCalorifuites")))
        c.etat().LigneInsereePont = false;
    Grid &g = grille(c);
    if (c.etat().LigneInsereePont)
        EcrireLignePont(g, ligne, couleurs(c), QString());
    else
        EcrireLigneParoi(g, ligne, couleurs(c), QString());
}

void FeuillePertes::recalculerLigne(Classeur &c, int ligne)
{
    ContexteCalculPertes ctx = ContextePertes(c);
    avecTotal(c, [&] {
        if (EstLigneCalcul(grille(c).text(ligne, C::Code)))
            CalculLignePertes(ctx, ligne);
        else
            CalculLocal(ctx, ligne);
    });
}

void FeuillePertes::nouveauTableau(Classeur &c, int ligne)
{
    EtatSession &s = c.etat();
    if (s.ListeParois.isEmpty()) {
        c.ui().message(QStringLiteral("Vous devez créer des parois, Onglet Coef-U, avant "
                                      "d'atteindre cette page."),
                       MessageOk, QStringLiteral("Thermique."));
        if (s.FeuilleActive == 4 && s.FeuilleQuittee != 4) {
            const int ignorer = s.IgnorerCombo;
            c.SelectionnerOnglet(s.FeuilleQuittee + 1);
            s.IgnorerCombo = ignorer;
        }
        return;
    }
    EcrireTableau(grille(c), ligne, couleurs(c), s.ListeParois, s.ListePonts,
                  c.etude().temperatureBaseCorrigee);
    c.vue().grillesModifiees = true;
}

// ---- Forms ------------------------------------------------------------------------------

const QVector<GroupeOptionsB> &OptionsCoefficientB()
{
    static const QStringList piece
        = {QStringLiteral(" 0.80 : Avec au moins 3 murs extérieurs (par ex. escalier extérieur)."),
           QStringLiteral(" 0.60 : Avec au moins 2 murs extérieurs et des portes extérieures ;"),
           QStringLiteral(" 0.50 : Avec seulement 2 murs extérieurs sans portes extérieures ;"),
           QStringLiteral(" 0.40 : Avec seulement 1 mur extérieur ;"),
           QStringLiteral(" 0.00 : Sans mur extérieur, taux de renouvellemnt d'air < 0.5 vh.")};
    static const QVector<GroupeOptionsB> options = {
        {QStringLiteral("Vide sanitaire :"),
         {QStringLiteral(" 1.00 : Aire des ouvertures / volume de l'espace > 0.005 m2 / m3."),
          QStringLiteral(" 0.50 : Vide sanitaire très faiblement ventilé.")}},
        {QStringLiteral("Circulation ouverte sur l'extérieure :"),
         {QStringLiteral(" 1.00 : Avec seulement 1 mur extérieur ;")}},
        {QStringLiteral("Circulation intérieure :"),
         {QStringLiteral(" 0.80 : Avec fenêtres ou portes extérieures."),
          QStringLiteral(" 0.50 : Sans fenêtre ni porte extérieure ;")}},
        {QStringLiteral("Espace sous toiture :"),
         {QStringLiteral(" 1.00 : Espace sous toiture fortement ventilé, sans feutre ou "
                         "panneaux en sous face ;"),
          QStringLiteral(" 0.90 : Autres toitures non isolée ;"),
          QStringLiteral(" 0.70 : Toiture isolée.")}},
        {QStringLiteral("Sous-sol :"), piece},
        {QStringLiteral("Pièce :"), piece},
    };
    return options;
}

void AppliquerCoefficientB(Classeur &c, const QString &option)
{
    Grid &g = grille(c);
    const int ligne = c.etat().LigneCourante;
    if (!EstLigneCalcul(g.text(ligne, C::Code)) || option.size() < 5)
        return;
    g.setText(ligne, C::B, option.mid(1, 4));
    g.setOperation(ligne, C::B, QString());
    c.marquerModifiee();
    ContexteCalculPertes ctx = ContextePertes(c);
    avecTotal(c, [&] { CalculLignePertes(ctx, ligne); });
}

const QVector<Orientation> &Orientations()
{
    static const QVector<Orientation> liste = {
        {QStringLiteral("N"), 180},   {QStringLiteral("Nne"), -157.5},
        {QStringLiteral("NE"), -135}, {QStringLiteral("Ene"), -112.5},
        {QStringLiteral("E"), -90},   {QStringLiteral("Ese"), -67.5},
        {QStringLiteral("SE"), -45},  {QStringLiteral("Sse"), -22.5},
        {QStringLiteral("S"), 0},     {QStringLiteral("Ss0"), 22.5},
        {QStringLiteral("SO"), 45},   {QStringLiteral("Oso"), 67.5},
        {QStringLiteral("O"), 90},    {QStringLiteral("Ono"), 112.5},
        {QStringLiteral("NO"), 135},  {QStringLiteral("Nno"), 157.5},
    };
    return liste;
}

void AppliquerRoseDesVents(Classeur &c, const QString &azimut, const QStringList &masques)
{
    Grid &rose = c.etude().roseDesVents;
    for (int i = 0; i < masques.size() && i + 1 < rose.rows(); ++i)
        rose.setText(i + 1, 1, masques[i].trimmed().isEmpty() ? QStringLiteral("0") : masques[i]);
    Grid &g = grille(c);
    const int ligne = c.etat().LigneCourante;
    if (g.text(ligne, C::Code) == CodePertes::Paroi && !azimut.trimmed().isEmpty())
        g.setText(ligne, C::Azimut, azimut.trimmed());
    c.marquerModifiee();
    c.vue().grillesModifiees = true;
}

void ChoisirLigneInseree(Classeur &c, bool pont)
{
    c.etat().LigneInsereePont = pont;
}

} // namespace thermique
