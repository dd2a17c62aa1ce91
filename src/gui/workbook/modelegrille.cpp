#include "modelegrille.h"

#include "couleurs.h"

#include <QApplication>
#include <QFont>
#include <QPalette>

namespace thermique::gui {

namespace {

bool memesDimensions(const Grid &a, const Grid &b)
{
    for (int r = 0; r < a.rows(); ++r)
        if (a.rowHeight(r) != b.rowHeight(r))
            return false;
    for (int c = 0; c < a.cols(); ++c)
        if (a.colWidth(c) != b.colWidth(c))
            return false;
    return true;
}

bool memesFusions(const Grid &a, const Grid &b)
{
    if (a.fixedRows != b.fixedRows)
        return false;
    for (int r = 0; r < a.rows(); ++r)
        if (a.mergeRow(r) != b.mergeRow(r))
            return false;
    for (int c = 0; c < a.cols(); ++c)
        if (a.mergeCol(c) != b.mergeCol(c))
            return false;
    return true;
}

Qt::Alignment alignement(qint32 code, const QString &texte)
{
    switch (code) {
    case AlignementGaucheHaut:
        return Qt::AlignLeft | Qt::AlignTop;
    case AlignementGaucheCentre:
        return Qt::AlignLeft | Qt::AlignVCenter;
    case 2: // left bottom
        return Qt::AlignLeft | Qt::AlignBottom;
    case 3: // centre top
        return Qt::AlignHCenter | Qt::AlignTop;
    case AlignementCentreCentre:
        return Qt::AlignCenter;
    case 5: // centre bottom
        return Qt::AlignHCenter | Qt::AlignBottom;
    case AlignementDroiteHaut:
        return Qt::AlignRight | Qt::AlignTop;
    case AlignementDroiteCentre:
        return Qt::AlignRight | Qt::AlignVCenter;
    case 8: // right bottom
        return Qt::AlignRight | Qt::AlignBottom;
    default: // general
        return (estNombre(texte) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
    }
}

QFont police(const CellAttributes &a)
{
    QFont f = QApplication::font();
    // The old default face of the files is the application's sans face here.
    if (!a.police.isEmpty() && a.police != QLatin1String("MS Sans Serif"))
        f.setFamily(a.police);
    if (a.taillePolice > 0)
        f.setPointSizeF(a.taillePolice);
    f.setBold(a.gras);
    f.setItalic(a.italique);
    f.setUnderline(a.souligne);
    f.setStrikeOut(a.barre);
    return f;
}

} // namespace

QString texteAffiche(const QString &texte)
{
    if (!texte.contains(QLatin1Char('\r')))
        return texte;
    QString t = texte;
    t.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    t.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return t;
}

bool estNombre(const QString &texte)
{
    QString t = texte;
    t.remove(QChar(0x00A0));
    t.remove(QLatin1Char(' '));
    if (t.isEmpty())
        return false;
    bool ok = false;
    t.toDouble(&ok);
    return ok;
}

ModeleGrille::ModeleGrille(QObject *parent)
    : QAbstractTableModel(parent)
{ }

void ModeleGrille::definirGrille(const Grid *grille)
{
    if (grille == m_grille)
        return;
    beginResetModel();
    m_grille = grille;
    m_copie = grille ? *grille : Grid();
    calculerFusions();
    endResetModel();
}

ModeleGrille::Changements ModeleGrille::rafraichir()
{
    Changements ch;
    const Grid vide;
    const Grid &source = m_grille ? *m_grille : vide;
    if (source == m_copie)
        return ch;

    if (source.rows() != m_copie.rows() || source.cols() != m_copie.cols()) {
        beginResetModel();
        m_copie = source;
        calculerFusions();
        endResetModel();
        ch.structure = ch.cellules = ch.dimensions = ch.fusions = ch.selection = true;
        return ch;
    }

    // Same shape: signal only the block of cells that changed.
    int haut = m_copie.rows(), bas = -1, gauche = m_copie.cols(), droite = -1;
    bool textes = false;
    for (int r = 0; r < source.rows(); ++r) {
        const Cell *a = source.rowCells(r);
        const Cell *b = m_copie.rowCells(r);
        for (int c = 0; c < source.cols(); ++c) {
            if (a[c].texte == b[c].texte && a[c].attributs == b[c].attributs)
                continue;
            textes = textes || a[c].texte != b[c].texte;
            haut = std::min(haut, r);
            bas = std::max(bas, r);
            gauche = std::min(gauche, c);
            droite = std::max(droite, c);
        }
    }
    ch.cellules = bas >= 0;
    ch.selection = source.row != m_copie.row || source.col != m_copie.col
        || source.rowSel != m_copie.rowSel || source.colSel != m_copie.colSel;
    ch.dimensions = !memesDimensions(source, m_copie);
    ch.fusions = textes || !memesFusions(source, m_copie);
    m_copie = source;
    if (ch.fusions)
        calculerFusions();
    if (ch.cellules)
        emit dataChanged(index(haut, gauche), index(bas, droite));
    return ch;
}

void ModeleGrille::calculerFusions()
{
    m_fusions.clear();
    const Grid &g = m_copie;
    // Cells already inside a row's range: a vertical range may not cross them.
    QVector<bool> couvertes(qsizetype(g.rows()) * g.cols(), false);
    for (int r = 0; r < g.rows(); ++r) {
        if (!g.mergeRow(r))
            continue;
        const Cell *ligne = g.rowCells(r);
        int c = 0;
        while (c < g.cols()) {
            // Equal texts merge, empty ones too: that is why the sheets write a distinct
            // number of blanks in cells that must stay apart.
            int fin = c;
            while (fin + 1 < g.cols() && ligne[fin + 1].texte == ligne[c].texte)
                ++fin;
            if (fin > c) {
                m_fusions.append(QRect(c, r, fin - c + 1, 1));
                for (int i = c; i <= fin; ++i)
                    couvertes[qsizetype(r) * g.cols() + i] = true;
            }
            c = fin + 1;
        }
    }
    // A column's flag merges its title cells (the fixed rows) with equal text, so that a
    // title written on two header rows reads once. Data cells never merge downwards.
    const int titres = std::min(g.fixedRows, g.rows());
    for (int c = 0; c < g.cols(); ++c) {
        if (!g.mergeCol(c))
            continue;
        int r = 0;
        while (r < titres) {
            int fin = r;
            const QString &texte = g.text(r, c);
            if (!couvertes[qsizetype(r) * g.cols() + c] && !texte.trimmed().isEmpty())
                while (fin + 1 < titres && !couvertes[qsizetype(fin + 1) * g.cols() + c]
                       && g.text(fin + 1, c) == texte)
                    ++fin;
            if (fin > r)
                m_fusions.append(QRect(c, r, 1, fin - r + 1));
            r = fin + 1;
        }
    }
}

bool ModeleGrille::estFixe(int ligne, int colonne) const
{
    return ligne < m_copie.fixedRows || colonne < m_copie.fixedCols;
}

int ModeleGrille::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_copie.rows();
}

int ModeleGrille::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_copie.cols();
}

QVariant ModeleGrille::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || !m_copie.contient(index.row(), index.column()))
        return {};
    const Cell &cellule = m_copie.cell(index.row(), index.column());
    const CellAttributes &a = cellule.attributs;
    switch (role) {
    case Qt::DisplayRole:
        return texteAffiche(cellule.texte);
    case Qt::BackgroundRole: {
        qint32 fond = a.couleurFond;
        if (fond == CouleurSystemeFenetre && estFixe(index.row(), index.column()))
            fond = CouleurSystemeFaceBouton;
        return couleurQt(fond);
    }
    case Qt::ForegroundRole:
        return couleurQt(a.couleurTexte);
    case Qt::FontRole:
        return police(a);
    case Qt::TextAlignmentRole:
        return alignement(a.alignement, cellule.texte).toInt();
    default:
        return {};
    }
}

Qt::ItemFlags ModeleGrille::flags(const QModelIndex &index) const
{
    // Never editable in place: typing goes through the input box.
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
}

} // namespace thermique::gui
