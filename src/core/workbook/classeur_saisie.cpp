// The input box, keys, clicks and movement between input cells.
#include "calculatrice.h"
#include "classeur.h"
#include "feuille.h"
#include "nombres.h"
#include "userinterface.h"

namespace thermique {

namespace {

const QString titreThermique = QStringLiteral("Thermique");
const QString debitAir = QStringLiteral("Débit d'air renouvelé");
// RGB(0, 255, 255) as a stored colour: the box shows an operation.
constexpr qint32 couleurOperation = 0xFFFF00;

bool estLigneCalcul(const QString &code)
{
    return code.left(18) == QLatin1String("TableauLigneCalcul");
}

// Characters accepted by the strict input filter of the heat-loss sheet.
QString caracteresAutorises(const QString &code, int colonne)
{
    const QString chiffres = QStringLiteral("0123456789");
    const QString operation = chiffres + QStringLiteral("*+-./");
    if (code == QLatin1String("TableauLigne1")) {
        if (colonne >= 2 && colonne <= 6)
            return chiffres
                + QStringLiteral(" .)(-àèéçù°abcdefghijklmnopqrstuvwxyz"
                                 "ABCDEFGHIJKLMNOPQRSTUVWXYZ");
        if (colonne == 9)
            return chiffres + QLatin1Char('.');
        return {};
    }
    if (code == QLatin1String("TableauLigneCalculParoi")) {
        if (colonne == 7)
            return chiffres + QStringLiteral("*+-/");
        if (colonne == 10 || colonne == 11 || colonne == 17)
            return chiffres + QLatin1Char('.');
        if (colonne == 15)
            return operation;
        return {};
    }
    if (code == QLatin1String("TableauLigneCalculPontThermique")) {
        if (colonne == 15)
            return operation;
        if (colonne == 17)
            return chiffres + QLatin1Char('.');
        return {};
    }
    if (code == QLatin1String("TableauLigneRenouvellementAir"))
        return colonne == 17 ? chiffres + QLatin1Char('.') : QString();
    if (code == QStringLiteral("TableauLigneRésultats"))
        return (colonne == 3 || colonne == 5 || colonne == 11 || colonne == 13) ? operation
                                                                                : QString();
    return {};
}

// The character a key-down code stands for, or a null character for a key that types
// nothing (arrows, function keys...).
QChar caractereDeTouche(int code)
{
    if ((code >= 48 && code <= 57) || (code >= 65 && code <= 90) || code == 32)
        return QChar(code);
    if (code >= 96 && code <= 105)
        return QChar('0' + code - 96);
    switch (code) {
    case 106:
        return QLatin1Char('*');
    case 107:
    case 187:
        return QLatin1Char('+');
    case 109:
    case 189:
        return QLatin1Char('-');
    case 110:
    case 190:
        return QLatin1Char('.');
    case 111:
    case 191:
        return QLatin1Char('/');
    default:
        return {};
    }
}

} // namespace

// ---- Filters ------------------------------------------------------------------------------

bool Classeur::controleTouche(int code)
{
    if (!m_etat.SaisieControlee || m_etat.FeuilleActive != 4)
        return true;
    const QChar c = caractereDeTouche(code);
    if (c.isNull())
        return true;
    const Grid &g = m_etude.flexGrid[4];
    if (caracteresAutorises(codeLigne(g.row), g.col).contains(c, Qt::CaseInsensitive))
        return true;
    m_ui.message(QStringLiteral("Saisie non autorisée ici. ") + QString::number(code),
                 MessageExclamation, titreThermique);
    return false;
}

bool Classeur::controleCaractere(int code)
{
    if (!m_etat.SaisieControlee || m_etat.FeuilleActive != 4)
        return true;
    if (code == Touche::Retour || code == Touche::Entree || code == Touche::Echap
        || code == Touche::Espace || code == 66)
        return true;
    const Grid &g = m_etude.flexGrid[4];
    if (code > 32 && caracteresAutorises(codeLigne(g.row), g.col).contains(QChar(code)))
        return true;
    m_ui.message(QStringLiteral("Saisie non autorisé ici. ") + QString::number(code),
                 MessageExclamation, titreThermique);
    return false;
}

// ---- Movement -----------------------------------------------------------------------------

void Classeur::deplacer(int ligne, int colonne)
{
    Grid &g = grilleActive();
    g.row = std::clamp(ligne, 0, std::max(0, g.rows() - 1));
    g.col = std::clamp(colonne, 0, std::max(0, g.cols() - 1));
    g.rowSel = g.row;
    g.colSel = g.col;
    m_etat.LigneCourante = g.row;
    m_etat.ColonneCourante = g.col;
}

namespace {
// An input cell that can be reached: not locked and in a visible column.
bool accessible(const Grid &g, int r, int c, qint32 verrou)
{
    return g.contient(r, c) && !g.estVerrouillee(r, c, verrou) && g.colWidth(c) > 0;
}
} // namespace

void Classeur::CelluleSuivante()
{
    Grid &g = grilleActive();
    const int derniere = std::min(m_etat.DerniereColonneSaisie, g.cols() - 1);
    for (int r = std::max(g.row, 0); r < g.rows(); ++r)
        for (int c = 1; c <= derniere; ++c)
            if (accessible(g, r, c, m_etat.CouleurVerrouillee))
                return deplacer(r, c);
}

void Classeur::CellulePrecedente()
{
    Grid &g = grilleActive();
    const int derniere = std::min(m_etat.DerniereColonneSaisie, g.cols() - 1);
    for (int r = std::min(g.row, g.rows() - 1); r >= std::max(g.fixedRows, 1); --r)
        for (int c = derniere; c >= 1; --c)
            if (accessible(g, r, c, m_etat.CouleurVerrouillee))
                return deplacer(r, c);
    CelluleSuivante();
}

void Classeur::CelluleDroite()
{
    Grid &g = grilleActive();
    const int derniere = std::min(m_etat.DerniereColonneSaisie, g.cols() - 1);
    for (int c = g.col; c <= derniere; ++c)
        if (accessible(g, g.row, c, m_etat.CouleurVerrouillee))
            return deplacer(g.row, c);
    for (int r = g.row + 1; r < g.rows(); ++r)
        for (int c = 1; c <= derniere; ++c)
            if (accessible(g, r, c, m_etat.CouleurVerrouillee))
                return deplacer(r, c);
}

void Classeur::CelluleGauche()
{
    Grid &g = grilleActive();
    const int derniere = std::min(m_etat.DerniereColonneSaisie, g.cols() - 1);
    for (int c = g.col; c >= 1; --c)
        if (accessible(g, g.row, c, m_etat.CouleurVerrouillee))
            return deplacer(g.row, c);
    for (int r = g.row - 1; r >= 1; --r)
        for (int c = derniere; c >= 1; --c)
            if (accessible(g, r, c, m_etat.CouleurVerrouillee))
                return deplacer(r, c);
}

void Classeur::CelluleHaut()
{
    Grid &g = grilleActive();
    const int derniere = std::min(m_etat.DerniereColonneSaisie, g.cols() - 1);
    for (int r = g.row; r >= g.fixedRows + 1; --r)
        for (int c = derniere; c >= 1; --c)
            if (accessible(g, r, c, m_etat.CouleurVerrouillee))
                return deplacer(r, c);
    CelluleSuivante();
}

void Classeur::sautVerrouillee(int ligne, int colonne, const QString &sens)
{
    Grid &g = grilleActive();
    g.row = ligne;
    g.col = colonne;
    m_sensDeplacement = sens;
    if (sens == QLatin1String("Bas"))
        CelluleSuivante();
    else if (sens == QLatin1String("Haut"))
        CelluleHaut();
    else if (sens == QLatin1String("Gauche"))
        CelluleGauche();
    else if (sens == QLatin1String("Droite"))
        CelluleDroite();
    else if (sens == QLatin1String("Arriere"))
        CellulePrecedente();
    else
        CelluleSuivante();
    // Nowhere to go: back to the cell the user came from.
    if (g.estVerrouillee(g.row, g.col, m_etat.CouleurVerrouillee))
        deplacer(m_etat.LigneCourante, m_etat.ColonneCourante);
    m_etat.LigneCourante = g.row;
    m_etat.ColonneCourante = g.col;
}

// ---- Mouse --------------------------------------------------------------------------------

void Classeur::CliqueCellule(int ligne, int colonne)
{
    m_etat.ActionGrille = 1;
    if (m_vue.saisie.visible)
        ValiderSaisie();
    FermerListes();
    Grid &g = grilleActive();
    if (!g.contient(ligne, colonne))
        return;
    if (g.estVerrouillee(ligne, colonne, m_etat.CouleurVerrouillee)) {
        if (m_etat.FeuilleActive == 4) {
            // The temperature and area labels lead to their explanations.
            const QString t = g.text(ligne, colonne);
            if (t.endsWith(QLatin1String("rs :")) || t.endsWith(QLatin1String("e  :"))
                || t.endsWith(QLatin1String("a : ")))
                m_ui.ouvrirDocument(
                    m_dossier.fichier(QStringLiteral("Notions de confort thermique.pdf")));
            else if (t.startsWith(QLatin1String("Aire :")))
                m_ui.ouvrirDocument(m_dossier.fichier(QStringLiteral("Les surfaces RT2012.pdf")));
        }
        const int depuis = m_etat.LigneCourante;
        m_etat.LigneCourante = g.row;
        m_etat.ColonneCourante = g.col;
        sautVerrouillee(ligne, colonne,
                        ligne > depuis ? QStringLiteral("Avant") : QStringLiteral("Arriere"));
        m_vue.grillesModifiees = true;
        return;
    }
    deplacer(ligne, colonne);
    feuille(m_etat.FeuilleActive).clic(*this, ligne, colonne);
}

void Classeur::DoubleCliqueCellule(int ligne, int colonne)
{
    Grid &g = grilleActive();
    if (!g.contient(ligne, colonne))
        return;
    if (g.estVerrouillee(ligne, colonne, m_etat.CouleurVerrouillee)) {
        CliqueCellule(ligne, colonne);
        return;
    }
    deplacer(ligne, colonne);
    if (m_etat.FeuilleActive == 4 && colonne == 8
        && codeLigne(ligne) == QLatin1String("TableauLigneCalculParoi")) {
        m_ui.message(QStringLiteral("Dans cette colonne, vous ne devez que cliquer avec le bouton "
                                    "droit !"),
                     MessageExclamation, titreThermique);
        return;
    }
    ouvrirSaisie(ligne, colonne, 0);
}

void Classeur::ClicDroitCellule(int ligne, int colonne)
{
    if (m_vue.saisie.visible)
        ValiderSaisie();
    // A second click closes the list that is open.
    if (m_vue.listes[0].visible || m_vue.listes[1].visible) {
        FermerListes();
        return;
    }
    Grid &g = grilleActive();
    if (!g.contient(ligne, colonne))
        return;
    g.row = ligne;
    g.col = colonne;
    m_etat.LigneCourante = ligne;
    m_etat.ColonneCourante = colonne;
    feuille(m_etat.FeuilleActive).clicDroit(*this, ligne, colonne);
}

bool Classeur::EtendreSelection(int ligne, int colonne)
{
    Grid &g = grilleActive();
    if (!g.contient(ligne, colonne) || (g.rowSel == ligne && g.colSel == colonne))
        return false;
    g.rowSel = ligne;
    g.colSel = colonne;
    return true;
}

void Classeur::BoutonInformations()
{
    if (m_etat.FeuilleActive == 1)
        m_ui.ouvrirDocument(m_dossier.fichier(QStringLiteral("Bases Physique Batiment.pdf")));
}

void Classeur::SurvolCellule(int ligne, int colonne, bool majuscule, int yTwips)
{
    m_pointeurY = yTwips;
    // With Shift held the text stays, so that the pointer can reach the panel.
    if (majuscule)
        return;
    m_vue.image = feuille(m_etat.FeuilleActive).image(*this, ligne, colonne);
    const QString texte = feuille(m_etat.FeuilleActive).aide(*this, ligne, colonne);
    if (m_etat.FeuilleActive == 1 && !texte.isEmpty()) {
        m_vue.aide
            = texte
            + QStringLiteral(
                  "\r\nDans cette feuille, maintien du clic gauche dans une cellule quelconque et :"
                  "\r\n     F2 au clavier pour insérer une ligne ;"
                  "\r\n     F3 au clavier pour supprimer une ligne ;"
                  "\r\n     F4 au clavier pour changer la couleur de fond d'une ligne ;"
                  "\r\n     F5 au clavier pour changer la couleur de fond de la cellule "
                  "correspondante ;"
                  "\r\n     F6 au clavier pour changer les caractères correspondants "
                  "(Normaux/Gras).");
    } else if (!texte.isEmpty()) {
        m_vue.aide = texte;
    }
}

void Classeur::DefilementGrille()
{
    if (m_vue.saisie.visible)
        ValiderSaisie();
    FermerListes();
}

void Classeur::FermerListes()
{
    for (ListeDeroulante &l : m_vue.listes)
        l.visible = false;
    m_etat.ListesOuvertes.fill(QStringLiteral("Non"));
}

void Classeur::ChoixListe(int liste, int index)
{
    if (liste < 0 || liste > 1 || !m_vue.listes[liste].visible)
        return;
    const int n = int(m_vue.listes[liste].elements.size());
    FermerListes();
    if (index < 0 || index >= n)
        return;
    feuille(m_etat.FeuilleActive).choixListe(*this, liste, index);
    marquerModifiee();
    m_vue.grillesModifiees = true;
}

// ---- Keys on the grid -----------------------------------------------------------------------

void Classeur::ToucheEnfoncee(int code, int masque)
{
    if (!controleTouche(code))
        return;
    const int f = m_etat.FeuilleActive;
    // The bridge sheet takes its line commands from the toolbar only.
    if (f == 2)
        return;
    Grid &g = grilleActive();
    if (m_vue.listes[0].visible || m_vue.listes[1].visible) {
        g.row = m_etat.LigneCourante;
        g.col = m_etat.ColonneCourante;
        return;
    }
    m_etat.LigneCourante = g.row;
    m_etat.ColonneCourante = g.col;
    const bool ctrl = masque & Touche::MasqueCtrl;
    const qint32 verrou = m_etat.CouleurVerrouillee;

    if (f == 1 && ((ctrl && code == Touche::I) || code == Touche::F2)) {
        InsererLigne();
        m_vue.saisie.visible = false;
        return;
    }
    if (f == 1 && ((ctrl && code == Touche::S) || code == Touche::F3)) {
        SupprimerLigne();
        return;
    }
    if (f == 1 && code == Touche::F4) {
        const bool etaitVerrouillee = g.estVerrouillee(g.row, g.col, verrou);
        for (int c = 1; c <= std::min(m_etat.DerniereColonneSaisie, g.cols() - 1); ++c)
            g.cellPtr(g.row, c)->attributs.couleurFond
                = etaitVerrouillee ? m_etat.CouleurSaisie : verrou;
        marquerModifiee();
        m_vue.grillesModifiees = true;
        return;
    }
    if (f == 1 && code == Touche::F5) {
        if (Cell *p = g.cellPtr(g.row, g.col)) {
            p->attributs.couleurFond
                = p->attributs.couleurFond == verrou ? m_etat.CouleurSaisie : verrou;
            marquerModifiee();
            m_vue.grillesModifiees = true;
        }
        return;
    }
    if (f == 1 && code == Touche::F6) {
        if (Cell *p = g.cellPtr(g.row, g.col)) {
            p->attributs.gras = !p->attributs.gras;
            marquerModifiee();
            m_vue.grillesModifiees = true;
        }
        return;
    }
    if (f == 4 && ctrl && code == Touche::T) {
        const int ligne = g.row;
        m_etat.InsertionTableau = 5;
        InsererLigne();
        m_etat.InsertionTableau = 0;
        deplacer(ligne, 2);
        m_vue.saisie.visible = false;
        return;
    }
    if (f == 4 && ctrl && code == Touche::C) {
        CopierTableau();
        return;
    }
    if (f == 4 && ctrl && code == Touche::V) {
        CollerTableau();
        return;
    }
    if (code == Touche::Suppr) {
        effacerSelection();
        return;
    }

    int ligne = g.row;
    int colonne = g.col;
    QString sens;
    switch (code) {
    case Touche::Haut:
        ligne = g.row == 0 ? 1 : std::max(g.row - 1, g.fixedRows);
        sens = QStringLiteral("Haut");
        break;
    case Touche::Bas:
        if (g.row >= g.rows() - 1)
            ajouterLigneFin();
        ligne = g.row + 1;
        sens = QStringLiteral("Bas");
        break;
    case Touche::Gauche:
        colonne = g.col == 0 ? 1 : std::max(g.col - 1, std::max(g.fixedCols, 1));
        sens = QStringLiteral("Gauche");
        break;
    case Touche::Droite:
        colonne = std::min(g.col + 1, std::min(m_etat.DerniereColonneSaisie, g.cols() - 1));
        sens = QStringLiteral("Droite");
        break;
    default:
        return;
    }
    if (!g.contient(ligne, colonne))
        return;
    if (g.estVerrouillee(ligne, colonne, verrou) || g.colWidth(colonne) == 0)
        sautVerrouillee(ligne, colonne, sens);
    else
        deplacer(ligne, colonne);
}

void Classeur::ajouterLigneFin()
{
    Grid &g = grilleActive();
    const int r = g.rows();
    g.setRows(r + 1);
    if (m_etat.FeuilleActive == 4) {
        for (int c = 0; c < g.cols(); ++c)
            g.setText(r, c, QStringLiteral(" "));
        g.setMergeRow(r, true);
    }
    m_vue.grillesModifiees = true;
}

void Classeur::ToucheCaractere(int code)
{
    m_etat.ActionGrille = 1;
    const int f = m_etat.FeuilleActive;
    Grid &g = grilleActive();
    m_etat.LigneCourante = g.row;
    m_etat.ColonneCourante = g.col;
    if (!controleCaractere(code))
        return;
    if (f == 2 || f >= 5)
        return;
    if (f == 4) {
        if (code == 3 || code == 22)
            return;
        if (g.col == 8 && codeLigne(g.row) == QLatin1String("TableauLigneCalculParoi")) {
            m_ui.message(QStringLiteral("Dans cette colonne, vous ne devez cliquer qu'avec le "
                                        "bouton droit !"),
                         MessageExclamation, titreThermique);
            return;
        }
    }
    // Control characters other than the blank do not open the box.
    if (code < 32 || g.estVerrouillee(g.row, g.col, m_etat.CouleurVerrouillee))
        return;
    ouvrirSaisie(g.row, g.col, code);
    marquerModifiee();
}

// ---- The input box ------------------------------------------------------------------------

bool Classeur::celluleAOperation(int ligne, int colonne) const
{
    const Study &e = m_etude;
    switch (m_etat.FeuilleActive) {
    case 1:
        return colonne >= 7;
    case 3:
        return colonne >= 12
            && (e.flexGrid[3].text(ligne, 11).startsWith(debitAir)
                || e.flexGrid[3].text(ligne, 2).startsWith(debitAir));
    case 4: {
        const QString code = codeLigne(ligne);
        if (estLigneCalcul(code))
            return colonne == 7 || (colonne >= 10 && colonne <= 15) || colonne == 17;
        if (code == QLatin1String("TableauLigneRenouvellementAir"))
            return colonne == 17;
        if (code == QStringLiteral("TableauLigneRésultats"))
            return colonne == 2 || colonne == 5 || colonne == 11 || colonne == 13;
        return false;
    }
    default:
        return false;
    }
}

void Classeur::ouvrirSaisie(int ligne, int colonne, int touche)
{
    const int f = m_etat.FeuilleActive;
    if (f == 5)
        return;
    Grid &g = grilleActive();
    if (f == 4 && colonne == 3 && codeLigne(ligne) == QStringLiteral("TableauLigneRésultats"))
        colonne = 2;
    if (!g.contient(ligne, colonne))
        return;
    BoiteSaisie &b = m_vue.saisie;
    b.ligne = ligne;
    b.colonne = colonne;
    b.couleurFond = m_etat.CouleurSaisie;
    b.marge = QStringLiteral("AAA");
    b.extensible = f == 1 || f == 3 || f == 4;
    b.debutSelection = 1000;
    m_etat.LigneCourante = ligne;
    m_etat.ColonneCourante = colonne;
    if (touche >= 0 && touche <= 32) {
        const QString operation = g.operation(ligne, colonne);
        if ((f == 1 || f == 3 || f == 4) && !operation.trimmed().isEmpty()
            && celluleAOperation(ligne, colonne)) {
            b.texte = operation;
            b.couleurFond = couleurOperation;
            if (f == 3 || codeLigne(ligne) == QStringLiteral("TableauLigneRésultats"))
                b.marge = QStringLiteral("AAAAAAAAAA");
        } else {
            b.texte = g.text(ligne, colonne);
        }
    } else {
        b.texte = QChar(touche);
    }
    b.visible = true;
    majBoutons();
}

void Classeur::SaisieTexteChange(const QString &texte)
{
    if (m_vue.saisie.visible)
        m_vue.saisie.texte = texte;
}

bool Classeur::SaisieTouche(int code, int masque, bool caretAuDebut, bool caretALaFin)
{
    Q_UNUSED(masque);
    if (!m_vue.saisie.visible)
        return false;
    int deplacement = 0;
    switch (code) {
    case Touche::Echap:
        AnnulerSaisie();
        return true;
    case Touche::Entree:
        deplacement = Touche::Droite;
        break;
    case Touche::Haut:
    case Touche::Bas:
        deplacement = code;
        break;
    case Touche::Gauche:
        if (!caretAuDebut)
            return false;
        deplacement = code;
        break;
    case Touche::Droite:
        if (!caretALaFin)
            return false;
        deplacement = code;
        break;
    default:
        return false;
    }
    ValiderSaisie();
    ToucheEnfoncee(deplacement, 0);
    return true;
}

void Classeur::SaisiePerteFocus()
{
    ValiderSaisie();
}

void Classeur::AnnulerSaisie()
{
    m_vue.saisie.visible = false;
    m_vue.saisie.couleurFond = m_etat.CouleurSaisie;
}

void Classeur::ValiderSaisie()
{
    BoiteSaisie &b = m_vue.saisie;
    if (!b.visible)
        return;
    b.visible = false;
    b.couleurFond = m_etat.CouleurSaisie;
    const int ligne = b.ligne;
    const int colonne = b.colonne;
    const QString texte = b.texte;
    Grid &g = grilleActive();
    if (!g.contient(ligne, colonne))
        return;
    const QString avant = g.text(ligne, colonne);
    const QString operationAvant = g.operation(ligne, colonne);
    switch (m_etat.FeuilleActive) {
    case 0:
        validerFeuille0(ligne, colonne, texte);
        break;
    case 1:
        validerFeuille1(ligne, colonne, texte);
        break;
    case 3:
        validerFeuille3(ligne, colonne, texte);
        break;
    case 4:
        validerFeuille4(ligne, colonne, texte);
        break;
    default:
        g.setText(ligne, colonne, texte);
        break;
    }
    if (g.text(ligne, colonne) != avant || g.operation(ligne, colonne) != operationAvant)
        marquerModifiee();
    feuille(m_etat.FeuilleActive).apresValidation(*this, ligne, colonne);
    m_vue.grillesModifiees = true;
}

void Classeur::validerFeuille0(int ligne, int colonne, const QString &texte)
{
    Grid &g = m_etude.flexGrid[0];
    // Merged ranges hold the same text in each of their cells.
    struct Plage
    {
        int ligne, debut, fin;
    };
    static constexpr Plage plages[] = {{2, 12, 19}, {4, 12, 22}, {4, 1, 11}, {7, 4, 6}};
    for (const Plage &p : plages) {
        if (ligne == p.ligne && colonne >= p.debut && colonne <= p.fin) {
            for (int c = p.debut; c <= p.fin; ++c)
                g.setText(ligne, c, texte);
            return;
        }
    }
    g.setText(ligne, colonne, texte);
}

namespace {

// Stores the box text as the cell's operation and shows its value in the given format;
// an empty box clears both, a failed operation shows 0 (its text stays for the next edit).
void validerOperation(Grid &g, int ligne, int colonne, const QString &texte, UserInterface &ui,
                      const std::function<QString(double)> &format)
{
    g.setOperation(ligne, colonne, texte);
    if (texte.trimmed().isEmpty()) {
        g.setText(ligne, colonne, texte);
        return;
    }
    QString expression = texte;
    const auto valeur = Calculatrice(expression, ui);
    g.setText(ligne, colonne, format(valeur.value_or(0)));
}

} // namespace

void Classeur::validerFeuille1(int ligne, int colonne, const QString &texte)
{
    Grid &g = m_etude.flexGrid[1];
    if (colonne < 7) {
        g.setText(ligne, colonne, texte);
        return;
    }
    const QString motif = colonne == 7 ? QStringLiteral("##0.0000") : QStringLiteral("##0.000");
    validerOperation(g, ligne, colonne, texte, m_ui, [&](double v) { return Format(v, motif); });
}

void Classeur::validerFeuille3(int ligne, int colonne, const QString &texte)
{
    Grid &g = m_etude.flexGrid[3];
    if (celluleAOperation(ligne, colonne))
        validerOperation(g, ligne, colonne, texte, m_ui,
                         [](double v) { return Format(v, QStringLiteral("#,##0")); });
    else
        g.setText(ligne, colonne, texte);
}

void Classeur::validerFeuille4(int ligne, int colonne, const QString &texte)
{
    Grid &g = m_etude.flexGrid[4];
    if (!celluleAOperation(ligne, colonne)) {
        g.setText(ligne, colonne, texte);
        return;
    }
    const bool inclinaison = colonne == 7 && estLigneCalcul(codeLigne(ligne));
    validerOperation(g, ligne, colonne, texte, m_ui, [&](double v) {
        return inclinaison ? TexteNombre(v) : Format(v, QStringLiteral("#,##0.00"));
    });
    // The ground temperature of a wall changes every room's results.
    if (colonne == 10 && estLigneCalcul(codeLigne(ligne)))
        recalculerResultats();
}

void Classeur::recalculerResultats()
{
    m_etat.MiseAJourResultats = 1;
    feuille(4).recalculerResultats(*this);
    m_etat.MiseAJourResultats = 0;
}

// ---- Delete -------------------------------------------------------------------------------

void Classeur::effacerSelection()
{
    const int f = m_etat.FeuilleActive;
    Grid &g = grilleActive();
    const qint32 verrou = m_etat.CouleurVerrouillee;
    if (f == 0) {
        // The administrative sheet is cleared through the box, so that merged ranges follow.
        if (!g.contient(g.row, g.col) || g.estVerrouillee(g.row, g.col, verrou))
            return;
        ouvrirSaisie(g.row, g.col, 0);
        m_vue.saisie.texte = g.row == 4
            ? (g.col > 12 ? QStringLiteral("   ") : QStringLiteral("  "))
            : QStringLiteral(" ");
        ValiderSaisie();
        return;
    }
    int r1 = std::min(g.row, g.rowSel), r2 = std::max(g.row, g.rowSel);
    int c1 = std::min(g.col, g.colSel), c2 = std::max(g.col, g.colSel);
    if (f == 3) {
        r1 = std::max(r1, 3);
        r2 = std::min(r2, 6);
        c1 = std::max(c1, 12);
    }
    if (f == 4) {
        if (c1 == 2)
            c1 = 3;
        else if (c1 == 8)
            c1 = 9;
    }
    bool change = false;
    for (int r = r1; r <= r2; ++r) {
        const bool resultats = f == 4 && codeLigne(r) == QStringLiteral("TableauLigneRésultats");
        for (int c = c1; c <= c2; ++c) {
            if (!g.contient(r, c))
                continue;
            // Labels and results are locked: a selection over them leaves them as they are.
            if (g.estVerrouillee(r, c, verrou) && !(resultats && (c == 2 || c == 3 || c == 9)))
                continue;
            g.setText(r, c, QStringLiteral(" "));
            if (resultats && c == 3)
                g.setText(r, 2, QStringLiteral(" "));
            if (f == 3 || f == 4) {
                g.setOperation(r, c, QString());
                if (resultats && c == 3)
                    g.setOperation(r, 2, QString());
            }
            change = true;
        }
    }
    if (change)
        marquerModifiee();
    if (f == 4 && change)
        recalculerResultats();
    if (f == 3 && change)
        feuille(3).apresValidation(*this, g.row, g.col);
    m_vue.grillesModifiees = true;
}

} // namespace thermique
