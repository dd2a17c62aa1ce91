#pragma once

#include <QDialog>

class QLineEdit;

namespace thermique {
class Classeur;
}

namespace thermique::gui {

// The distance of a coastal site to the sea; the form stays until a distance is given.
class DialogueDistanceMer : public QDialog
{
public:
    DialogueDistanceMer(Classeur &classeur, QWidget *parent);

    void accept() override;
    void reject() override { }

private:
    Classeur &m_classeur;
    QLineEdit *m_distance = nullptr;
};

} // namespace thermique::gui
