#pragma once

#include <QString>
#include <QVector>

namespace thermique {

// Cell alignment values as the grids store them.
enum AlignementCellule : int {
    AlignementGaucheHaut = 0,
    AlignementGaucheCentre = 1,
    AlignementCentreCentre = 4,
    AlignementDroiteHaut = 6,
    AlignementDroiteCentre = 7,
    AlignementGeneral = 9,
};

// System colour values kept as the grids store them (high bit set = system colour index).
constexpr qint32 CouleurSystemeFenetre = qint32(0x80000005u);
constexpr qint32 CouleurSystemeTexteFenetre = qint32(0x80000008u);
constexpr qint32 CouleurSystemeFaceBouton = qint32(0x8000000Fu);
constexpr qint32 CouleurSystemeInfoBulle = qint32(0x80000018u);

// The ten attributes that a study file keeps for every cell. Colours are the stored
// integers (BGR, or a system colour index), not screen colours.
struct CellAttributes
{
    bool gras = false;
    qint32 alignement = AlignementGeneral;
    qint32 couleurFond = CouleurSystemeFenetre;
    bool italique = false;
    QString police = QStringLiteral("MS Sans Serif");
    float taillePolice = 8.25f;
    bool barre = false;
    bool souligne = false;
    qint32 couleurTexte = CouleurSystemeTexteFenetre;
    qint32 styleTexte = 0;

    bool operator==(const CellAttributes &) const = default;
};

struct Cell
{
    QString texte;
    CellAttributes attributs;
    // Arithmetic typed by the user in this cell; empty or blanks when there is none.
    QString operation;

    bool operator==(const Cell &) const = default;
};

// A sheet grid: the data store of a sheet. Rows and columns count from 0; a cell is
// reached by (row, col) or by its linear index row * cols + col. The operation text lives
// in the cell so that moving a row moves its operations; the linear index is only used by
// the file formats (see operationAt).
class Grid
{
public:
    Grid() = default;
    Grid(int rows, int cols);

    int rows() const { return m_rows; }
    int cols() const { return m_cols; }
    // Resizes, keeping the cells that stay in range. New cells are blank with the default
    // attributes, new rows take the default height, new columns the default width.
    void setRows(int rows);
    void setCols(int cols);
    void resize(int rows, int cols);

    int fixedRows = 0;
    int fixedCols = 0;
    // Current cell and selection end, first visible row and column.
    int row = 0;
    int col = 0;
    int rowSel = 0;
    int colSel = 0;
    int topRow = 0;
    int leftCol = 0;
    // Stored and restored as it stands by the file formats.
    int modeAffichage = 0;
    int modeFusion = 0;
    bool redraw = true;

    static constexpr int HauteurLigneDefaut = 240;
    static constexpr int LargeurColonneDefaut = 960;

    bool contient(int r, int c) const { return r >= 0 && c >= 0 && r < m_rows && c < m_cols; }
    int indexLineaire(int r, int c) const { return r * m_cols + c; }
    int ligneDeIndex(int index) const { return m_cols > 0 ? index / m_cols : 0; }
    int colonneDeIndex(int index) const { return m_cols > 0 ? index % m_cols : 0; }

    // Out-of-range reads give an empty cell; out-of-range writes are dropped.
    const Cell &cell(int r, int c) const;
    Cell *cellPtr(int r, int c);
    QString text(int r, int c) const { return cell(r, c).texte; }
    void setText(int r, int c, const QString &t);
    const CellAttributes &attributs(int r, int c) const { return cell(r, c).attributs; }
    void setAttributs(int r, int c, const CellAttributes &a);
    QString operation(int r, int c) const { return cell(r, c).operation; }
    void setOperation(int r, int c, const QString &op);

    // Linear access to operations, index from 0 to rows * cols inclusive: the file formats
    // walk one column past the last, so index rows * cols is a valid slot with no cell.
    QString operationAt(int index) const;
    void setOperationAt(int index, const QString &op);
    void clearOperations();

    // A locked cell is one whose back colour is the locked colour; there is no other flag.
    bool estVerrouillee(int r, int c, qint32 couleurVerrouillee) const
    {
        return attributs(r, c).couleurFond == couleurVerrouillee;
    }

    int rowHeight(int r) const;
    void setRowHeight(int r, int twips);
    int colWidth(int c) const;
    void setColWidth(int c, int twips);
    bool mergeRow(int r) const;
    void setMergeRow(int r, bool on);
    bool mergeCol(int c) const;
    void setMergeCol(int c, bool on);

    // Inserts a blank row before `at` (at == rows() appends); every row from `at` on moves
    // down with its texts, attributes, operations, height and merge flag.
    void insertRow(int at);
    // Removes row `at`; the rows below move up with everything they carry.
    void removeRow(int at);
    void insertRows(int at, int count);
    void removeRows(int at, int count);

    // Cells of a row, in column order.
    const Cell *rowCells(int r) const { return m_cells.constData() + r * m_cols; }

    bool operator==(const Grid &) const = default;

private:
    int m_rows = 0;
    int m_cols = 0;
    QVector<Cell> m_cells;
    QVector<int> m_rowHeights;
    QVector<int> m_colWidths;
    QVector<bool> m_mergeRows;
    QVector<bool> m_mergeCols;
    // The slot of linear index rows * cols.
    QString m_operationFin;
};

} // namespace thermique
