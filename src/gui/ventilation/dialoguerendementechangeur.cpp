#include "dialoguerendementechangeur.h"

#include "ventilation/rendementechangeur.h"
#include "workbook/classeur.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QVBoxLayout>

namespace thermique::gui {

DialogueRendementEchangeur::DialogueRendementEchangeur(Classeur &classeur, QWidget *parent)
    : QDialog(parent)
    , m_classeur(classeur)
{
    setWindowTitle(QStringLiteral(" Thermique : Rendement de l'échangeur double flux."));
    const Grid &pertes = classeur.etude().flexGrid[4];
    m_rendement = new QLineEdit(
        RendementEchangeurInitial(pertes.text(classeur.etat().LigneCourante, 14)), this);
    auto *formulaire = new QFormLayout;
    formulaire->addRow(QStringLiteral("Rendement de l'échangeur (%) : "), m_rendement);
    auto *boutons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    connect(boutons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    auto *mise = new QVBoxLayout(this);
    mise->addLayout(formulaire);
    mise->addWidget(boutons);
}

void DialogueRendementEchangeur::done(int resultat)
{
    AppliquerRendementEchangeur(m_classeur, m_rendement->text());
    QDialog::done(resultat);
}

} // namespace thermique::gui
