#pragma once

#include <QDialog>

class QPlainTextEdit;

namespace thermique {
class Classeur;
}

namespace thermique::gui {

// The room names offered on the heat-loss sheet, one a line; written back on closing.
class DialogueListePieces : public QDialog
{
public:
    DialogueListePieces(Classeur &classeur, QWidget *parent);

    void done(int resultat) override;

private:
    Classeur &m_classeur;
    QPlainTextEdit *m_texte = nullptr;
};

} // namespace thermique::gui
