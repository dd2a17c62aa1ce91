#include "dialoguerecuperation.h"

#include "workbook/classeur.h"
#include "workbook/projet.h"

#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace thermique::gui {

DialogueRecuperation::DialogueRecuperation(Classeur &classeur, QWidget *parent)
    : QDialog(parent)
    , m_classeur(classeur)
{
    setWindowTitle(QStringLiteral("Récupération de fichiers."));
    auto *disposition = new QVBoxLayout(this);
    m_liste = new QListWidget(this);
    m_liste->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_liste->setMinimumWidth(520);
    m_recuperer = new QPushButton(
        QStringLiteral("Récupérer, ou double clic sur le nom du fichier à récupérer"), this);
    m_supprimer = new QPushButton(
        QStringLiteral("Supprimer de la liste, effacement définitif du fichiersélectionné"), this);
    disposition->addWidget(m_liste);
    disposition->addWidget(m_recuperer);
    disposition->addWidget(m_supprimer);
    connect(m_liste, &QListWidget::itemSelectionChanged, this, &DialogueRecuperation::majBoutons);
    connect(m_liste, &QListWidget::itemDoubleClicked, this, &DialogueRecuperation::recuperer);
    connect(m_recuperer, &QPushButton::clicked, this, &DialogueRecuperation::recuperer);
    connect(m_supprimer, &QPushButton::clicked, this, &DialogueRecuperation::supprimer);
    remplir();
}

void DialogueRecuperation::remplir()
{
    m_liste->clear();
    m_liste->addItems(ListeRecuperation(m_classeur.dossier()));
    majBoutons();
}

void DialogueRecuperation::majBoutons()
{
    const bool choix = !m_liste->selectedItems().isEmpty();
    m_recuperer->setEnabled(choix);
    m_supprimer->setEnabled(choix);
}

void DialogueRecuperation::recuperer()
{
    const QList<QListWidgetItem *> choix = m_liste->selectedItems();
    if (choix.isEmpty())
        return;
    Recuperer(m_classeur, choix.first()->text());
    accept();
}

void DialogueRecuperation::supprimer()
{
    QStringList noms;
    for (const QListWidgetItem *item : m_liste->selectedItems())
        noms << item->text();
    SupprimerRecuperation(m_classeur.dossier(), noms);
    remplir();
}

} // namespace thermique::gui
