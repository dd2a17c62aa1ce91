#pragma once

#include <QDialog>

#include <array>

class QLineEdit;

namespace thermique {
class Classeur;
}

namespace thermique::gui {

// The user's identity and page footer. While no identity is on file the form cannot be
// closed without one: the study does not start without it.
class DialogueIdentite : public QDialog
{
public:
    DialogueIdentite(Classeur &classeur, QWidget *parent);

    void accept() override;
    void reject() override;

private:
    Classeur &m_classeur;
    std::array<QLineEdit *, 7> m_champs {};
};

} // namespace thermique::gui
