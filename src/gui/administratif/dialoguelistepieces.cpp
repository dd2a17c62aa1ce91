#include "dialoguelistepieces.h"

#include "administratif/identite.h"
#include "workbook/classeur.h"

#include <QDialogButtonBox>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace thermique::gui {

DialogueListePieces::DialogueListePieces(Classeur &classeur, QWidget *parent)
    : QDialog(parent)
    , m_classeur(classeur)
{
    setWindowTitle(QStringLiteral("Liste des pièces."));
    m_texte = new QPlainTextEdit(this);
    m_texte->setPlainText(LireListePieces(classeur.dossier()));
    auto *boutons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(boutons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *mise = new QVBoxLayout(this);
    mise->addWidget(m_texte);
    mise->addWidget(boutons);
    resize(360, 420);
}

void DialogueListePieces::done(int resultat)
{
    EcrireListePieces(m_classeur.dossier(), m_texte->toPlainText());
    QDialog::done(resultat);
}

} // namespace thermique::gui
