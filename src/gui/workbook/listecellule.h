#pragma once

#include <QListWidget>

namespace thermique {
struct ListeDeroulante;
}

namespace thermique::gui {

// A drop-down list (Combo1, Combo3) opened under a cell by the controller. A click on an
// item, or Enter on it, reports the item's index.
class ListeCellule : public QListWidget
{
    Q_OBJECT

public:
    explicit ListeCellule(const QString &nom, QWidget *parent = nullptr);

    // Shows the list from the left of `cellule` (viewport coordinates), below it.
    void afficher(const thermique::ListeDeroulante &etat, const QRect &cellule);
    // Where the list goes: below the cell, the cell's width when none is given.
    static QRect geometrie(const thermique::ListeDeroulante &etat, const QRect &cellule);

signals:
    void choix(int index);

protected:
    void keyPressEvent(QKeyEvent *evenement) override;

private:
    QStringList m_elements;
};

} // namespace thermique::gui
