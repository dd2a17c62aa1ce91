#include "workbook/grid.h"

#include <gtest/gtest.h>

using namespace thermique;

namespace {

// A 4 x 3 grid where every cell, row and column carries something recognisable.
Grid grilleMarquee()
{
    Grid g(4, 3);
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 3; ++c) {
            g.setText(r, c, QStringLiteral("t%1%2").arg(r).arg(c));
            g.setOperation(r, c, QStringLiteral("%1*%2").arg(r).arg(c));
            CellAttributes a;
            a.gras = (r + c) % 2;
            a.alignement = AlignementDroiteCentre;
            a.couleurFond = 1000 * r + c;
            a.italique = r == 2;
            a.police = QStringLiteral("Arial");
            a.taillePolice = 10 + r;
            a.barre = c == 1;
            a.souligne = c == 2;
            a.couleurTexte = 255 * r;
            a.styleTexte = c;
            g.setAttributs(r, c, a);
        }
        g.setRowHeight(r, 300 + r);
        g.setMergeRow(r, r == 1);
    }
    return g;
}

} // namespace

TEST(Grid, InsertionCarriesEveryRowContentDown)
{
    const Grid avant = grilleMarquee();
    for (int at : {0, 1, 3, 4}) {
        Grid g = avant;
        g.insertRow(at);
        ASSERT_EQ(g.rows(), 5) << at;
        for (int r = 0; r < 5; ++r) {
            const int source = r < at ? r : r - 1;
            for (int c = 0; c < 3; ++c) {
                if (r == at) {
                    EXPECT_EQ(g.cell(r, c), Cell {}) << "new row at " << at;
                } else {
                    EXPECT_EQ(g.cell(r, c), avant.cell(source, c)) << at << ' ' << r << ' ' << c;
                }
            }
            EXPECT_EQ(g.rowHeight(r), r == at ? Grid::HauteurLigneDefaut : avant.rowHeight(source));
            EXPECT_EQ(g.mergeRow(r), r == at ? false : avant.mergeRow(source));
        }
    }
}

TEST(Grid, RemovalCarriesEveryRowContentUp)
{
    const Grid avant = grilleMarquee();
    for (int at : {0, 2, 3}) {
        Grid g = avant;
        g.removeRow(at);
        ASSERT_EQ(g.rows(), 3);
        for (int r = 0; r < 3; ++r) {
            const int source = r < at ? r : r + 1;
            for (int c = 0; c < 3; ++c)
                EXPECT_EQ(g.cell(r, c), avant.cell(source, c));
            EXPECT_EQ(g.rowHeight(r), avant.rowHeight(source));
            EXPECT_EQ(g.mergeRow(r), avant.mergeRow(source));
        }
        // Operations are reached by linear index after the move.
        EXPECT_EQ(g.operationAt(g.indexLineaire(at < 3 ? at : 0, 1)),
                  avant.operation(at < 3 ? at + 1 : 0, 1));
    }
}

TEST(Grid, OutOfRangeIsHarmless)
{
    Grid g(2, 2);
    g.setText(5, 0, QStringLiteral("x"));
    g.setText(-1, 0, QStringLiteral("x"));
    g.setRowHeight(9, 10);
    g.insertRow(7);
    g.removeRow(-3);
    g.removeRows(1, 50);
    EXPECT_EQ(g.rows(), 1);
    EXPECT_TRUE(g.text(3, 3).isEmpty());
    EXPECT_EQ(g.cellPtr(1, 0), nullptr);
}

TEST(Grid, LinearSlotPastTheLastCellFollowsTheGrowth)
{
    // The file formats walk to column Cols of each row: index rows*cols is a real slot.
    Grid g(2, 3);
    g.setOperationAt(6, QStringLiteral("1+1"));
    EXPECT_EQ(g.operationAt(6), QStringLiteral("1+1"));
    EXPECT_TRUE(g.operation(1, 2).isEmpty());
    // Index r*cols+cols and (r+1)*cols are one and the same cell.
    g.setOperationAt(3, QStringLiteral("2*2"));
    EXPECT_EQ(g.operation(1, 0), QStringLiteral("2*2"));
    // Growing the row count turns the slot into column 0 of the first new row.
    g.setRows(3);
    EXPECT_EQ(g.operation(2, 0), QStringLiteral("1+1"));
    EXPECT_TRUE(g.operationAt(9).isEmpty());
}

TEST(Grid, ResizeKeepsCellsInPlace)
{
    Grid g = grilleMarquee();
    g.setCols(5);
    EXPECT_EQ(g.text(3, 2), QStringLiteral("t32"));
    EXPECT_EQ(g.operation(2, 1), QStringLiteral("2*1"));
    EXPECT_TRUE(g.text(3, 4).isEmpty());
    EXPECT_EQ(g.colWidth(4), Grid::LargeurColonneDefaut);
    g.resize(2, 2);
    EXPECT_EQ(g.text(1, 1), QStringLiteral("t11"));
    EXPECT_EQ(g.rows(), 2);
    EXPECT_EQ(g.rowHeight(1), 301);
}

TEST(Grid, LockedMeansTheLockedBackColour)
{
    Grid g(1, 2);
    CellAttributes a;
    a.couleurFond = 12632256;
    g.setAttributs(0, 1, a);
    EXPECT_TRUE(g.estVerrouillee(0, 1, 12632256));
    EXPECT_FALSE(g.estVerrouillee(0, 0, 12632256));
}
