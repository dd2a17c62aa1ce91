#include "envelope/library/bibliotheque.h"

#include "envelope/coefu/feuillecoefu.h"
#include "workbook/calculatrice.h"
#include "workbook/classeur.h"
#include "workbook/nombres.h"
#include "workbook/records.h"
#include "workbook/userinterface.h"

#include <QFile>
#include <QSaveFile>

namespace thermique {

namespace C = ColonneParoi;

namespace {

const QString fenetreCoefficients = QStringLiteral("Coefficients de la fenêtre");

bool ligneVide(const Grid &g, int r)
{
    for (int c = 0; c < g.cols(); ++c)
        if (!g.text(r, c).trimmed().isEmpty())
            return false;
    return true;
}

bool estTete(const Grid &g, int r)
{
    const QString l = g.text(r, C::Libelle);
    return EstLigneSortie(l) || l.startsWith(QStringLiteral("Coefficient des profils"));
}

} // namespace

bool EcrireBibliotheque(const QString &chemin, const Grid &g)
{
    RecordWriter w;
    w.integer(g.rows()).integer(g.cols()).integer(g.fixedRows).integer(g.fixedCols).endRecord();
    for (int r = 0; r < g.rows(); ++r) {
        QString ligne;
        for (int c = 0; c < g.cols(); ++c) {
            QString t = g.text(r, c);
            // A tab would split the cell on reading.
            t.replace(QLatin1Char('\t'), QLatin1Char(' '));
            t.replace(QLatin1Char('"'), QStringLiteral("$$$"));
            ligne += t + QLatin1Char('\t');
        }
        w.stringRecord(ligne);
    }
    for (int c = 0; c < g.cols(); ++c)
        w.integerRecord(g.colWidth(c));
    for (int r = 0; r < g.rows(); ++r)
        w.integerRecord(g.rowHeight(r));
    w.integerRecord(g.modeAffichage);
    w.integer(g.col).integer(g.row).endRecord();
    return EcrireFichier(chemin, w.bytes());
}

std::optional<Grid> LireBibliotheque(const QString &chemin)
{
    QFile f(chemin);
    if (!f.open(QIODevice::ReadOnly))
        return std::nullopt;
    RecordReader lecteur(f.read(64 << 20));
    const auto lignes = lecteur.readInteger(1, 100000);
    const auto colonnes = lecteur.readInteger(1, 200);
    const auto fixesL = lecteur.readInteger(0, 100000);
    const auto fixesC = lecteur.readInteger(0, 200);
    if (!lecteur.ok())
        return std::nullopt;
    Grid g {int(*lignes), int(*colonnes)};
    g.fixedRows = int(std::min(*fixesL, *lignes));
    g.fixedCols = int(std::min(*fixesC, *colonnes));
    for (int r = 0; r < g.rows(); ++r) {
        const auto texte = lecteur.readString();
        if (!texte)
            return g;
        const QStringList cellules = texte->split(QLatin1Char('\t'));
        for (int c = 0; c < g.cols() && c < cellules.size(); ++c) {
            QString t = cellules[c];
            g.setText(r, c, t.replace(QStringLiteral("$$$"), QStringLiteral("\"")));
        }
    }
    for (int c = 0; c < g.cols(); ++c) {
        const auto l = lecteur.readInteger(0, 1000000);
        if (!l)
            return g;
        g.setColWidth(c, int(*l));
    }
    for (int r = 0; r < g.rows(); ++r) {
        const auto h = lecteur.readInteger(0, 1000000);
        if (!h)
            return g;
        g.setRowHeight(r, int(*h));
    }
    g.modeAffichage = int(lecteur.integer(g.modeAffichage));
    g.col = int(std::clamp<qint64>(lecteur.integer(1), 0, g.cols() - 1));
    g.row = int(std::clamp<qint64>(lecteur.integer(g.fixedRows), 0, g.rows() - 1));
    return g;
}

void PeindreBlocs(ContexteParois &ctx)
{
    for (int r = ctx.grille.fixedRows; r < ctx.grille.rows(); ++r)
        if (estTete(ctx.grille, r))
            PeindreBloc(ctx, r);
}

BibliothequeParois::BibliothequeParois(UserInterface &ui, qint32 couleurVerrouillee,
                                       qint32 couleurSaisie)
    : m_ui(ui)
    , m_verrou(couleurVerrouillee)
    , m_saisie(couleurSaisie)
{
    ConstruireGrilleParois(m_grille);
}

ContexteParois BibliothequeParois::contexte()
{
    return ContexteParois {m_grille,         m_ui,     m_compteur, m_verrou, m_saisie,
                           typeConstruction, &fenetres};
}

void BibliothequeParois::charger(const QString &chemin)
{
    auto lue = LireBibliotheque(chemin);
    if (!lue || lue->rows() < 3) {
        ConstruireGrilleParois(m_grille);
        return;
    }
    m_grille = std::move(*lue);
    if (m_grille.cols() != C::Nombre)
        m_grille.setCols(C::Nombre);
    // λ does not exist in the file's code page.
    m_grille.setText(1, C::Conductivite, QStringLiteral("λ"));
    m_compteur = 0;
    for (int r = m_grille.fixedRows; r < m_grille.rows(); ++r) {
        if (m_grille.text(r, C::Libelle).startsWith(fenetreCoefficients)) {
            m_grille.modeFusion = 1;
            m_grille.setMergeRow(r, true);
        }
        m_compteur = std::max(m_compteur, int(ValNombre(m_grille.text(r, C::Cle))));
    }
    ContexteParois ctx = contexte();
    PeindreBlocs(ctx);
}

bool BibliothequeParois::enregistrer(const QString &chemin) const
{
    return EcrireBibliotheque(chemin, m_grille);
}

bool BibliothequeParois::selectionnee(int ligne) const
{
    return m_grille.contient(ligne, C::Nom)
        && m_grille.attributs(ligne, C::Nom).couleurFond == CouleurSelection;
}

void BibliothequeParois::clic(int ligne, int colonne)
{
    liste.visible = false;
    m_grille.row = std::clamp(ligne, 0, m_grille.rows() - 1);
    m_grille.col = std::clamp(colonne, 0, m_grille.cols() - 1);
    if (OutilParois(m_grille, m_verrou, ligne, colonne).genre != OutilCellule::ListeTypes)
        return;
    m_liste = Liste::Types;
    liste.elements = TypesParois();
    liste.largeur = 4200;
    liste.ligne = ligne;
    liste.colonne = colonne;
    liste.hauteur = int(liste.elements.size()) * 210 + 190;
    liste.visible = true;
}

QString BibliothequeParois::clicDroit(int ligne, int colonne, bool majuscule)
{
    if (liste.visible) {
        liste.visible = false;
        return {};
    }
    if (!m_grille.contient(ligne, colonne) || ligne < m_grille.fixedRows)
        return {};
    m_grille.row = ligne;
    m_grille.col = colonne;
    if (majuscule) {
        if (colonne == C::Nom && estTete(m_grille, ligne)) {
            Cell *p = m_grille.cellPtr(ligne, C::Nom);
            p->attributs.couleurFond
                = p->attributs.couleurFond == CouleurSelection ? m_saisie : CouleurSelection;
        }
        return {};
    }
    const OutilCellule outil = OutilParois(m_grille, m_verrou, ligne, colonne);
    switch (outil.genre) {
    case OutilCellule::ListeTypes:
        clic(ligne, colonne);
        return {};
    case OutilCellule::ListeTeintes:
        m_liste = Liste::Teintes;
        liste.elements = ListeTeintes(m_grille.text(ligne, C::Teinte));
        liste.largeur = 1500;
        liste.ligne = ligne;
        liste.colonne = colonne;
        liste.hauteur = int(liste.elements.size()) * 210 + 190;
        liste.visible = true;
        return {};
    case OutilCellule::Formulaire:
        return outil.formulaire;
    case OutilCellule::Rien:
        break;
    }
    return {};
}

bool BibliothequeParois::verifierPlace(int debut, int fin)
{
    if (fin >= m_grille.rows())
        m_grille.setRows(fin + 1);
    for (int r = std::max(debut, 0); r <= fin; ++r) {
        if (ligneVide(m_grille, r))
            continue;
        m_ui.message(QStringLiteral("La plage de cellules disponibles pour l'insertion est "
                                    "insuffisante !\r\nUn espace, invisible dans une ligne, peut "
                                    "faire qu'une ligne ne soit pas vide.\r\nInsérez des lignes."),
                     MessageArret, QStringLiteral("Thermique"));
        return false;
    }
    return true;
}

void BibliothequeParois::choixListe(int index)
{
    const Liste genre = m_liste;
    m_liste = Liste::Aucune;
    if (!liste.visible || index < 0 || index >= liste.elements.size())
        return;
    liste.visible = false;
    const int ligne = liste.ligne;
    ContexteParois ctx = contexte();
    if (genre == Liste::Types) {
        const QString type = TypesParois().at(index);
        if (verifierPlace(ligne, ligne + NombreLignesBloc(type, &fenetres) - 1))
            EcrireBloc(ctx, ligne, type);
    } else if (genre == Liste::Teintes) {
        m_grille.setText(ligne, C::Teinte, ChoixTeinte(m_grille.text(ligne, C::Teinte), index));
        CalculU(ctx, ligne);
    }
}

void BibliothequeParois::valider(int ligne, int colonne, const QString &texte)
{
    if (!m_grille.contient(ligne, colonne) || m_grille.estVerrouillee(ligne, colonne, m_verrou))
        return;
    if (colonne < C::Epaisseur) {
        m_grille.setText(ligne, colonne, texte);
    } else {
        m_grille.setOperation(ligne, colonne, texte);
        if (texte.trimmed().isEmpty()) {
            m_grille.setText(ligne, colonne, texte);
        } else {
            QString expression = texte;
            const auto v = Calculatrice(expression, m_ui);
            m_grille.setText(ligne, colonne,
                             Format(v.value_or(0),
                                    colonne == C::Epaisseur ? QStringLiteral("##0.0000")
                                                            : QStringLiteral("##0.000")));
        }
    }
    ContexteParois ctx = contexte();
    ApresValidationParois(ctx, ligne, colonne);
}

void BibliothequeParois::touche(int code)
{
    Grid &g = m_grille;
    const int r = g.row;
    const int c = g.col;
    if (!g.contient(r, c) || r < g.fixedRows)
        return;
    switch (code) {
    case Touche::F2:
        insererLigne(r);
        break;
    case Touche::F3:
        supprimerLigne(r, c);
        break;
    case Touche::F4: {
        const bool verrouillee = g.estVerrouillee(r, c, m_verrou);
        for (int k = 1; k <= C::UNuit; ++k)
            g.cellPtr(r, k)->attributs.couleurFond = verrouillee ? m_saisie : m_verrou;
        break;
    }
    case Touche::F5: {
        Cell *p = g.cellPtr(r, c);
        p->attributs.couleurFond = p->attributs.couleurFond == m_verrou ? m_saisie : m_verrou;
        break;
    }
    case Touche::F6:
        g.cellPtr(r, c)->attributs.gras = !g.attributs(r, c).gras;
        break;
    default:
        break;
    }
}

void BibliothequeParois::insererLigne(int ligne)
{
    Grid &g = m_grille;
    QVector<qint32> couleurs;
    const bool nom = !g.text(ligne, C::Nom).trimmed().isEmpty();
    for (int c = 1; c <= C::UNuit; ++c)
        couleurs << ((nom && (c == C::Nom || c == C::ResistanceSuperficielle))
                         ? m_saisie
                         : g.attributs(ligne, c).couleurFond);
    g.insertRow(ligne + 1);
    for (int c = 1; c <= C::UNuit; ++c)
        g.cellPtr(ligne + 1, c)->attributs.couleurFond = couleurs[c - 1];
    g.row = ligne + 1;
    g.col = C::Libelle;
}

void BibliothequeParois::supprimerLigne(int ligne, int colonne)
{
    Grid &g = m_grille;
    ContexteParois ctx = contexte();
    if (colonne == C::Nom && estTete(g, ligne)) {
        if (!m_ui.question(QStringLiteral("Attention, effacement irrémédiable de la paroi."),
                           QStringLiteral("Thermique.")))
            return;
        int fin = FinBloc(g, ligne);
        while (fin + 1 < g.rows() - 1 && ligneVide(g, fin + 1))
            ++fin;
        g.removeRows(ligne, std::min(fin - ligne + 1, g.rows() - 1 - ligne));
    } else {
        if (ligne >= g.rows() - 1)
            return;
        if (LibelleLigneFixe(g.text(ligne, C::Libelle)))
            return;
        if (ligne > 0 && g.estVerrouillee(ligne - 1, colonne, m_verrou)
            && g.estVerrouillee(ligne + 1, colonne, m_verrou))
            return;
        g.removeRow(ligne);
    }
    g.row = std::min(ligne, g.rows() - 1);
    CalculFeuilleU(ctx);
}

bool BibliothequeParois::effacer()
{
    if (!m_ui.question(QStringLiteral("Attention ! Effacement total de la bibliothèque de parois."),
                       QStringLiteral("Thermique.")))
        return false;
    ConstruireGrilleParois(m_grille);
    m_compteur = 0;
    return true;
}

int BibliothequeParois::transferer(Classeur &classeur)
{
    Study &etude = classeur.etude();
    Grid &feuille = etude.flexGrid[1];
    for (int r = 1; r <= 2; ++r)
        for (int c = 0; c < std::min(feuille.cols(), m_grille.cols()); ++c)
            feuille.setText(r, c, m_grille.text(r, c));
    // An empty sheet starts its keys again; walls already there keep theirs and the new
    // ones follow them, so that no heat-loss row is tied to another wall.
    int destination = feuille.fixedRows;
    for (int r = feuille.fixedRows; r < feuille.rows(); ++r)
        if (!ligneVide(feuille, r))
            destination = r + 2;
    if (destination == feuille.fixedRows)
        etude.compteurParois = 0;
    const qint32 saisie = classeur.etat().CouleurSaisie;
    int copies = 0;
    for (int r = m_grille.fixedRows; r < m_grille.rows(); ++r) {
        if (!estTete(m_grille, r) || !selectionnee(r))
            continue;
        const int fin = FinBloc(m_grille, r);
        const int n = fin - r + 1;
        if (destination + n > feuille.rows())
            feuille.setRows(destination + n);
        for (int i = 0; i < n; ++i) {
            for (int c = 0; c < std::min(feuille.cols(), m_grille.cols()); ++c) {
                Cell *p = feuille.cellPtr(destination + i, c);
                *p = m_grille.cell(r + i, c);
                if (p->attributs.couleurFond == CouleurSelection)
                    p->attributs.couleurFond = saisie;
            }
            feuille.setRowHeight(destination + i, m_grille.rowHeight(r + i));
            feuille.setMergeRow(destination + i, m_grille.mergeRow(r + i));
        }
        ++etude.compteurParois;
        feuille.setText(destination, C::Cle, Format(etude.compteurParois, QStringLiteral("0000")));
        destination += n;
        r = fin;
        ++copies;
    }
    if (copies > 0) {
        classeur.marquerModifiee();
        classeur.vue().grillesModifiees = true;
    }
    return copies;
}

} // namespace thermique
