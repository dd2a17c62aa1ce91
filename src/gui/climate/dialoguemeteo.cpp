#include "dialoguemeteo.h"

#include "climate/choixsite.h"
#include "workbook/classeur.h"
#include "workbook/userinterface.h"

#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace thermique::gui {

DialogueMeteo::DialogueMeteo(Classeur &classeur, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(QStringLiteral(" Fichiers météo."));
    auto *arbre = new QTreeWidget(this);
    arbre->setHeaderHidden(true);
    for (const RegionGeographique &r : RegionsMeteo(classeur)) {
        auto *region = new QTreeWidgetItem(arbre, {r.nom});
        for (const QString &d : r.departements)
            new QTreeWidgetItem(region, {d});
    }
    connect(arbre, &QTreeWidget::itemClicked, this, [this, &classeur](QTreeWidgetItem *item) {
        if (!item || item->childCount() > 0 || !item->parent())
            return;
        if (ChoisirDepartementMeteo(classeur, item->parent()->text(0), item->text(0)))
            accept();
        else
            classeur.ui().message(QStringLiteral("Le choix ne peut pas être enregistré."),
                                  MessageExclamation, QStringLiteral("Thermique"));
    });
    auto *mise = new QVBoxLayout(this);
    mise->addWidget(arbre);
    mise->addWidget(
        new QLabel(QStringLiteral("Clic sur la Région puis sur le Département choisi."), this));
    resize(380, 520);
}

} // namespace thermique::gui
