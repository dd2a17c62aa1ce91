#pragma once

#include "workbook/grid.h"

#include <QAbstractTableModel>
#include <QRect>
#include <QVector>

namespace thermique::gui {

// The table model over one sheet grid of the study. It reads a copy taken at the last
// rafraichir(), so that the view always sees a consistent grid while the controller works
// on the real one; rafraichir() tells the view what changed.
class ModeleGrille : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit ModeleGrille(QObject *parent = nullptr);

    // The grid shown (it belongs to the study); null shows nothing.
    void definirGrille(const Grid *grille);
    const Grid *grille() const { return m_grille; }
    // The copy the view shows.
    const Grid &copie() const { return m_copie; }

    // What a refresh found changed.
    struct Changements
    {
        bool structure = false; // rows or columns added or removed: the model was reset
        bool cellules = false; // texts or attributes
        bool dimensions = false; // row heights or column widths
        bool fusions = false; // merged ranges to recompute
        bool selection = false; // current cell or selection end

        bool aucun() const
        {
            return !structure && !cellules && !dimensions && !fusions && !selection;
        }
    };
    // Takes the grid's present state and signals the differences to the view.
    Changements rafraichir();

    // Merged ranges: in a row whose merge flag is on, adjacent cells with the same non-blank
    // text show as one cell; in a column whose flag is on, the same down the fixed rows.
    // Blank cells never merge, so that an empty input cell stays visible beside another.
    const QVector<QRect> &fusions() const { return m_fusions; }

    // The value couleurFond of a fixed cell left at its default is drawn in button face.
    bool estFixe(int ligne, int colonne) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    void calculerFusions();

    const Grid *m_grille = nullptr;
    Grid m_copie;
    QVector<QRect> m_fusions;
};

// The text of a cell as it is drawn: line breaks of the file (CR LF) become plain breaks.
QString texteAffiche(const QString &texte);
// True when the cell text reads as a number (general alignment puts it on the right).
bool estNombre(const QString &texte);

} // namespace thermique::gui
