#pragma once

#include <QDialog>

class QListWidget;
class QPushButton;

namespace thermique {
class Classeur;
}

namespace thermique::gui {

// "Récupération de fichiers.": the recovery points of the snapshots, to bring one back into
// the workbook or to delete sets for good.
class DialogueRecuperation : public QDialog
{
    Q_OBJECT

public:
    DialogueRecuperation(Classeur &classeur, QWidget *parent = nullptr);

private:
    void remplir();
    void recuperer();
    void supprimer();
    void majBoutons();

    Classeur &m_classeur;
    QListWidget *m_liste;
    QPushButton *m_recuperer;
    QPushButton *m_supprimer;
};

} // namespace thermique::gui
