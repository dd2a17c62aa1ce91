#include "barremenus.h"

#include "workbook/menus.h"

#include <QMenu>
#include <QMenuBar>
#include <QSet>

namespace thermique::gui {

BarreMenus::BarreMenus(QMenuBar *barre)
    : QObject(barre)
{
    const QVector<EntreeMenu> &table = TableMenus();
    // An entry that is some other entry's parent is a menu; the others are commands.
    QSet<QString> parents;
    for (const EntreeMenu &e : table)
        parents.insert(QString::fromUtf8(e.parent));

    QHash<QString, QMenu *> menus;
    for (const EntreeMenu &e : table) {
        const QString nom = QString::fromUtf8(e.nom);
        const QString libelle = QString::fromUtf8(e.libelle);
        const QString parent = QString::fromUtf8(e.parent);
        QMenu *conteneur = menus.value(parent);
        if (!parent.isEmpty() && !conteneur)
            continue; // a parent always comes before its entries

        if (nom.isEmpty()) {
            if (conteneur)
                conteneur->addSeparator();
            continue;
        }
        QAction *action = nullptr;
        if (parents.contains(nom)) {
            auto *menu = conteneur ? conteneur->addMenu(libelle) : barre->addMenu(libelle);
            menu->setObjectName(nom);
            menus.insert(nom, menu);
            action = menu->menuAction();
        } else {
            action = conteneur ? conteneur->addAction(libelle) : barre->addAction(libelle);
            action->setCheckable(e.cochable);
            connect(action, &QAction::triggered, this, [this, nom] { emit choisi(nom); });
        }
        action->setObjectName(nom);
        m_actions.insert(nom, action);
    }
}

void BarreMenus::appliquer(const QMap<QString, EtatMenu> &etats)
{
    for (auto it = etats.cbegin(); it != etats.cend(); ++it) {
        QAction *action = m_actions.value(it.key());
        if (!action)
            continue;
        const EtatMenu &e = it.value();
        if (!e.libelle.isEmpty() && action->text() != e.libelle)
            action->setText(e.libelle);
        action->setEnabled(e.actif);
        action->setVisible(e.visible);
        if (action->isCheckable())
            action->setChecked(e.coche);
    }
}

} // namespace thermique::gui
