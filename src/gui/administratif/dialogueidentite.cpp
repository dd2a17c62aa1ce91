#include "dialogueidentite.h"

#include "administratif/identite.h"
#include "workbook/classeur.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace thermique::gui {

namespace {
struct Champ
{
    const char *libelle;
    const char *infobulle;
};
constexpr Champ champs[] = {
    {"Nom :", "Entrez le Nom"},
    {"Adresse :", "Entrez l'adresse"},
    {"Ville :", "Entrez la commune"},
    {"Téléphone :", "Entrez le numéro de téléphone"},
    {"Fax :", "Entrez le numéro de télécopie"},
    {"Courriel :", "Entrez l'adresse courriel"},
    {"Bas de pages :",
     "Le texte entré dans cette fenêtre est inscrit en bas de pages lors de "
     "l'impression des documents"},
};
} // namespace

DialogueIdentite::DialogueIdentite(Classeur &classeur, QWidget *parent)
    : QDialog(parent)
    , m_classeur(classeur)
{
    setWindowTitle(QStringLiteral("Identité de l'utilisateur."));
    auto *formulaire = new QFormLayout;
    const Identite identite = LireIdentite(classeur.dossier());
    for (int i = 0; i < 7; ++i) {
        m_champs[i] = new QLineEdit(i < 6 ? identite.champs[i] : identite.piedDePage, this);
        m_champs[i]->setToolTip(QString::fromUtf8(champs[i].infobulle));
        m_champs[i]->setMinimumWidth(360);
        formulaire->addRow(QString::fromUtf8(champs[i].libelle), m_champs[i]);
    }
    auto *boutons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    QPushButton *logo = boutons->addButton(QStringLiteral("Logo"), QDialogButtonBox::ActionRole);
    connect(boutons, &QDialogButtonBox::accepted, this, &DialogueIdentite::accept);
    connect(logo, &QPushButton::clicked, this, [this] { ChoisirLogo(m_classeur); });
    auto *mise = new QVBoxLayout(this);
    mise->addLayout(formulaire);
    mise->addWidget(boutons);
}

void DialogueIdentite::accept()
{
    Identite identite;
    for (int i = 0; i < 6; ++i)
        identite.champs[i] = m_champs[i]->text();
    identite.piedDePage = m_champs[6]->text();
    // Six blank fields: the button does nothing.
    if (ValiderIdentite(m_classeur, identite))
        QDialog::accept();
}

void DialogueIdentite::reject()
{
    if (!LireIdentite(m_classeur.dossier()).vide())
        QDialog::reject();
}

} // namespace thermique::gui
