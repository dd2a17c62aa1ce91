#pragma once

#include <QDialog>

class QLineEdit;

namespace thermique {
class Classeur;
}

namespace thermique::gui {

// The efficiency of the heat exchanger of a double-flow system, for the current row of
// the heat-loss sheet. Closing writes it, or blanks it when the box is empty.
class DialogueRendementEchangeur : public QDialog
{
public:
    DialogueRendementEchangeur(Classeur &classeur, QWidget *parent);

    void done(int resultat) override;

private:
    Classeur &m_classeur;
    QLineEdit *m_rendement = nullptr;
};

} // namespace thermique::gui
