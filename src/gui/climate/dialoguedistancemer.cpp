#include "dialoguedistancemer.h"

#include "climate/choixsite.h"
#include "workbook/classeur.h"
#include "workbook/userinterface.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QVBoxLayout>

namespace thermique::gui {

DialogueDistanceMer::DialogueDistanceMer(Classeur &classeur, QWidget *parent)
    : QDialog(parent)
    , m_classeur(classeur)
{
    setWindowTitle(QStringLiteral(" Thermique : Distance de la mer."));
    setWindowFlag(Qt::WindowCloseButtonHint, false);
    m_distance = new QLineEdit(this);
    auto *formulaire = new QFormLayout;
    formulaire->addRow(QStringLiteral("Distance de la mer, à vol d'oiseau (km) : "), m_distance);
    auto *boutons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    connect(boutons, &QDialogButtonBox::accepted, this, &DialogueDistanceMer::accept);
    auto *mise = new QVBoxLayout(this);
    mise->addLayout(formulaire);
    mise->addWidget(boutons);
}

void DialogueDistanceMer::accept()
{
    if (const auto refus = RefusDistanceMer(m_distance->text())) {
        m_classeur.ui().message(*refus, MessageExclamation, QStringLiteral("Thermique"));
        return;
    }
    DefinirDistanceMer(m_classeur, m_distance->text());
    QDialog::accept();
}

} // namespace thermique::gui
