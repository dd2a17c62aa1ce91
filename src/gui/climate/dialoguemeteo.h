#pragma once

#include <QDialog>

namespace thermique {
class Classeur;
}

namespace thermique::gui {

// The regions and their departments; a click on a department chooses the weather folder.
class DialogueMeteo : public QDialog
{
public:
    DialogueMeteo(Classeur &classeur, QWidget *parent);
};

} // namespace thermique::gui
