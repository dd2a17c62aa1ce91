#include "listecellule.h"

#include "twips.h"

#include "workbook/etatvue.h"

#include <QKeyEvent>

namespace thermique::gui {

ListeCellule::ListeCellule(const QString &nom, QWidget *parent)
    : QListWidget(parent)
{
    setObjectName(nom);
    setFrameShape(QFrame::Box);
    setUniformItemSizes(true);
    hide();
    connect(this, &QListWidget::itemClicked, this,
            [this](QListWidgetItem *element) { emit choix(row(element)); });
}

QRect ListeCellule::geometrie(const thermique::ListeDeroulante &etat, const QRect &cellule)
{
    const int largeur = etat.largeur > 0 ? pixels(etat.largeur) : cellule.width();
    const int hauteur = etat.hauteur > 0 ? pixels(etat.hauteur) : cellule.height() * 8;
    return QRect(cellule.left(), cellule.bottom() + 1, largeur, hauteur);
}

void ListeCellule::afficher(const thermique::ListeDeroulante &etat, const QRect &cellule)
{
    if (etat.elements != m_elements) {
        m_elements = etat.elements;
        clear();
        addItems(m_elements);
    }
    setToolTip(etat.infobulle);
    setGeometry(geometrie(etat, cellule));
    show();
    raise();
}

void ListeCellule::keyPressEvent(QKeyEvent *evenement)
{
    if ((evenement->key() == Qt::Key_Return || evenement->key() == Qt::Key_Enter)
        && currentRow() >= 0) {
        emit choix(currentRow());
        return;
    }
    QListWidget::keyPressEvent(evenement);
}

} // namespace thermique::gui
