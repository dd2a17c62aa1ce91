#include "fichierprojet.h"

#include "records.h"

#include <algorithm>

namespace thermique {

namespace {

const QString guillemet = QStringLiteral("\"");
const QString remplacementGuillemet = QStringLiteral("$$$");

// ---- Checks on sizes read from a file ---------------------------------------------------

// A cell takes at least this many characters in a block, whatever the format: a size that
// the rest of the data cannot hold is damage, not a reason to allocate.
constexpr qsizetype caracteresParCellule = 30;

bool tailleAcceptable(qint64 rows, qint64 cols, qsizetype restant)
{
    if (rows < 0 || cols < 0 || rows > LignesMaximum || cols > ColonnesMaximum)
        return false;
    return rows * cols * caracteresParCellule <= qint64(restant) + caracteresParCellule;
}

// ---- Cell attributes --------------------------------------------------------------------

void ecrireAttributs(RecordWriter &w, const CellAttributes &a)
{
    w.booleanRecord(a.gras);
    w.integerRecord(a.alignement);
    w.integerRecord(a.couleurFond);
    w.booleanRecord(a.italique);
    w.stringRecord(a.police);
    w.single(a.taillePolice).endRecord();
    w.booleanRecord(a.barre);
    w.booleanRecord(a.souligne);
    w.integerRecord(a.couleurTexte);
    w.integerRecord(a.styleTexte);
}

qint32 lireLong(RecordReader &r)
{
    // Colours above 0x7FFFFFFF are system colours written either way.
    const qint64 v = r.readInteger(INT32_MIN, UINT32_MAX).value_or(0);
    return qint32(quint32(v));
}

void lireAttributs(RecordReader &r, CellAttributes &a)
{
    a.gras = r.boolean();
    a.alignement = qint32(r.integer());
    a.couleurFond = lireLong(r);
    a.italique = r.boolean();
    a.police = r.string();
    a.taillePolice = float(r.number());
    a.barre = r.boolean();
    a.souligne = r.boolean();
    a.couleurTexte = lireLong(r);
    a.styleTexte = qint32(r.integer());
}

QString texteEcrit(const QString &texte)
{
    QString t = texte;
    return t.replace(guillemet, remplacementGuillemet);
}

QString texteLu(QString texte)
{
    return texte.replace(remplacementGuillemet, guillemet);
}

// ---- Repairs of labels that the code page cannot hold -----------------------------------

void reparerTetePertes(Grid &g, int r)
{
    // Row r follows a room head: the temperature labels and the ΔT heading come back.
    if (r <= 0 || g.text(r - 1, 0) != QLatin1String("TableauLigne1"))
        return;
    g.setText(r - 1, 8, QStringLiteral("θrs :"));
    g.setText(r - 1, 10, QStringLiteral("θe  :"));
    g.setText(r - 1, 16, QStringLiteral("θa : "));
    g.setText(r, 16, QStringLiteral("ΔT\r\n(K)"));
}

void reparerLigneParois(Grid &g, int r)
{
    if (g.cols() > 0 && 22 < g.rows() * g.cols())
        g.setText(22 / g.cols(), 22 % g.cols(), QStringLiteral("λ"));
    if (!g.text(r, 6).startsWith(QStringLiteral("Coefficients de la fenêtre")))
        return;
    g.modeFusion = 1;
    g.setMergeRow(r, true);
    // Two equal neighbours would merge into one cell: a blank keeps them apart.
    if (g.cols() > 12 && g.text(r, 11) == g.text(r, 12)) {
        g.setText(r, 12, QLatin1Char(' ') + g.text(r, 12));
        g.cellPtr(r, 12)->attributs.alignement = AlignementDroiteCentre;
    }
}

void reparerLigne(Grid &g, int index, int r)
{
    if (index == 4)
        reparerTetePertes(g, r);
    else if (index == 1)
        reparerLigneParois(g, r);
}

// ---- Current format: sheet block --------------------------------------------------------

void ecrireBloc(RecordWriter &w, const Grid &g)
{
    w.integer(g.rows()).integer(g.cols()).integer(g.fixedRows).integer(g.fixedCols).endRecord();
    w.integerRecord(g.modeAffichage);
    w.integer(g.col).integer(g.row).endRecord();
    for (int r = 0; r < g.rows(); ++r) {
        w.integerRecord(g.rowHeight(r));
        const Cell *cellules = g.rowCells(r);
        for (int c = 0; c < g.cols(); ++c) {
            if (r == 0)
                w.integerRecord(g.colWidth(c));
            w.stringRecord(texteEcrit(cellules[c].texte));
            ecrireAttributs(w, cellules[c].attributs);
        }
    }
}

// Rows, Cols, FixedRows, FixedCols: the grid is made anew at that size when the rest of
// the data can hold it.
bool lireDimensions(RecordReader &r, Grid &g, qsizetype taille)
{
    const auto rows = r.readInteger();
    const auto cols = r.readInteger();
    const auto fixedRows = r.readInteger();
    const auto fixedCols = r.readInteger();
    if (!r.ok() || !tailleAcceptable(*rows, *cols, taille - r.position()))
        return false;
    // The merge flags are not in the file: those of the sheet as it was built stay, as a
    // grid resized in place keeps them.
    Grid neuve(static_cast<int>(*rows), static_cast<int>(*cols));
    for (int r = 0; r < std::min(g.rows(), neuve.rows()); ++r)
        neuve.setMergeRow(r, g.mergeRow(r));
    for (int c = 0; c < std::min(g.cols(), neuve.cols()); ++c)
        neuve.setMergeCol(c, g.mergeCol(c));
    neuve.modeFusion = g.modeFusion;
    g = std::move(neuve);
    g.fixedRows = int(*fixedRows);
    g.fixedCols = int(*fixedCols);
    return true;
}

bool lireBloc(RecordReader &r, Grid &g, int index, qsizetype taille)
{
    if (!lireDimensions(r, g, taille))
        return false;
    g.modeAffichage = int(r.integer());
    g.col = int(r.integer());
    g.row = int(r.integer());
    for (int ligne = 0; ligne < g.rows() && r.ok(); ++ligne) {
        g.setRowHeight(ligne, int(r.integer()));
        for (int c = 0; c < g.cols() && r.ok(); ++c) {
            if (ligne == 0)
                g.setColWidth(c, int(r.integer()));
            Cell *cell = g.cellPtr(ligne, c);
            cell->texte = texteLu(r.string());
            lireAttributs(r, cell->attributs);
        }
        reparerLigne(g, index, ligne);
    }
    return r.ok();
}

// ---- Operation blocks -------------------------------------------------------------------

// The walk goes one column past the last on purpose: index r * Cols + Cols is column 0 of
// the next row, so such an entry is written twice, and the reader takes it twice.
void ecrireOperations(RecordWriter &w, const Grid &g, int premiereLigne, int premiereColonne)
{
    QStringList entrees;
    for (int r = premiereLigne; r < g.rows(); ++r)
        for (int c = premiereColonne; c <= g.cols(); ++c) {
            const int index = r * g.cols() + c;
            const QString op = g.operationAt(index);
            if (!QString(op).remove(QLatin1Char(' ')).isEmpty())
                entrees << QString::number(index) + QStringLiteral("§") + op;
        }
    w.integerRecord(entrees.size());
    for (const QString &e : entrees)
        w.stringRecord(e);
}

bool lireOperations(RecordReader &r, Grid &g)
{
    const auto n = r.readInteger(0, INT32_MAX);
    if (!n)
        return false;
    g.clearOperations();
    for (qint64 i = 0; i < *n; ++i) {
        const auto entree = r.readString();
        if (!entree)
            return false;
        const qsizetype separateur = entree->indexOf(QStringLiteral("§"));
        if (separateur < 0)
            continue;
        bool ok = false;
        const int index = entree->left(separateur).trimmed().toInt(&ok);
        if (ok && index >= 0 && index <= g.rows() * g.cols())
            g.setOperationAt(index, entree->mid(separateur + 1));
    }
    return true;
}

void ecrireOperationsEtude(RecordWriter &w, const Study &e)
{
    ecrireOperations(w, e.flexGrid[1], 0, 0);
    ecrireOperations(w, e.flexGrid[3], 1, 12);
    ecrireOperations(w, e.flexGrid[4], 0, 0);
}

bool lireOperationsEtude(RecordReader &r, Study &e)
{
    return lireOperations(r, e.flexGrid[1]) && lireOperations(r, e.flexGrid[3])
        && lireOperations(r, e.flexGrid[4]);
}

// ---- Shared values: records 6 to 13 -----------------------------------------------------

void ecrireValeurs(RecordWriter &w, const Study &e)
{
    w.integerRecord(e.temperatureBaseCorrigee);
    for (int ligne = 1; ligne < Study::LignesRoseDesVents; ++ligne)
        w.stringRecord(e.roseDesVents.text(ligne, 1));
    w.integerRecord(e.compteurParois);
    const EtatTemperatureNuit &n = e.temperatureNuit;
    for (const QString &t : n.text2)
        w.stringRecord(t);
    for (int i = 0; i < n.check1Valeur.size(); ++i) {
        w.integerRecord(n.check1Valeur[i]);
        w.booleanRecord(n.check1Actif[i]);
    }
    for (const QString &t : n.text5)
        w.stringRecord(t);
    for (int i = 0; i < n.check4.size(); ++i) {
        w.integerRecord(n.check4[i]);
        w.integerRecord(n.check5[i]);
        w.integerRecord(n.check6[i]);
    }
    w.stringRecord(e.temperatureBaseEte);
}

bool lireValeurs(RecordReader &r, Study &e)
{
    e.temperatureBaseCorrigee = int(r.readInteger(-32768, 32767).value_or(0));
    e.roseDesVents = Grid(Study::LignesRoseDesVents, 2);
    for (int ligne = 1; ligne < Study::LignesRoseDesVents && r.ok(); ++ligne)
        e.roseDesVents.setText(ligne, 1, r.string());
    e.compteurParois = int(r.readInteger(-32768, 32767).value_or(0));
    EtatTemperatureNuit &n = e.temperatureNuit;
    for (QString &t : n.text2)
        t = r.string();
    for (int i = 0; i < n.check1Valeur.size(); ++i) {
        n.check1Valeur[i] = int(r.integer());
        n.check1Actif[i] = r.boolean(true);
    }
    for (QString &t : n.text5)
        t = r.string();
    for (int i = 0; i < n.check4.size(); ++i) {
        n.check4[i] = int(r.integer());
        n.check5[i] = int(r.integer());
        n.check6[i] = int(r.integer());
    }
    e.temperatureBaseEte = r.string();
    return r.ok();
}

// ---- Consumption grids: fixed sizes, texts only -----------------------------------------

void ecrireConsommations(RecordWriter &w, const Study &e)
{
    for (int i = 0; i < 13; ++i) {
        const Grid &g = e.flexGrid3[i];
        for (int r = 0; r < g.rows(); ++r)
            for (int c = 0; c < g.cols(); ++c)
                w.stringRecord(g.text(r, c));
    }
}

bool lireConsommations(RecordReader &r, Study &e, int colonnesAutres)
{
    // The file does not hold the sizes: the grids take theirs before reading.
    for (int i = 0; i < 13 && r.ok(); ++i) {
        Grid &g = e.flexGrid3[i];
        g.setCols(i == 0 ? 10 : colonnesAutres);
        for (int ligne = 0; ligne < g.rows() && r.ok(); ++ligne)
            for (int c = 0; c < g.cols() && r.ok(); ++c)
                g.setText(ligne, c, r.string());
    }
    return r.ok();
}

// ---- Earlier format: sheet block ----------------------------------------------------------

void ecrireBlocAncien(RecordWriter &w, const Grid &g, const GeometrieFenetre &fenetre)
{
    w.integer(g.rows()).integer(g.cols()).endRecord();
    w.integer(g.fixedRows).integer(g.fixedCols).endRecord();
    for (int r = 0; r < g.rows(); ++r) {
        QString ligne;
        for (int c = 0; c < g.cols(); ++c)
            ligne += texteEcrit(g.text(r, c)) + QLatin1Char('\t');
        w.stringRecord(ligne);
    }
    for (int c = 0; c < g.cols(); ++c)
        w.integerRecord(g.colWidth(c));
    for (int r = 0; r < g.rows(); ++r)
        w.integerRecord(g.rowHeight(r));
    w.integerRecord(g.modeAffichage);
    w.single(fenetre.top)
        .single(fenetre.left)
        .single(fenetre.height)
        .single(fenetre.width)
        .endRecord();
    w.integer(g.col).integer(g.row).endRecord();
    for (int r = 0; r < g.rows(); ++r)
        for (int c = 0; c < g.cols(); ++c)
            ecrireAttributs(w, g.attributs(r, c));
}

bool lireBlocAncien(RecordReader &r, Grid &g, int index, qsizetype taille)
{
    if (!lireDimensions(r, g, taille))
        return false;
    for (int ligne = 0; ligne < g.rows() && r.ok(); ++ligne) {
        const QStringList textes = r.string().split(QLatin1Char('\t'));
        for (int c = 0; c < g.cols() && c < textes.size(); ++c)
            g.setText(ligne, c, texteLu(textes[c]));
    }
    // The label repairs run once the texts are in, before the widths.
    for (int ligne = 0; ligne < g.rows(); ++ligne)
        reparerLigne(g, index, ligne);
    for (int c = 0; c < g.cols() && r.ok(); ++c)
        g.setColWidth(c, int(r.integer()));
    for (int ligne = 0; ligne < g.rows() && r.ok(); ++ligne)
        g.setRowHeight(ligne, int(r.integer()));
    r.readString();
    g.modeAffichage = 8;
    for (int i = 0; i < 4; ++i)
        r.readNumber();
    g.col = int(r.integer());
    g.row = int(r.integer());
    for (int ligne = 0; ligne < g.rows() && r.ok(); ++ligne)
        for (int c = 0; c < g.cols() && r.ok(); ++c)
            lireAttributs(r, g.cellPtr(ligne, c)->attributs);
    return r.ok();
}

// ---- The companion file -------------------------------------------------------------------

QByteArray ecrireCompagnon(const Grid &pertes)
{
    // A table is recognised from the row after its head, as the main loop goes.
    RecordWriter w;
    for (int r = 1; r < pertes.rows(); ++r) {
        if (pertes.text(r - 1, 0) != QLatin1String("TableauLigne1"))
            continue;
        w.stringRecord(pertes.text(r - 1, 11));
        w.stringRecord(pertes.text(r - 1, 17));
        for (int s = r; s < pertes.rows(); ++s)
            if (pertes.text(s, 0) == QStringLiteral("TableauLigneRésultats")) {
                w.stringRecord(pertes.text(s, 18));
                break;
            }
    }
    return w.bytes();
}

} // namespace

FichierEtude EcrireEtude(const Study &e)
{
    RecordWriter w;
    const GeometrieFenetre &f = e.fenetre;
    w.single(f.top).single(f.left).single(f.height).single(f.width).endRecord();
    for (const Grid &g : e.flexGrid)
        ecrireBloc(w, g);
    ecrireOperationsEtude(w, e);
    ecrireValeurs(w, e);
    ecrireConsommations(w, e);
    w.integerRecord(e.centrageFeuilles);
    return {w.bytes(), ecrireCompagnon(e.flexGrid[4])};
}

bool LireEtude(const QByteArray &octets, Study &e)
{
    RecordReader r(octets);
    const qsizetype taille = octets.size();
    GeometrieFenetre f;
    f.top = float(r.number());
    f.left = float(r.number());
    f.height = float(r.number());
    f.width = float(r.number());
    if (!r.ok())
        return false;
    e.fenetre = f;
    for (int i = 0; i < Study::NombreFeuilles; ++i)
        if (!lireBloc(r, e.flexGrid[i], i, taille))
            return false;
    if (!lireOperationsEtude(r, e) || !lireValeurs(r, e) || !lireConsommations(r, e, 3))
        return false;
    e.centrageFeuilles = int(r.readInteger(-32768, 32767).value_or(0));
    return r.ok();
}

bool LireAncienneEtude(const QByteArray &octets, Study &e)
{
    RecordReader r(octets);
    const qsizetype taille = octets.size();
    for (int i = 0; i < Study::NombreFeuilles; ++i)
        if (!lireBlocAncien(r, e.flexGrid[i], i, taille))
            return false;
    if (!lireOperationsEtude(r, e) || !lireValeurs(r, e) || !lireConsommations(r, e, 8))
        return false;
    e.centrageFeuilles = int(r.readInteger(-32768, 32767).value_or(0));
    return r.ok();
}

QByteArray EcrireInstantane(const Study &e, int feuille)
{
    RecordWriter w;
    ecrireBlocAncien(w, e.flexGrid[feuille], e.fenetre);
    if (feuille == 1 || feuille == 4)
        ecrireOperations(w, e.flexGrid[feuille], 0, 0);
    else if (feuille == 3)
        ecrireOperations(w, e.flexGrid[3], 1, 12);
    ecrireValeurs(w, e);
    w.integerRecord(e.centrageFeuilles);
    return w.bytes();
}

bool LireInstantane(const QByteArray &octets, Study &e, int feuille, bool lireQueue)
{
    if (feuille < 0 || feuille > 4)
        return false;
    RecordReader r(octets);
    if (!lireBlocAncien(r, e.flexGrid[feuille], feuille, octets.size()))
        return false;
    if ((feuille == 1 || feuille == 3 || feuille == 4) && !lireOperations(r, e.flexGrid[feuille]))
        return false;
    if (!lireQueue)
        return true;
    if (!lireValeurs(r, e))
        return false;
    e.centrageFeuilles = int(r.readInteger(-32768, 32767).value_or(0));
    return r.ok();
}

} // namespace thermique
