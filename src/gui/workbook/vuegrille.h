#pragma once

#include <QPixmap>
#include <QTableView>

namespace thermique {
class Grid;
}

namespace thermique::gui {

class ModeleGrille;

// The view of one sheet grid. It never acts on its own: clicks, keys, pointer moves and
// scrolling become signals in grid terms (row, column, classic key codes), and after the
// controller has worked, rafraichir() redraws from the grid and selects its current cell.
class VueGrille : public QTableView
{
    Q_OBJECT

public:
    explicit VueGrille(QWidget *parent = nullptr);

    ModeleGrille *modele() const { return m_modele; }
    void definirGrille(const Grid *grille);

    // Redraws what changed in the grid, then shows its current cell.
    void rafraichir();

    // A cell's own rectangle in viewport coordinates, even inside a merged range.
    QRect rectCellule(int ligne, int colonne) const;
    // Inside the range from the current cell to the selection end, when there is a range.
    bool dansSelection(int ligne, int colonne) const;
    // A picture drawn over a cell (the logo of the cover page); a null one removes it.
    void definirImage(int ligne, int colonne, const QPixmap &image);

signals:
    void cliqueCellule(int ligne, int colonne);
    void clicDroitCellule(int ligne, int colonne);
    void doubleCliqueCellule(int ligne, int colonne);
    // The left button held down and moved to another cell: the selection's far end.
    void selectionEtendue(int ligne, int colonne);
    void survolCellule(int ligne, int colonne, bool majuscule, int yTwips);
    void defilement();
    void toucheEnfoncee(int code, int masque);
    void toucheCaractere(int code);

protected:
    void mousePressEvent(QMouseEvent *evenement) override;
    void mouseReleaseEvent(QMouseEvent *evenement) override;
    void mouseDoubleClickEvent(QMouseEvent *evenement) override;
    void mouseMoveEvent(QMouseEvent *evenement) override;
    void leaveEvent(QEvent *evenement) override;
    void keyPressEvent(QKeyEvent *evenement) override;
    void paintEvent(QPaintEvent *evenement) override;

private:
    bool celluleSous(const QPoint &position, int &ligne, int &colonne) const;
    void appliquerDimensions();
    void appliquerFusions();
    void selectionnerCourante();

    ModeleGrille *m_modele = nullptr;
    // Last cell reached with the left button held (x column, y row); (-1, -1) when up.
    QPoint m_glisse {-1, -1};
    // Far end of the range last dragged (x column, y row).
    QPoint m_finSelection {-1, -1};
    // Last cell reported under the pointer (x column, y row), with the shift state.
    QPoint m_survol {-1, -1};
    bool m_survolMajuscule = false;
    int m_survolY = -1;
    QPixmap m_image;
    QPoint m_celluleImage {-1, -1};
};

} // namespace thermique::gui
