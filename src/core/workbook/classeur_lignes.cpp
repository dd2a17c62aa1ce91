// Line commands: insertion and removal of rows, block room checks, copy of a room table.
#include "classeur.h"
#include "feuille.h"
#include "userinterface.h"

#include <QVector>

namespace thermique {

namespace {

const QString titreThermique = QStringLiteral("Thermique");

bool ligneLibre(const QString &code)
{
    return code.trimmed().isEmpty();
}

bool ligneVide(const Grid &g, int r)
{
    for (int c = 0; c < g.cols(); ++c)
        if (!g.text(r, c).trimmed().isEmpty())
            return false;
    return true;
}

// Moves rows [debut, rows - 2] one row down into a grid grown by one row, as the line
// command does: texts, operations, the colours, alignment, bold and height follow; the
// other attributes stay with the place.
void decalerVersLeBas(Grid &g, int debut)
{
    const int derniere = g.rows();
    g.setRows(derniere + 1);
    for (int c = 0; c < g.cols(); ++c)
        g.setText(derniere, c, QStringLiteral(" "));
    g.setMergeRow(derniere, true);
    for (int r = derniere; r > debut; --r) {
        for (int c = 0; c < g.cols(); ++c) {
            Cell *dst = g.cellPtr(r, c);
            Cell *src = g.cellPtr(r - 1, c);
            dst->texte = src->texte;
            dst->operation = src->operation;
            dst->attributs.couleurFond = src->attributs.couleurFond;
            dst->attributs.alignement = src->attributs.alignement;
            dst->attributs.couleurTexte = src->attributs.couleurTexte;
            dst->attributs.gras = src->attributs.gras;
        }
        g.setRowHeight(r, g.rowHeight(r - 1));
        if (g.text(r, 6).startsWith(QStringLiteral("Coefficients de la fenêtre")))
            g.setMergeRow(r, g.mergeRow(r - 1));
    }
    for (int c = 0; c < g.cols(); ++c) {
        Cell *p = g.cellPtr(debut, c);
        p->texte.clear();
        p->operation.clear();
    }
}

} // namespace

bool LibelleLigneFixe(const QString &libelle)
{
    static const char *const fixes[] = {
        "Résistance d",
        "Coefficient des profils de menuiserie ",
        "Surface de menuiserie",
        "Surface de vitrage",
        "Coefficient surfacique du vitrage (Ug) :",
        "Coefficient linéique du vitrage (psi-g) :",
        "Longueur de liaison vit. men. (m) :",
    };
    for (const char *l : fixes)
        if (libelle.startsWith(QString::fromUtf8(l)))
            return true;
    return false;
}

void Classeur::InsererLigne()
{
    const int f = m_etat.FeuilleActive;
    Grid &g = grilleActive();
    if (f == 0 || f == 3 || f >= 5 || g.row < g.fixedRows || !g.contient(g.row, 0))
        return;
    const int ligne = g.row;
    const QString code = codeLigne(ligne);
    const bool tableau = f == 4 && m_etat.InsertionTableau == 5;
    if (f == 4 && !tableau && !code.startsWith(QLatin1String("TableauLigneCalcul"))
        && !code.startsWith(QLatin1String("TableauLigneRenouv")))
        return;

    // 1. The new line of the Coef-U sheet takes the look of the active one.
    QVector<qint32> couleurs;
    if (f == 1) {
        const bool nomParoi = !g.text(ligne, 1).trimmed().isEmpty();
        for (int c = 1; c <= std::min(m_etat.DerniereColonneSaisie, g.cols() - 1); ++c)
            couleurs << ((nomParoi && (c == 1 || c == 9)) ? m_etat.CouleurSaisie
                                                          : g.attributs(ligne, c).couleurFond);
    }

    if (tableau) {
        // 2. A new room table goes outside any table or before the one whose head is active.
        if (!ligneLibre(code) && code != QLatin1String("TableauLigne1")) {
            m_ui.message(QStringLiteral("Pour insérer un nouveau tableau :\r\n"
                                        "    - La cellule active doit se situer :\r\n"
                                        "       - Soit en dehors d'un tableau ;\r\n"
                                        "       - Soit dans la première ligne d'un tableau."),
                         MessageExclamation, m_vue.titre);
            return;
        }
        const int besoin = std::max(1, m_etat.NombreParois + m_etat.NombrePonts);
        int libres = 0;
        int r = ligne;
        while (libres < besoin) {
            if (r >= g.rows()) {
                const int debut = g.rows();
                g.setRows(debut + 5);
                for (int n = debut; n < g.rows(); ++n) {
                    for (int c = 0; c < g.cols(); ++c)
                        g.setText(n, c, QStringLiteral(" "));
                    g.setMergeRow(n, true);
                }
            }
            if (!ligneLibre(codeLigne(r)))
                break;
            ++libres;
            ++r;
        }
        // A table below the free run moves down to leave room.
        for (; libres < besoin; ++libres) {
            decalerVersLeBas(g, r);
            for (int c = 0; c < g.cols(); ++c)
                g.setText(r, c, QStringLiteral(" "));
            g.setMergeRow(r, true);
        }
        feuille(4).nouveauTableau(*this, ligne);
    } else {
        // 3 and 4. One row (three on the bridge sheet) below the active one.
        const int nombre = f == 2 ? 3 : 1;
        for (int i = 0; i < nombre; ++i)
            decalerVersLeBas(g, ligne + 1);
        if (f == 4) {
            for (int c = 0; c < g.cols(); ++c)
                g.setText(ligne + 1, c, QStringLiteral(" "));
            g.setMergeRow(ligne + 1, true);
            feuille(4).remplirLigneInseree(*this, ligne + 1);
        } else if (f == 1) {
            for (int i = 0; i < couleurs.size(); ++i)
                g.cellPtr(ligne + 1, i + 1)->attributs.couleurFond = couleurs[i];
            deplacer(ligne + 1, 6);
        }
    }
    marquerModifiee();
    m_vue.grillesModifiees = true;
}

void Classeur::SupprimerLigne()
{
    const int f = m_etat.FeuilleActive;
    Grid &g = grilleActive();
    const int ligne = g.row;
    if (f == 0 || f == 3 || f >= 5 || ligne < g.fixedRows || !g.contient(ligne, 0))
        return;
    const qint32 verrou = m_etat.CouleurVerrouillee;

    if (f == 1 && g.col == 1) {
        // The whole wall.
        const QString numero = g.text(ligne, 0).trimmed();
        const Grid &pertes = m_etude.flexGrid[4];
        if (!numero.isEmpty())
            for (int r = 0; r < pertes.rows(); ++r)
                if (pertes.text(r, 20).trimmed() == numero) {
                    m_ui.message(
                        QStringLiteral("Il n'est pas possible d'effacer une paroi dans cette "
                                       "feuille lorsqu'elle est également présente dans la feuille "
                                       "de calcul des pertes de chaleur."),
                        MessageExclamation, QStringLiteral("Thermique."));
                    return;
                }
        if (!ligneVide(g, ligne)
            && !m_ui.question(QStringLiteral("Attention, effacement irrémédiable de la paroi."),
                              m_vue.titre))
            return;
        int fin = ligne;
        while (fin + 1 < g.rows() && !ligneVide(g, fin + 1)
               && g.text(fin + 1, 1).trimmed().isEmpty())
            ++fin;
        while (fin + 1 < g.rows() && ligneVide(g, fin + 1))
            ++fin;
        int debut = ligne;
        bool premiere = true;
        for (int r = g.fixedRows; r < ligne; ++r)
            if (!ligneVide(g, r)) {
                premiere = false;
                break;
            }
        if (!premiere)
            while (debut - 1 >= g.fixedRows && ligneVide(g, debut - 1))
                --debut;
        int nombre = fin - debut + 1;
        nombre = std::min(nombre, g.rows() - (debut + 1));
        if (nombre > 0)
            g.removeRows(debut, nombre);
        deplacer(std::min(debut, g.rows() - 1), 1);
        feuille(1).recalculerFeuille(*this);
        marquerModifiee();
        m_vue.grillesModifiees = true;
        return;
    }

    // The last row of a grid stays.
    if (ligne >= g.rows() - 1)
        return;

    if (f == 1) {
        if (ligne > 0 && g.estVerrouillee(ligne - 1, g.col, verrou)
            && g.estVerrouillee(ligne + 1, g.col, verrou))
            return;
        if (LibelleLigneFixe(g.text(ligne, 6)))
            return;
        const bool colonne6 = g.col == 6;
        g.removeRow(ligne);
        if (colonne6)
            feuille(1).recalculerLigne(*this, ligne);
        feuille(1).recalculerFeuille(*this);
    } else if (f == 2) {
        g.removeRow(ligne);
        feuille(2).recalculerFeuille(*this);
    } else {
        const QString code = codeLigne(ligne);
        if (code == QLatin1String("TableauLigne2")
            || code == QLatin1String("TableauLigneRenouvellementAir")
            || code == QStringLiteral("TableauLigneRésultats")
            || code == QLatin1String("TableauInterTableau"))
            return;
        if (code == QLatin1String("TableauLigne1")) {
            if (!m_ui.question(QStringLiteral("Attention, depuis cette ligne la commande efface le "
                                              "tableau complet du local."),
                               m_vue.titre))
                return;
            int fin = ligne;
            while (fin + 1 < g.rows() && codeLigne(fin) != QLatin1String("TableauInterTableau"))
                ++fin;
            const int nombre = std::min(fin - ligne + 1, g.rows() - (ligne + 1));
            g.removeRows(ligne, nombre);
        } else if (code.startsWith(QLatin1String("TableauLigneCalcul"))) {
            g.removeRow(ligne);
        } else {
            // A free row between tables.
            g.removeRow(ligne);
        }
        recalculerResultats();
        m_vue.saisie.visible = false;
    }
    deplacer(std::min(ligne, g.rows() - 1), g.col);
    marquerModifiee();
    m_vue.grillesModifiees = true;
}

bool Classeur::VerifierPlace(int debut, int fin)
{
    Grid &g = m_etude.flexGrid[1];
    if (fin >= g.rows())
        g.setRows(fin + 1);
    for (int r = std::max(debut, 0); r <= fin; ++r) {
        // A blank is data here: it is the invisible blank that the message warns about.
        bool occupee = false;
        for (int c = 0; c < g.cols() && !occupee; ++c)
            occupee = !g.text(r, c).isEmpty();
        if (!occupee)
            continue;
        m_ui.message(QStringLiteral("La plage de cellules disponibles pour l'insertion est "
                                    "insuffisante !\r\nUn espace, invisible dans une ligne, peut "
                                    "faire qu'une ligne ne soit pas vide.\r\nInsérez des lignes."),
                     MessageArret, titreThermique);
        FermerListes();
        m_etat.IgnorerCombo = 1;
        m_etat.LigneFinBloc = 0;
        return false;
    }
    return true;
}

void Classeur::CopierTableau()
{
    if (m_etat.FeuilleActive != 4)
        return;
    Grid &g = m_etude.flexGrid[4];
    const int ligne = g.row;
    if (codeLigne(ligne) != QLatin1String("TableauLigne1") || g.col < 1 || g.col > 6) {
        m_ui.message(QStringLiteral("Pour copier un tableau la cellule active doit se situer dans "
                                    "la cellule nom du local."),
                     MessageExclamation, titreThermique);
        return;
    }
    int fin = ligne;
    while (fin + 1 < g.rows() && codeLigne(fin) != QLatin1String("TableauInterTableau"))
        ++fin;
    Grid copie(1 + fin - ligne + 1, g.cols());
    copie.fixedRows = g.fixedRows;
    copie.fixedCols = g.fixedCols;
    for (int r = ligne; r <= fin; ++r) {
        const int cible = 1 + r - ligne;
        for (int c = 0; c < g.cols(); ++c)
            *copie.cellPtr(cible, c) = g.cell(r, c);
        copie.setRowHeight(cible, g.rowHeight(r));
        copie.setMergeRow(cible, g.mergeRow(r));
    }
    m_copieTableau = std::move(copie);
    majBoutons();
}

void Classeur::CollerTableau()
{
    if (m_etat.FeuilleActive != 4 || m_copieTableau.rows() <= 1)
        return;
    Grid &g = m_etude.flexGrid[4];
    const int ligne = g.row;
    const QString code = codeLigne(ligne);
    if (!ligneLibre(code) && code != QLatin1String("TableauLigne1"))
        return;
    const int nombre = m_copieTableau.rows() - 1;
    for (int i = 0; i < nombre; ++i)
        decalerVersLeBas(g, ligne);
    for (int i = 0; i < nombre; ++i) {
        const int r = ligne + i;
        for (int c = 0; c < g.cols() && c < m_copieTableau.cols(); ++c)
            *g.cellPtr(r, c) = m_copieTableau.cell(i + 1, c);
        g.setRowHeight(r, m_copieTableau.rowHeight(i + 1));
        g.setMergeRow(r, m_copieTableau.mergeRow(i + 1));
    }
    // The pasted rows take the look of their row codes again, then every room is redone.
    feuille(4).miseEnForme(*this);
    for (int i = 0; i < nombre; ++i)
        if (codeLigne(ligne + i).startsWith(QLatin1String("TableauLigneCalcul")))
            feuille(4).recalculerLigne(*this, ligne + i);
    recalculerResultats();
    marquerModifiee();
    m_vue.grillesModifiees = true;
}

} // namespace thermique
