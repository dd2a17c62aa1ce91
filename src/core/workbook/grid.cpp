#include "grid.h"

#include <algorithm>

namespace thermique {

namespace {
const Cell celluleVide {};
} // namespace

Grid::Grid(int rows, int cols)
{
    resize(rows, cols);
}

void Grid::setRows(int rows)
{
    resize(rows, m_cols);
}

void Grid::setCols(int cols)
{
    resize(m_rows, cols);
}

void Grid::resize(int rows, int cols)
{
    rows = std::max(0, rows);
    cols = std::max(0, cols);
    if (rows == m_rows && cols == m_cols)
        return;

    if (cols == m_cols) {
        // Row count only: the cells keep their linear place, so the slot past the last cell
        // becomes column 0 of the first new row, as a grown operation array would have it.
        const QString fin = m_operationFin;
        m_cells.resize(qsizetype(rows) * cols);
        m_operationFin.clear();
        if (rows > m_rows && cols > 0)
            m_cells[qsizetype(m_rows) * cols].operation = fin;
    } else {
        QVector<Cell> cells(qsizetype(rows) * cols);
        const int keepRows = std::min(rows, m_rows);
        const int keepCols = std::min(cols, m_cols);
        for (int r = 0; r < keepRows; ++r)
            for (int c = 0; c < keepCols; ++c)
                cells[qsizetype(r) * cols + c] = std::move(m_cells[qsizetype(r) * m_cols + c]);
        m_cells = std::move(cells);
        m_operationFin.clear();
    }
    m_rowHeights.resize(rows, HauteurLigneDefaut);
    m_mergeRows.resize(rows, false);
    m_colWidths.resize(cols, LargeurColonneDefaut);
    m_mergeCols.resize(cols, false);
    m_rows = rows;
    m_cols = cols;
}

const Cell &Grid::cell(int r, int c) const
{
    if (!contient(r, c))
        return celluleVide;
    return m_cells[qsizetype(r) * m_cols + c];
}

Cell *Grid::cellPtr(int r, int c)
{
    if (!contient(r, c))
        return nullptr;
    return &m_cells[qsizetype(r) * m_cols + c];
}

void Grid::setText(int r, int c, const QString &t)
{
    if (Cell *p = cellPtr(r, c))
        p->texte = t;
}

void Grid::setAttributs(int r, int c, const CellAttributes &a)
{
    if (Cell *p = cellPtr(r, c))
        p->attributs = a;
}

void Grid::setOperation(int r, int c, const QString &op)
{
    if (Cell *p = cellPtr(r, c))
        p->operation = op;
}

QString Grid::operationAt(int index) const
{
    if (index < 0 || m_cols == 0)
        return {};
    if (index == m_rows * m_cols)
        return m_operationFin;
    return operation(index / m_cols, index % m_cols);
}

void Grid::setOperationAt(int index, const QString &op)
{
    if (index < 0 || m_cols == 0)
        return;
    if (index == m_rows * m_cols)
        m_operationFin = op;
    else
        setOperation(index / m_cols, index % m_cols, op);
}

void Grid::clearOperations()
{
    for (Cell &c : m_cells)
        c.operation.clear();
    m_operationFin.clear();
}

int Grid::rowHeight(int r) const
{
    return (r >= 0 && r < m_rows) ? m_rowHeights[r] : 0;
}

void Grid::setRowHeight(int r, int twips)
{
    if (r >= 0 && r < m_rows)
        m_rowHeights[r] = twips;
}

int Grid::colWidth(int c) const
{
    return (c >= 0 && c < m_cols) ? m_colWidths[c] : 0;
}

void Grid::setColWidth(int c, int twips)
{
    if (c >= 0 && c < m_cols)
        m_colWidths[c] = twips;
}

bool Grid::mergeRow(int r) const
{
    return r >= 0 && r < m_rows && m_mergeRows[r];
}

void Grid::setMergeRow(int r, bool on)
{
    if (r >= 0 && r < m_rows)
        m_mergeRows[r] = on;
}

bool Grid::mergeCol(int c) const
{
    return c >= 0 && c < m_cols && m_mergeCols[c];
}

void Grid::setMergeCol(int c, bool on)
{
    if (c >= 0 && c < m_cols)
        m_mergeCols[c] = on;
}

void Grid::insertRow(int at)
{
    insertRows(at, 1);
}

void Grid::removeRow(int at)
{
    removeRows(at, 1);
}

void Grid::insertRows(int at, int count)
{
    if (count <= 0 || at < 0 || at > m_rows)
        return;
    const qsizetype pos = qsizetype(at) * m_cols;
    m_cells.insert(pos, qsizetype(count) * m_cols, Cell {});
    m_rowHeights.insert(at, count, HauteurLigneDefaut);
    m_mergeRows.insert(at, count, false);
    m_rows += count;
}

void Grid::removeRows(int at, int count)
{
    if (at < 0 || at >= m_rows || count <= 0)
        return;
    count = std::min(count, m_rows - at);
    m_cells.remove(qsizetype(at) * m_cols, qsizetype(count) * m_cols);
    m_rowHeights.remove(at, count);
    m_mergeRows.remove(at, count);
    m_rows -= count;
}

} // namespace thermique
